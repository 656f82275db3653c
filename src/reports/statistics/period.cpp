#include "reports/statistics/period.h"

#include "frame/parameter_reader.h"
#include "sql/tradutor_sql.h"
#include "text/dates.h"
#include "text/join.h"

namespace kodra::reports {

std::wstring Period::Title() const {
  return text::Join(
      {L"'Período: ", text::FormatDate(first, L"dd/mm/yyyy"), L" a ", text::FormatDate(last, L"dd/mm/yyyy"), L"'"});
}

std::wstring Period::Between(std::wstring_view column, std::int32_t layout) const {
  return text::Join({column, L" BETWEEN ", sql::SQLToDate(first, layout), L" AND ", sql::SQLToDate(last, layout)});
}

Period ReadPeriod(platform::AutomationObject& parameters) {
  const platform::Date first = frame::ReadDate(parameters, L"DataInicial");
  return {first, frame::ReadDate(parameters, L"DataFinal")};
}

}  // namespace kodra::reports
