// The common part of the statistics: their parameters and titles.
#pragma once

#include "tests/rows/cases.h"
#include "tests/rows/period.h"

namespace kodra::rows {

inline std::wstring TitleOf(const Period& period) {
  return L"Período: " + testbed::BrazilianDate(period.first) + L" a " + testbed::BrazilianDate(period.last);
}

// The parameters of a period, with others.
inline Properties In(const Period& period, Properties others = {}) {
  others.emplace_back(L"DataInicial", DateOf(period.first));
  others.emplace_back(L"DataFinal", DateOf(period.last));
  return others;
}

inline Period WholeArchive() { return {std::chrono::year(2010) / 1 / 1, std::chrono::year(2023) / 1 / 1}; }

// The periods of a report's cases.
struct NamedPeriod {
  const char* name;
  Period period;
};
inline std::vector<NamedPeriod> Periods() {
  return {{"OfTheWholeArchive", WholeArchive()},
          {"OfItsFirstHalf", StoredBetween(50, 250)},
          {"UpToADocumentOfMidnight", StoredBetween(200, kStoredAtMidnight)},
          {"UpToADocumentOfTheLastSecond", StoredBetween(200, kStoredInTheLastSecond)},
          {"FromAYearOnUpToADocumentOfMidnight",
           {std::chrono::year(2011) / 1 / 1, StoredBetween(0, kStoredAtMidnight).last}}};
}

// The person and the department whose rows are wanted; empty for all.
struct Producer {
  testbed::Text person = {};
  testbed::Text department = {};

  static bool Passes(const testbed::Text& filter, const testbed::MaybeText& code) {
    return filter.empty() || code == filter;
  }
  testbed::MaybeText PersonTitle() const {
    return person.empty() ? L"Todos os Operadores" : Find(&testbed::Operador::codOperador, person)->descrOperador;
  }
  testbed::MaybeText DepartmentTitle() const {
    return department.empty() ? L"Todos os Departamentos" : Find(&testbed::Depto::codDepto, department)->descrDepto;
  }
};

}  // namespace kodra::rows
