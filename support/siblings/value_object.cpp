#include "siblings/value_object.h"

#include "platform/erro.h"
#include "text/upper.h"

namespace kodra::support {
namespace {

[[noreturn]] void RaiseNotFound() { throw platform::MemberNotFound(); }

}  // namespace

platform::Value ValueObject::Get(std::wstring_view member) {
  for (const auto& [name, value] : entries_) {
    if (text::EqualIgnoringCase(name, member)) return value;
  }
  RaiseNotFound();
}

void ValueObject::Let(std::wstring_view, const platform::Value&) { RaiseNotFound(); }
void ValueObject::Set(std::wstring_view, const platform::ObjectRef&) { RaiseNotFound(); }

platform::Value ValueObject::Call(std::wstring_view member, std::span<const platform::Value> arguments) {
  if (!arguments.empty()) RaiseNotFound();
  return Get(member);
}

}  // namespace kodra::support
