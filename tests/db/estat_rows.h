// What the tests of statistics share: a period of the sample archive, and its titles.
#pragma once

#include <optional>

#include "db/reports_on.h"
#include "demo/generator.h"

namespace kodra::tests {

inline support::demo::Day DayOf(const support::demo::MaybeMoment& moment) {
  return std::chrono::floor<std::chrono::days>(*moment);
}

inline std::wstring Title(const Period& period) {
  return L"Período: " + support::demo::BrazilianDate(period.first) + L" a " + support::demo::BrazilianDate(period.last);
}

// From the day of one document to that of another, by their numbers. Document 300 is stored at midnight, 301 in the
// last second of its day.
inline Period StoredBetween(std::size_t first, std::size_t last) {
  const auto& documents = Reports::All<support::demo::Documento>();
  return {DayOf(documents[first].dtArmaz), DayOf(documents[last].dtArmaz)};
}

// Whether a moment lies between the midnights that begin the first and the last day.
inline bool Within(const support::demo::MaybeMoment& moment, const Period& period) {
  return moment && *moment >= period.first && *moment <= period.last;
}

}  // namespace kodra::tests
