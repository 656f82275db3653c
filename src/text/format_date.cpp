#include <array>

#include "text/dates.h"
#include "text/upper.h"

namespace kodra::text {
namespace {

// Appends a number of at most four digits, with zeros before it up to the width.
void AppendNumber(std::wstring& out, std::int32_t number, std::size_t width) {
  std::array<wchar_t, 4> digits{};
  std::size_t first = digits.size();
  do {
    digits[--first] = static_cast<wchar_t>(L'0' + number % 10);
    number /= 10;
  } while (number > 0);
  while (digits.size() - first < width) digits[--first] = L'0';
  out.append(digits.data() + first, digits.size() - first);
}

// The number of times that the pattern's character at `at` follows itself there, in any letter case.
std::size_t RunLength(std::wstring_view pattern, std::size_t at) {
  std::size_t end = at;
  while (end < pattern.size() && UpperCase(pattern[end]) == UpperCase(pattern[at])) ++end;
  return end - at;
}

class Writer {
 public:
  Writer(const Calendar& calendar, std::size_t length) : calendar_(calendar) { out_.reserve(length); }

  // Writes the field that `length` times `letter` (in upper case) stands for; false when it stands for none.
  bool WriteField(wchar_t letter, std::size_t length) {
    if (letter == L'Y') {
      if (length != 2 && length != 4) return false;
      WriteYear(length);
    } else {
      const std::optional<std::int32_t> value = ValueOf(letter);
      if (!value || length > 2) return false;
      AppendNumber(out_, *value, length);
    }
    afterHour_ = letter == L'H';
    return true;
  }

  void WriteLiteral(std::wstring_view text) { out_ += text; }

  std::wstring Take() { return std::move(out_); }

 private:
  std::optional<std::int32_t> ValueOf(wchar_t letter) const {
    switch (letter) {
      case L'D':
        return calendar_.day;
      case L'M':
        return afterHour_ ? calendar_.minute : calendar_.month;
      case L'H':
        return calendar_.hour;
      case L'N':
        return calendar_.minute;
      case L'S':
        return calendar_.second;
      default:
        return std::nullopt;
    }
  }

  void WriteYear(std::size_t length) {
    // Four letters write the year as it is: automation writes the year 100 with three digits.
    if (length == 2) {
      AppendNumber(out_, calendar_.year % 100, 2);
    } else {
      AppendNumber(out_, calendar_.year, 0);
    }
  }

  Calendar calendar_;
  std::wstring out_;
  bool afterHour_ = false;
};

}  // namespace

std::wstring FormatDate(platform::Date date, std::wstring_view pattern) {
  Writer writer(ToCalendar(date), pattern.size());
  for (std::size_t at = 0; at < pattern.size();) {
    if (pattern[at] == L'\\') {
      writer.WriteLiteral(pattern.substr(at + 1, 1));
      at += 2;
      continue;
    }
    const std::size_t length = RunLength(pattern, at);
    if (!writer.WriteField(UpperCase(pattern[at]), length)) writer.WriteLiteral(pattern.substr(at, length));
    at += length;
  }
  return writer.Take();
}

std::wstring DateToText(platform::Date date) {
  const Calendar calendar = ToCalendar(date);
  const Calendar midnightOfDayZero;
  const bool dayZero = calendar.year == midnightOfDayZero.year && calendar.month == midnightOfDayZero.month &&
                       calendar.day == midnightOfDayZero.day;
  if (dayZero) return FormatDate(date, L"hh:nn:ss");
  const bool midnight = calendar.hour == 0 && calendar.minute == 0 && calendar.second == 0;
  return FormatDate(date, midnight ? L"dd/mm/yyyy" : L"dd/mm/yyyy hh:nn:ss");
}

}  // namespace kodra::text
