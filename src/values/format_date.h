// Dates as text.
#pragma once

#include <string>
#include <string_view>

#include "values/dates.h"

namespace kodra::values {

// A date written by a pattern. In any letter case: d dd day, m mm month, yy yyyy year (yyyy without zeros before it:
// automation writes the year 100 with three digits), h hh hour (24), n nn minute, s ss second; m and mm directly after
// the hour are minutes ("hh:mm:ss"). A backslash makes the next character literal. Every other character, digits and
// quotes among them, is copied: "yyyy-mm-dd 00:00:00" always reads midnight.
//   FormatDate(date, L"'yyyy-mm-dd\\Thh:nn:ss'")  returns  '2023-12-31T10:20:30'
std::wstring FormatDate(const Calendar& date, std::wstring_view pattern);
// The same for an automation date. Raises RuntimeError::kOverflow outside the calendar.
std::wstring FormatDate(Date date, std::wstring_view pattern);

// "31/12/2023", with a time of day "31/12/2023 10:20:30", day zero only its time "10:20:30". Raises
// RuntimeError::kOverflow outside the calendar.
std::wstring DateToText(Date date);

}  // namespace kodra::values
