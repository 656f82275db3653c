#include "reports/statistics/production_filter.h"

#include "frame/parameter_reader.h"

namespace kodra::reports {

std::wstring ProductionFilter::Columns() const {
  return std::wstring(operatorCode.empty() ? L"'Todos os Operadores'" : L"o.DESCR_OPERADOR") + L" AS OPERADOR, " +
         (departmentCode.empty() ? L"'Todos os Departamentos'" : L"dp.DESCR_DEPTO") + L" AS DEPTO, ";
}

std::int32_t ProductionFilter::Apply(data::SelectBuilder& builder, std::int32_t joins,
                                     std::wstring_view operatorColumn) const {
  if (!operatorCode.empty()) {
    const std::wstring column(operatorColumn);
    builder.AddJoin(joins++, data::JoinKind::kInner, L"OPERADOR o", column + L" = o.COD_OPERADOR");
    builder.SetWhere(builder.Where() + L" AND " + column + L" = '" + operatorCode + L"'");
  }
  if (!departmentCode.empty()) {
    builder.AddJoin(joins++, data::JoinKind::kInner, L"DEPTO dp", L"d.COD_DEPTO = dp.COD_DEPTO");
    builder.SetWhere(builder.Where() + L" AND d.COD_DEPTO = '" + departmentCode + L"'");
  }
  return joins;
}

ProductionFilter ReadProductionFilter(platform::AutomationObject& parameters) {
  std::wstring operatorCode = frame::ReadText(parameters, L"CodOperador");
  return {std::move(operatorCode), frame::ReadText(parameters, L"CodDepto")};
}

}  // namespace kodra::reports
