// Dates as the system writes and reads them: Brazilian Portuguese, day before month, 24 hours.
//
// An automation date counts days from 30 December 1899. Before that day the count is negative while the time of day
// still runs forward, so -1.25 is 29 December 1899 at six in the morning. The calendar reaches from the year 100 to
// 9999. Every function here may be called on any thread and none depends on the host's locale.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "values/value.h"

namespace kodra::values {

// The numbers of 1 January 100 and of 31 December 9999, the first and the last day of the calendar.
inline constexpr std::int32_t kFirstDay = -657434;
inline constexpr std::int32_t kLastDay = 2958465;

// A date split into its parts, to the second.
struct Calendar {
  std::int32_t year = 1899;
  std::int32_t month = 12;
  std::int32_t day = 30;
  std::int32_t hour = 0;
  std::int32_t minute = 0;
  std::int32_t second = 0;
  bool operator==(const Calendar&) const = default;
};

// Whether the day exists: year 100 to 9999, month 1 to 12, day within its month.
bool IsDay(std::int32_t year, std::int32_t month, std::int32_t day) noexcept;

// A day of the Gregorian calendar, of any year; IsCivilDay() tells whether it exists.
struct CivilDay {
  std::int32_t year;
  std::int32_t month;
  std::int32_t day;
};

bool IsCivilDay(CivilDay day) noexcept;

// The number of a day, counted from 30 December 1899, and the day of a number. REQUIRES: the day exists.
std::int32_t DayNumber(CivilDay day) noexcept;
CivilDay DayOfNumber(std::int32_t number) noexcept;

// The date of a day number and a time of day, as a fraction of a day from 0 to below 1.
Date FromDayAndTime(std::int32_t dayNumber, double time) noexcept;

// REQUIRES: IsDay(year, month, day), hour 0 to 23, minute and second 0 to 59.
Date FromCalendar(const Calendar& calendar);

// The date rounded to the second. Raises RuntimeError::kOverflow outside the calendar.
Calendar ToCalendar(Date date);

// Today by the local clock, without time.
Date Today();

// Today and the time of day by the local clock, to the second.
Date Now();

// Reads a text as a date, as OLE Automation does for Brazilian Portuguese; returns nothing when it is not a date.
//
// A date consists of numbers and at most one month name, separated by "/", "-", "," or blanks. A time consists of two
// or three numbers separated by ":" or ".", or of an hour followed by "am" or "pm". The text contains a date, a time or
// both, in either order.
//   31/12/2023   2023-12-31 10:20:30   10:20   1 jan 2023   31/12
// Numbers that are no day in day/month/year order are tried in other orders ("12/31/2023" and "2023/12/31" are both the
// last day of 2023). A year below 30 is in the 2000s, one from 30 to 99 in the 1900s; without a year, the current one
// is meant; without a day, the first. So "10,5" is 10 May and "10.5" five minutes past ten, but "10" is no date.
std::optional<Date> ParseDate(std::wstring_view text);

// The same, with the year to use for a text that has none.
std::optional<Date> ParseDate(std::wstring_view text, std::int32_t currentYear);

}  // namespace kodra::values
