#include "reports/statistics/production_filter.h"

#include "frame/parameter_reader.h"

namespace kodra::reports {

void ProductionFilter::AddColumns(data::SelectBuilder& builder) const {
  if (operatorCode.empty())
    builder.AddToColumns(L"'Todos os Operadores' AS OPERADOR, ");
  else
    builder.AddToColumns(L"o.DESCR_OPERADOR AS OPERADOR, ");
  if (departmentCode.empty())
    builder.AddToColumns(L"'Todos os Departamentos' AS DEPTO, ");
  else
    builder.AddToColumns(L"dp.DESCR_DEPTO AS DEPTO, ");
}

std::int32_t ProductionFilter::AddJoins(data::SelectBuilder& builder, std::int32_t joins,
                                        std::wstring_view operatorColumn) const {
  if (!operatorCode.empty())
    builder.AddJoin(joins++, data::JoinKind::kInner, L"OPERADOR o", operatorColumn, L" = o.COD_OPERADOR");
  if (!departmentCode.empty())
    builder.AddJoin(joins++, data::JoinKind::kInner, L"DEPTO dp", L"d.COD_DEPTO = dp.COD_DEPTO");
  return joins;
}

void ProductionFilter::AddConditions(data::SelectBuilder& builder, std::wstring_view operatorColumn) const {
  if (!operatorCode.empty()) builder.AddToWhere(L" AND ", operatorColumn, L" = '", operatorCode, L"'");
  if (!departmentCode.empty()) builder.AddToWhere(L" AND d.COD_DEPTO = '", departmentCode, L"'");
}

ProductionFilter ReadProductionFilter(AutomationObject& parameters) {
  std::wstring operatorCode = frame::ReadText(parameters, L"CodOperador");
  return {std::move(operatorCode), frame::ReadText(parameters, L"CodDepto")};
}

}  // namespace kodra::reports
