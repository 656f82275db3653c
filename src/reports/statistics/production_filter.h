// The optional operator and department of a production statistic.
#pragma once

#include <string>

#include "data/select_builder.h"
#include "values/automation.h"

namespace kodra::reports {

struct ProductionFilter {
  // Codes; empty means all.
  std::wstring operatorCode;
  std::wstring departmentCode;

  // The columns OPERADOR and DEPTO, each the chosen one's description or "Todos os …", with a final ", ".
  std::wstring Columns() const;

  // Adds the joins of the chosen ones, from join position `joins` on, and returns the next free position;
  // `operatorColumn` is the document's column that the operator code is compared with. A table is joined only where
  // the columns refer to it.
  std::int32_t AddJoins(data::SelectBuilder& select, std::int32_t joins, const std::wstring& operatorColumn) const;

  // The conditions of the chosen ones, to be appended to a condition.
  std::wstring Conditions(const std::wstring& operatorColumn) const;
};

// Reads CodOperador and CodDepto.
ProductionFilter ReadProductionFilter(AutomationObject& parameters);

}  // namespace kodra::reports
