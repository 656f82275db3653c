#include "sql/oracle_forms.h"

#include "sql/interval.h"
#include "sql/quoted_date.h"
#include "sql/tradutor_sql.h"
#include "values/dates.h"

namespace kodra::sql::oracle_forms {
namespace {

// The pattern of a layout; empty for a layout that is not known.
values::Piece PatternOf(std::int32_t layout) {
  switch (layout) {
    case fdDDMMYYYY:
      return L"DD/MM/YYYY";
    case fdYYYYMMDD:
      return L"YYYY/MM/DD";
    case fdDateTime:
      return L"YYYY/MM/DD HH24:MI:SS";
    default:
      return {};
  }
}

}  // namespace

void DateAdd(values::Writer& out, values::Piece interval, values::Piece number, values::Piece date) {
  switch (IntervalOf(interval)) {
    case Interval::kMinutes:
      return out.Append(date, L" + ", number, L" / 1440");
    case Interval::kDays:
      return out.Append(date, L" + ", number);
    case Interval::kMonths:
      return out.Append(L"ADD_MONTHS(", date, L", ", number, L")");
    case Interval::kYears:
      return out.Append(L"ADD_MONTHS(", date, L", ", number, L" * 12)");
    case Interval::kOther:
      break;
  }
}

void ToDate(values::Writer& out, values::Piece text, std::int32_t layout) {
  const values::Piece pattern = PatternOf(layout);
  if (!pattern.empty()) {
    if (const auto date = values::ParseDate(text)) return DateLiteral(out, values::ToCalendar(*date), layout);
  }
  out.Append(L"TO_DATE(", text, L",'", pattern, L"')");
}

void DateLiteral(values::Writer& out, const values::Calendar& date, std::int32_t layout) {
  out.Append(L"TO_DATE(", QuotedDate{date, layout}, L",'", PatternOf(layout), L"')");
}

void ToChar(values::Writer& out, values::Piece expr, values::Piece format) {
  out.Append(L"TO_CHAR(", expr, L",'", format, L"')");
}

}  // namespace kodra::sql::oracle_forms
