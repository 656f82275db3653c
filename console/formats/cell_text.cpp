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
#include "values/numbers.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

template <class Number>
std::string Shortest(Number number) {
  std::array<char, 32> buffer{};
  return {buffer.data(), std::to_chars(buffer.data(), buffer.data() + buffer.size(), number).ptr};
}

// A number of at least `width` digits, zeros before it.
std::string Digits(std::int32_t number, std::size_t width) {
  std::string digits = Shortest(number);
  if (digits.size() < width) digits.insert(0, width - digits.size(), '0');
  return digits;
}

std::string AllDigits(const Decimal& number) { return values::ToUtf8(values::PlainText(number)); }

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

std::string IsoDate(Date date, ColumnKind kind) {
  const std::optional<values::Calendar> calendar = CalendarOf(date);
  if (!calendar) return IsoDateOutsideCalendar(date);
  const values::Calendar& c = *calendar;
  std::string out = Digits(c.year, 4) + "-" + Digits(c.month, 2) + "-" + Digits(c.day, 2);
  const bool midnight = c.hour == 0 && c.minute == 0 && c.second == 0;
  if (midnight && kind != ColumnKind::kMoment) return out;
  return out + "T" + Digits(c.hour, 2) + ":" + Digits(c.minute, 2) + ":" + Digits(c.second, 2);
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
  if (IsNothing(value)) return {};
  if (value.Is<bool>()) return value.As<bool>() ? "true" : "false";
  if (value.Is<std::int32_t>()) return Shortest(value.As<std::int32_t>());
  if (value.Is<std::int64_t>()) return Shortest(value.As<std::int64_t>());
  if (value.Is<std::uint64_t>()) return Shortest(value.As<std::uint64_t>());
  if (value.Is<float>()) return Shortest(value.As<float>());
  if (value.Is<double>()) return Shortest(value.As<double>());
  if (value.Is<Currency>()) return AllDigits(values::ToDecimal(value.As<Currency>()));
  if (value.Is<Decimal>()) return AllDigits(value.As<Decimal>());
  if (value.Is<Date>()) return IsoDate(value.As<Date>(), kind);
  if (value.Is<std::wstring>()) return values::ToUtf8(value.As<std::wstring>());
  return values::ToUtf8(values::ToText(value));
}

std::wstring BrazilianText(const Value& value) {
  if (value.Is<bool>()) return value.As<bool>() ? L"Sim" : L"Não";
  if (value.Is<Date>() && !IsInCalendar(value.As<Date>()))
    return values::FromUtf8(IsoDateOutsideCalendar(value.As<Date>()));
  return values::ToTextOrEmpty(value);
}

std::wstring CountText(std::uint64_t count) {
  std::wstring digits = std::to_wstring(count);
  for (std::size_t at = digits.size(); at > 3;) digits.insert(at -= 3, 1, L'.');
  return digits;
}

}  // namespace kodra::console
