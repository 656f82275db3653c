#include "reports/statistics/production_filter.h"

#include "frame/parameter_reader.h"

namespace kodra::reports {

std::wstring ProductionFilter::Columns() const {
  std::wstring columns =
      operatorCode.empty() ? L"'Todos os Operadores' AS OPERADOR, " : L"o.DESCR_OPERADOR AS OPERADOR, ";
  columns += departmentCode.empty() ? L"'Todos os Departamentos' AS DEPTO, " : L"dp.DESCR_DEPTO AS DEPTO, ";
  return columns;
}

std::int32_t ProductionFilter::AddJoins(data::SelectBuilder& select, std::int32_t joins,
                                        const std::wstring& operatorColumn) const {
  using enum data::JoinKind;
  if (!operatorCode.empty()) select.AddJoin(joins++, kInner, L"OPERADOR o", operatorColumn + L" = o.COD_OPERADOR");
  if (!departmentCode.empty()) select.AddJoin(joins++, kInner, L"DEPTO dp", L"d.COD_DEPTO = dp.COD_DEPTO");
  return joins;
}

std::wstring ProductionFilter::Conditions(const std::wstring& operatorColumn) const {
  std::wstring conditions;
  if (!operatorCode.empty()) conditions += L" AND " + operatorColumn + L" = '" + operatorCode + L"'";
  if (!departmentCode.empty()) conditions += L" AND d.COD_DEPTO = '" + departmentCode + L"'";
  return conditions;
}

ProductionFilter ReadProductionFilter(AutomationObject& parameters) {
  std::wstring operatorCode = frame::ReadText(parameters, L"CodOperador");
  return {std::move(operatorCode), frame::ReadText(parameters, L"CodDepto")};
}

}  // namespace kodra::reports
