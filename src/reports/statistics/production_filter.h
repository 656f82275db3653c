// The optional operator and department of a production statistic.
#pragma once

#include <string>

#include "data/select_builder.h"
#include "platform/automation.h"

namespace kodra::reports {

struct ProductionFilter {
  // Codes; empty means all.
  std::wstring operatorCode;
  std::wstring departmentCode;

  // The columns OPERADOR and DEPTO, each the chosen one's description or "Todos os …", with a final ", ".
  std::wstring Columns() const;

  // Adds the joins and conditions of the chosen ones, from join position `joins` on; `operatorColumn` is the document's
  // column that the operator code is compared with. Gives the next free join position. A table is joined only where
  // Columns() refers to it.
  std::int32_t Apply(data::SelectBuilder& builder, std::int32_t joins, std::wstring_view operatorColumn) const;
};

// Reads CodOperador and CodDepto.
ProductionFilter ReadProductionFilter(platform::AutomationObject& parameters);

}  // namespace kodra::reports
