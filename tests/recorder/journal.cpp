#include "tests/recorder/journal.h"

#include <algorithm>
#include <sstream>

#include "tests/recorder/fake_object.h"
#include "values/decimal.h"

namespace kodra::recorder {
namespace {

std::wstring Shortest(double number) {
  std::wostringstream text;
  text << number;
  return text.str();
}

struct Show {
  std::wstring operator()(Empty) const { return L"Empty"; }
  std::wstring operator()(Null) const { return L"Null"; }
  std::wstring operator()(bool flag) const { return flag ? L"True" : L"False"; }
  std::wstring operator()(std::int32_t number) const { return std::to_wstring(number); }
  std::wstring operator()(std::int64_t number) const { return std::to_wstring(number); }
  std::wstring operator()(std::uint64_t number) const { return std::to_wstring(number); }
  std::wstring operator()(float number) const { return Shortest(number); }
  std::wstring operator()(double number) const { return Shortest(number); }
  std::wstring operator()(Currency number) const { return values::PlainText(values::ToDecimal(number)); }
  std::wstring operator()(const Decimal& number) const { return values::PlainText(number); }
  std::wstring operator()(Date date) const { return L"Date(" + Shortest(date.days) + L")"; }
  std::wstring operator()(const std::wstring& text) const { return L"\"" + text + L"\""; }
  std::wstring operator()(const ObjectRef& object) const {
    if (!object) return L"Nothing";
    const auto* fake = dynamic_cast<const FakeObject*>(object.get());
    return fake == nullptr ? L"(an object of the component)" : fake->Name();
  }
};

}  // namespace

std::wstring Shown(const Value& value) { return std::visit(Show{}, value.Held()); }

std::string Journal::Calls() const {
  std::string text;
  for (const std::wstring& line : lines_) text += Utf8(line) + "\n";
  return text;
}

void Journal::Forget() {
  lines_.clear();
  failures_.clear();
  failedCall_.clear();
  names_.clear();
  calls_ = 0;
}

void Journal::CountCall(const std::wstring& call) {
  ++calls_;
  const auto due = std::find_if(failures_.begin(), failures_.end(), [&](const Failure& failure) {
    return failure.call == 0 ? call.starts_with(failure.start) : failure.call == calls_;
  });
  if (due == failures_.end()) return;
  const std::exception_ptr exception = due->exception;
  failures_.erase(due);
  failedCall_ = call;
  lines_.push_back(call + L" raises");
  std::rethrow_exception(exception);
}

void Journal::Note(const std::wstring& call, std::wstring_view answer) {
  CountCall(call);
  lines_.push_back(answer.empty() ? call : call + L" -> " + std::wstring(answer));
}

void Journal::NoteRefusal(const std::wstring& call) {
  CountCall(call);
  lines_.push_back(call + L" raises");
}

std::wstring Journal::NewName(std::wstring_view kind) {
  return std::wstring(kind) + std::to_wstring(++names_[std::wstring(kind)]);
}

std::wstring Fake::Line(std::wstring_view member, std::initializer_list<std::wstring_view> arguments) const {
  std::wstring line = name_ + L"." + std::wstring(member) + L"(";
  std::wstring_view separator;
  for (const std::wstring_view argument : arguments) {
    line.append(separator).append(argument);
    separator = L", ";
  }
  return line + L")";
}

}  // namespace kodra::recorder
