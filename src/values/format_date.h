// Dates as text.
#pragma once

#include <utility>

#include "values/date_pattern.h"
#include "values/dates.h"
#include "values/writer.h"

namespace kodra::values {

// Writes a number of at most four digits, with zeros before it up to a width, and gives the end of it.
inline wchar_t* WriteNumber(wchar_t* end, std::int32_t number, std::size_t width) {
  const auto digit = [](std::int32_t value) { return static_cast<wchar_t>(L'0' + value); };
  const auto pair = [&](std::int32_t value) {
    *end++ = digit(value / 10);
    *end++ = digit(value % 10);
  };
  if (number >= 1000) {
    pair(number / 100);
    pair(number % 100);
    return end;
  }
  if (number >= 100) *end++ = digit(number / 100);
  if (number >= 10 || width > 1)
    pair(number % 100);
  else
    *end++ = digit(number);
  return end;
}

// Writes one field of a pattern, and gives the end of it.
inline wchar_t* WriteField(wchar_t* end, const DateField& field, const Calendar& date) {
  switch (field.part) {
    case DatePart::kNone:
      return std::copy(field.literal.begin(), field.literal.end(), end);
    case DatePart::kDay:
      return WriteNumber(end, date.day, field.digits);
    case DatePart::kMonth:
      return WriteNumber(end, date.month, field.digits);
    case DatePart::kYear:
      return WriteNumber(end, date.year, field.digits);
    case DatePart::kYearOfCentury:
      return WriteNumber(end, date.year % 100, field.digits);
    case DatePart::kHour:
      return WriteNumber(end, date.hour, field.digits);
    case DatePart::kMinute:
      return WriteNumber(end, date.minute, field.digits);
    case DatePart::kSecond:
      return WriteNumber(end, date.second, field.digits);
  }
  return end;
}

// A date written by a pattern. In any letter case: d dd day, m mm month, yy yyyy year (yyyy as it is: automation writes
// the year 100 with three digits), h hh hour (24), n nn minute, s ss second; m and mm directly after the hour are
// minutes ("hh:mm:ss"). A backslash makes the next character literal. Every other character, digits and quotes among
// them, stands for itself: "yyyy-mm-dd 00:00:00" always reads midnight.
//   DateBy<L"'yyyy-mm-dd\\Thh:nn:ss'">(date)  writes  '2023-12-31T10:20:30'
template <DatePattern kPattern>
class DateBy {
 public:
  // The date must live until it is written.
  explicit DateBy(const Calendar& date) : date_(date) {}

  void WriteTo(Writer& out) const {
    // One letter may write two digits.
    constexpr std::size_t kLongest = 2 * kPattern.View().size();
    out.AppendUpTo(kLongest, [&](wchar_t* end) {
      [&]<std::size_t... kIndex>(std::index_sequence<kIndex...>) {
        ((end = WriteField(end, kFields[kIndex], date_)), ...);
      }
      (std::make_index_sequence<kFields.size()>());
      return end;
    });
  }

 private:
  static constexpr auto kFields = FieldsOf<FieldCount(kPattern.View())>(kPattern.View());

  const Calendar& date_;
};

// "31/12/2023", with a time of day "31/12/2023 10:20:30", day zero only its time "10:20:30".
class DateAsText {
 public:
  // The date must live until it is written.
  explicit DateAsText(const Calendar& date) : date_(date) {}
  void WriteTo(Writer& out) const;

 private:
  const Calendar& date_;
};

// Both as a text of its own. Raise RuntimeError::kOverflow outside the calendar.
template <DatePattern kPattern>
std::wstring FormatDate(Date date) {
  return ToString(DateBy<kPattern>(ToCalendar(date)));
}
std::wstring DateToText(Date date);

}  // namespace kodra::values
