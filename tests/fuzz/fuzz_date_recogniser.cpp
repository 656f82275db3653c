// Recognising dates in text, and writing and converting the recognised dates.
//
// Input: the text.
#include <cwchar>
#include <optional>
#include <set>

#include "tests/fuzz/target.h"
#include "values/convert.h"
#include "values/erro.h"
#include "values/format_date.h"
#include "values/upper.h"

namespace kodra::fuzz {
namespace {

using values::Calendar;
using values::ParseDate;

// A year with a 29 February, and one without.
constexpr std::int32_t kLeapYear = 2024;
constexpr std::int32_t kCommonYear = 2023;

std::wstring Printed(const wchar_t* format, const Calendar& c) {
  wchar_t buffer[64];
  std::swprintf(buffer, std::size(buffer), format, c.day, c.month, c.year, c.hour, c.minute, c.second);
  return buffer;
}

void RequireDate(const std::wstring& text, const Calendar& expected, const char* property) {
  const auto date = ParseDate(text, kLeapYear);
  Require(date.has_value() && values::ToCalendar(*date) == expected, property);
}

// The numbers that a text contains.
std::set<std::int32_t> NumbersIn(const std::wstring& text) {
  std::set<std::int32_t> numbers;
  std::optional<std::int32_t> number;
  for (const wchar_t c : text + L' ') {
    const bool digit = c >= L'0' && c <= L'9';
    if (digit) {
      number = number.value_or(0) * 10 + (c - L'0');
    } else if (number) {
      numbers.insert(*number);
      number.reset();
    }
  }
  return numbers;
}

// Every part of a date comes from the text.
void CheckNumbers(const std::wstring& input, const Calendar& calendar) {
  const std::set<std::int32_t> given = NumbersIn(input);
  const auto has = [&](std::int32_t number) { return given.contains(number); };
  const bool dayZero = calendar.year == 1899 && calendar.month == 12 && calendar.day == 30;
  Require(dayZero || has(calendar.day) || calendar.day == 1, "the day is a number in the text, or 1");
  Require(dayZero || has(calendar.year) || has(calendar.year % 100) || calendar.year == kLeapYear,
          "the year is a number in the text, or the current year");
  Require(has(calendar.hour) || has(calendar.hour - 12) || calendar.hour == 0, "the hour is a number in the text");
  Require(has(calendar.minute) || calendar.minute == 0, "the minute is a number in the text");
  Require(has(calendar.second) || calendar.second == 0, "the second is a number in the text");
}

void CheckRecognised(const std::wstring& input, Date date) {
  const Calendar calendar = values::ToCalendar(date);
  Require(values::IsDay(calendar.year, calendar.month, calendar.day), "a recognised date exists in the calendar");
  Require(calendar.hour >= 0 && calendar.hour <= 23 && calendar.minute >= 0 && calendar.minute <= 59 &&
              calendar.second >= 0 && calendar.second <= 59,
          "a recognised time is a time of day");
  Require(values::FromCalendar(calendar) == date, "a date survives the conversion to its parts and back");

  CheckNumbers(input, calendar);
  RequireDate(values::DateToText(date), calendar, "a date as text is recognised as the same date");
  RequireDate(L" " + input + L"\t", calendar, "blanks around a date are ignored");
  RequireDate(values::UpperCase(input), calendar, "letter case is ignored");

  const std::wstring longForm = Printed(L"%02d/%02d/%d %02d:%02d:%02d", calendar);
  RequireEqual(values::FormatDate(date, L"dd/mm/yyyy hh:nn:ss"), longForm, "a date is formatted by the pattern");
  RequireEqual(values::FormatDate(date, L"DD/MM/YYYY HH:MM:SS"), longForm, "the letter case of a pattern is ignored");
  RequireDate(longForm, calendar, "a date written day first is recognised");
  RequireDate(values::FormatDate(date, L"yyyy-mm-dd hh:nn:ss"), calendar, "a date written year first is recognised");
  RequireDate(values::FormatDate(date, L"hh.nn.ss, d-m-yyyy"), calendar, "a date after its time is recognised");
}

void CheckConverted(const std::wstring& input) {
  const auto date = ParseDate(input);
  try {
    const Date converted = values::ToDate(input);
    if (date) Require(converted == *date, "the text of a date is converted to the recognised date");
    values::ToCalendar(converted);
  } catch (const Erro& erro) {
    const bool known = erro.Number() == static_cast<std::int32_t>(RuntimeError::kTypeMismatch) ||
                       erro.Number() == static_cast<std::int32_t>(RuntimeError::kOverflow);
    Require(!date && known, "only text that is not a date fails, with a type mismatch or an overflow");
  }
}

}  // namespace
}  // namespace kodra::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace kodra::fuzz;
  const std::wstring input = TextOf(data, size);
  const auto date = ParseDate(input, kLeapYear);
  if (date) CheckRecognised(input, *date);
  // A text without a year may be 29 February, or otherwise another day.
  Require(date.has_value() || !ParseDate(input, kCommonYear).has_value(),
          "text that is a date in a common year is a date in a leap year");
  CheckConverted(input);
  return 0;
}
