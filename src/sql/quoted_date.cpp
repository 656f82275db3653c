#include "sql/quoted_date.h"

#include "sql/tradutor_sql.h"
#include "values/format_date.h"

namespace kodra::sql {

bool HasQuotedDate(std::int32_t layout) noexcept { return layout >= fdDDMMYYYY && layout <= fdDateTime; }

void QuotedDate::WriteTo(values::Writer& out) const {
  switch (layout) {
    case fdDDMMYYYY:
      return out.Append(values::DateBy<L"'dd/mm/yyyy'">(date));
    case fdYYYYMMDD:
      return out.Append(values::DateBy<L"'yyyy/mm/dd'">(date));
    case fdDateTime:
      return out.Append(values::DateBy<L"'yyyy/mm/dd hh:nn:ss'">(date));
    default:
      break;
  }
}

}  // namespace kodra::sql
