// The parts of automation dates, and the one text form that dates have in databases without a date type.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "values/value.h"

namespace kodra::odbc {

struct CivilTime {
  std::int32_t year = 1899;
  std::int32_t month = 12;
  std::int32_t day = 30;
  std::int32_t hour = 0;
  std::int32_t minute = 0;
  std::int32_t second = 0;
  std::int32_t millisecond = 0;
  bool operator==(const CivilTime&) const = default;
};

// Whether its day is one of the Gregorian calendar.
bool IsDay(const CivilTime& time);
// REQUIRES: IsDay(time).
Date DateOf(const CivilTime& time);
// To the nearest millisecond.
CivilTime CivilOf(Date date);

// Reads "YYYY-MM-DD", "HH:MM:SS", or both with a blank or "T" between; ":SS" and a fraction of a second may be absent.
// Returns nothing for any other text and for a day that does not exist.
std::optional<Date> ParseIsoDate(std::wstring_view text);
// "YYYY-MM-DD", with " HH:MM:SS" when the time of day is not midnight, and ".mmm" when it is not a whole second.
std::wstring IsoDate(Date date);
// The same of parts that need not be a date: "2024-05-00".
std::wstring IsoText(const CivilTime& time);

}  // namespace kodra::odbc
