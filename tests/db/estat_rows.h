// What the tests of statistics share: a period of the sample archive, and its titles.
#pragma once

#include <optional>

#include "testbed/archive/generator.h"
#include "tests/db/reports_on.h"

namespace kodra::tests {

inline testbed::Day DayOf(const testbed::MaybeMoment& moment) { return std::chrono::floor<std::chrono::days>(*moment); }

inline std::wstring Title(const Period& period) {
  return L"Período: " + testbed::BrazilianDate(period.first) + L" a " + testbed::BrazilianDate(period.last);
}

// From the day of one document to that of another, by their numbers. Document 300 is stored at midnight, 301 in the
// last second of its day.
inline Period StoredBetween(std::size_t first, std::size_t last) {
  const auto& documents = Reports::All<testbed::Documento>();
  return {DayOf(documents[first].dtArmaz), DayOf(documents[last].dtArmaz)};
}

// Whether a moment lies between the midnights that begin the first and the last day.
inline bool Within(const testbed::MaybeMoment& moment, const Period& period) {
  return moment && *moment >= period.first && *moment <= period.last;
}

}  // namespace kodra::tests
