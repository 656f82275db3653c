// The period of a statistic: the dates that a client chose, as a heading and as bounds.
#pragma once

#include <string>

#include "sql/translator.h"
#include "values/automation.h"

namespace kodra::reports {

// Dates without time, both inclusive.
struct Period {
  Date first;
  Date last;
};

// Reads DataInicial and DataFinal.
Period ReadPeriod(AutomationObject& parameters);

// Both functions below raise RuntimeError::kOverflow for a date outside the calendar.

// The heading as an SQL text literal: 'Período: dd/mm/yyyy a dd/mm/yyyy'.
std::wstring PeriodTitle(const Period& period);
// "<column> BETWEEN <first> AND <last>", each bound translated in `layout` from the date as Brazilian text.
std::wstring Between(const std::wstring& column, const Period& period, std::int32_t layout, const sql::Translator& sql);

}  // namespace kodra::reports
