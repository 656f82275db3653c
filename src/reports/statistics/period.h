// The period of a statistic: the dates that a client chose, as a heading and as bounds.
#pragma once

#include <string>

#include "platform/automation.h"

namespace kodra::reports {

struct Period {
  platform::Date first;
  platform::Date last;

  // The heading as an SQL text literal: 'Período: dd/mm/yyyy a dd/mm/yyyy'.
  std::wstring Title() const;

  // "<column> BETWEEN <first> AND <last>", each bound by SQLToDate in `layout` from the date as Brazilian text. Dates
  // without time, both inclusive.
  std::wstring Between(std::wstring_view column, std::int32_t layout) const;
};

// Reads DataInicial and DataFinal.
Period ReadPeriod(platform::AutomationObject& parameters);

}  // namespace kodra::reports
