#include "sql/quoted_date.h"

#include "sql/layouts.h"
#include "values/dates.h"
#include "values/format_date.h"

namespace kodra::sql {

std::optional<std::wstring> QuotedDate(const std::wstring& text, std::int32_t layout) {
  const std::optional<Date> date = values::ParseDate(text);
  if (!date) return std::nullopt;
  switch (layout) {
    case fdDDMMYYYY:
      return values::FormatDate(*date, L"'dd/mm/yyyy'");
    case fdYYYYMMDD:
      return values::FormatDate(*date, L"'yyyy/mm/dd'");
    case fdDateTime:
      return values::FormatDate(*date, L"'yyyy/mm/dd hh:nn:ss'");
    default:
      return std::nullopt;
  }
}

}  // namespace kodra::sql
