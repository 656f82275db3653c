#include "values/format_date.h"

#include <algorithm>

#include "values/numbers.h"
#include "values/upper.h"

namespace kodra::values {
namespace {

// The length of the run of one character, in any letter case, that a text begins with.
std::size_t RunLength(std::wstring_view text) {
  const auto differs = [&](wchar_t c) { return UpperCaseAscii(c) != UpperCaseAscii(text.front()); };
  return static_cast<std::size_t>(std::find_if(text.begin(), text.end(), differs) - text.begin());
}

std::wstring Digits(std::int32_t number, std::size_t width) {
  std::wstring digits = NumberToText(number);
  if (digits.size() < width) digits.insert(0, width - digits.size(), L'0');
  return digits;
}

// The part of a date that a pattern letter denotes; nothing for the year and for a letter without a meaning.
std::optional<std::int32_t> PartOf(const Calendar& date, wchar_t letter, bool afterHour) {
  switch (letter) {
    case L'D':
      return date.day;
    case L'M':
      return afterHour ? date.minute : date.month;
    case L'H':
      return date.hour;
    case L'N':
      return date.minute;
    case L'S':
      return date.second;
    default:
      return std::nullopt;
  }
}

// The text of a run of one letter; nothing for a run that is literal.
std::optional<std::wstring> FieldOf(const Calendar& date, wchar_t letter, std::size_t length, bool afterHour) {
  if (letter == L'Y' && length == 4) return NumberToText(date.year);
  if (letter == L'Y' && length == 2) return Digits(date.year % 100, 2);
  const std::optional<std::int32_t> part = PartOf(date, letter, afterHour);
  if (!part || length > 2) return std::nullopt;
  return Digits(*part, length);
}

}  // namespace

std::wstring FormatDate(const Calendar& date, std::wstring_view pattern) {
  std::wstring text;
  bool afterHour = false;
  while (!pattern.empty()) {
    if (pattern.front() == L'\\') {
      text += pattern.substr(1, 1);
      pattern.remove_prefix(std::min<std::size_t>(pattern.size(), 2));
      continue;
    }
    const wchar_t letter = UpperCaseAscii(pattern.front());
    const std::wstring_view run = pattern.substr(0, RunLength(pattern));
    pattern.remove_prefix(run.size());
    const std::optional<std::wstring> field = FieldOf(date, letter, run.size(), afterHour);
    text += field ? *field : run;
    if (field) afterHour = letter == L'H';
  }
  return text;
}

std::wstring FormatDate(Date date, std::wstring_view pattern) { return FormatDate(ToCalendar(date), pattern); }

std::wstring DateToText(Date date) {
  const Calendar calendar = ToCalendar(date);
  const bool midnight = calendar.hour == 0 && calendar.minute == 0 && calendar.second == 0;
  const Calendar dayZero;
  if (calendar.year == dayZero.year && calendar.month == dayZero.month && calendar.day == dayZero.day)
    return FormatDate(calendar, L"hh:nn:ss");
  return FormatDate(calendar, midnight ? L"dd/mm/yyyy" : L"dd/mm/yyyy hh:nn:ss");
}

}  // namespace kodra::values
