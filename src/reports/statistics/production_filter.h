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

  // Adds the columns OPERADOR and DEPTO, each the chosen one's description or "Todos os …", with a final ", ".
  void AddColumns(data::SelectBuilder& builder) const;

  // Adds the joins of the chosen ones, from join position `joins` on, and gives the next free position;
  // `operatorColumn` is the document's column that the operator code is compared with. A table is joined only where
  // the columns refer to it.
  std::int32_t AddJoins(data::SelectBuilder& builder, std::int32_t joins, std::wstring_view operatorColumn) const;

  // Adds the conditions of the chosen ones behind a condition.
  void AddConditions(data::SelectBuilder& builder, std::wstring_view operatorColumn) const;
};

// Reads CodOperador and CodDepto.
ProductionFilter ReadProductionFilter(AutomationObject& parameters);

}  // namespace kodra::reports
