#include "reports/statistics/period.h"

#include "frame/parameter_reader.h"
#include "values/format_date.h"

namespace kodra::reports {

Period ReadPeriod(AutomationObject& parameters) {
  const Date first = frame::ReadDate(parameters, L"DataInicial");
  return {first, frame::ReadDate(parameters, L"DataFinal")};
}

std::wstring PeriodTitle(const Period& period) {
  return L"'Período: " + values::FormatDate(period.first, L"dd/mm/yyyy") + L" a " +
         values::FormatDate(period.last, L"dd/mm/yyyy") + L"'";
}

std::wstring Between(const std::wstring& column, const Period& period, std::int32_t layout,
                     const sql::Translator& sql) {
  return column + L" BETWEEN " + sql.ToDate(values::DateToText(period.first), layout) + L" AND " +
         sql.ToDate(values::DateToText(period.last), layout);
}

}  // namespace kodra::reports
