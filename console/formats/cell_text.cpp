#include "console/formats/cell_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "odbc/engine/dates.h"
#include "values/convert.h"
#include "values/dates.h"
#include "values/decimal.h"
#include "values/erro.h"
#include "values/format_date.h"
#include "values/numbers.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

template <class Number>
void AppendShortest(Number number, std::string& out) {
  std::array<char, 32> buffer{};
  out.append(buffer.data(), std::to_chars(buffer.data(), buffer.data() + buffer.size(), number).ptr);
}

template <class Number>
std::string Shortest(Number number) {
  std::string text;
  AppendShortest(number, text);
  return text;
}

// REQUIRES: 0 <= number <= 99, and room for two characters.
void PutTwoDigits(std::int32_t number, char* at) {
  at[0] = static_cast<char>('0' + number / 10);
  at[1] = static_cast<char>('0' + number % 10);
}

// The date in the calendar of automation dates; nothing for one outside it, which databases also hold.
std::optional<values::Calendar> CalendarOf(Date date) {
  try {
    return values::ToCalendar(date);
  } catch (const Erro&) {
    return std::nullopt;
  }
}

// The ISO form of a date outside the calendar, or the number of its days when it is not even a year that ISO writes.
std::string IsoDateOutsideCalendar(Date date) {
  constexpr double kMostDays = 4'000'000;  // some 11,000 years
  if (!(std::abs(date.days) < kMostDays)) return Shortest(date.days);
  std::wstring text = odbc::IsoDate(date);
  std::ranges::replace(text, L' ', L'T');
  return values::ToUtf8(text);
}

// Whether a column of that kind shows the time of day: all rows of a column of moments do, and a column of days only
// for a value that has one.
bool HasTime(const values::Calendar& date, ColumnKind kind) {
  return kind == ColumnKind::kMoment || date.hour != 0 || date.minute != 0 || date.second != 0;
}

std::wstring BrazilianDate(Date date, ColumnKind kind) {
  const std::optional<values::Calendar> calendar = CalendarOf(date);
  if (!calendar) return values::FromUtf8(IsoDateOutsideCalendar(date));
  constexpr std::size_t kDayLength = 10;
  char text[] = "00/00/0000 00:00:00";
  PutTwoDigits(calendar->day, text);
  PutTwoDigits(calendar->month, text + 3);
  PutTwoDigits(calendar->year / 100, text + 6);
  PutTwoDigits(calendar->year % 100, text + 8);
  PutTwoDigits(calendar->hour, text + 11);
  PutTwoDigits(calendar->minute, text + 14);
  PutTwoDigits(calendar->second, text + 17);
  return {text, text + (HasTime(*calendar, kind) ? sizeof text - 1 : kDayLength)};
}

void AppendIsoDate(Date date, ColumnKind kind, std::string& out) {
  const std::optional<values::Calendar> calendar = CalendarOf(date);
  if (!calendar) {
    out += IsoDateOutsideCalendar(date);
    return;
  }
  constexpr std::size_t kDayLength = 10;
  char text[] = "0000-00-00T00:00:00";
  PutTwoDigits(calendar->year / 100, text);
  PutTwoDigits(calendar->year % 100, text + 2);
  PutTwoDigits(calendar->month, text + 5);
  PutTwoDigits(calendar->day, text + 8);
  PutTwoDigits(calendar->hour, text + 11);
  PutTwoDigits(calendar->minute, text + 14);
  PutTwoDigits(calendar->second, text + 17);
  out.append(text, HasTime(*calendar, kind) ? sizeof text - 1 : kDayLength);
}

}  // namespace

std::optional<double> NumberIn(const Value& value) {
  if (value.Is<std::int32_t>()) return value.As<std::int32_t>();
  if (value.Is<std::int64_t>()) return static_cast<double>(value.As<std::int64_t>());
  if (value.Is<std::uint64_t>()) return static_cast<double>(value.As<std::uint64_t>());
  if (value.Is<float>()) {
    const std::optional<Value> number = values::ParseInvariantNumber(values::FromUtf8(Shortest(value.As<float>())));
    return number ? NumberIn(*number) : value.As<float>();
  }
  if (value.Is<double>()) return value.As<double>();
  if (value.Is<Currency>()) return values::ToDouble(values::ToDecimal(value.As<Currency>()));
  if (value.Is<Decimal>()) return values::ToDouble(value.As<Decimal>());
  return std::nullopt;
}

bool IsInCalendar(Date date) { return CalendarOf(date).has_value(); }

bool IsNothing(const Value& value) { return value.Is<Null>() || value.Is<Empty>(); }

std::string IsoText(const Value& value, ColumnKind kind) {
  std::string text;
  AppendIsoText(value, kind, text);
  return text;
}

void AppendIsoText(const Value& value, ColumnKind kind, std::string& out) {
  if (IsNothing(value)) return;
  if (value.Is<std::wstring>()) {
    values::AppendUtf8(value.As<std::wstring>(), out);
  } else if (value.Is<std::int32_t>()) {
    AppendShortest(value.As<std::int32_t>(), out);
  } else if (value.Is<Date>()) {
    AppendIsoDate(value.As<Date>(), kind, out);
  } else if (value.Is<bool>()) {
    out += value.As<bool>() ? "true" : "false";
  } else if (value.Is<std::int64_t>()) {
    AppendShortest(value.As<std::int64_t>(), out);
  } else if (value.Is<std::uint64_t>()) {
    AppendShortest(value.As<std::uint64_t>(), out);
  } else if (value.Is<float>()) {
    AppendShortest(value.As<float>(), out);
  } else if (value.Is<double>()) {
    AppendShortest(value.As<double>(), out);
  } else if (value.Is<Currency>()) {
    values::AppendUtf8(values::PlainText(values::ToDecimal(value.As<Currency>())), out);
  } else if (value.Is<Decimal>()) {
    values::AppendUtf8(values::PlainText(value.As<Decimal>()), out);
  } else {
    values::AppendUtf8(values::ToText(value), out);
  }
}

std::wstring BrazilianText(const Value& value, ColumnKind kind) {
  if (value.Is<bool>()) return value.As<bool>() ? L"Sim" : L"Não";
  if (value.Is<Date>()) return BrazilianDate(value.As<Date>(), kind);
  return values::ToTextOrEmpty(value);
}

std::wstring CountText(std::uint64_t count) {
  std::wstring digits = std::to_wstring(count);
  for (std::size_t at = digits.size(); at > 3;) digits.insert(at -= 3, 1, L'.');
  return digits;
}

}  // namespace kodra::console
