// Periods for the filtered reports.
#pragma once

#include "testbed/archive/generator.h"
#include "tests/rows/driver.h"
#include "tests/rows/sample.h"

namespace kodra::rows {

// The first and the last day.
struct Period {
  testbed::Day first, last;
};

// A date in the form in which a client sets it in a parameter object.
inline Value DateOf(testbed::Day day) { return Cell(day); }

// Whether a time is between the midnights that begin the first and the last day.
inline bool Within(const testbed::MaybeMoment& moment, const Period& period) {
  return moment && *moment >= period.first && *moment <= period.last;
}

// The documents whose day of storage ends a period: one was stored at midnight, the other in the last second of its
// day.
inline constexpr std::size_t kStoredAtMidnight = 300;
inline constexpr std::size_t kStoredInTheLastSecond = 301;

// The period between the days on which two documents were stored, by their positions.
inline Period StoredBetween(std::size_t first, std::size_t last) {
  const auto& documents = All<testbed::Documento>();
  return {DayOf(*documents[first].dtArmaz), DayOf(*documents[last].dtArmaz)};
}

}  // namespace kodra::rows
