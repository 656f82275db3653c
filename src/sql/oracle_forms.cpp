#include "sql/oracle_forms.h"

#include "sql/interval.h"
#include "sql/tradutor_sql.h"
#include "text/dates.h"
#include "text/join.h"

namespace kodra::sql::oracle_forms {
namespace {

struct DateLayout {
  std::wstring_view databasePattern;
  std::wstring_view literalPattern;
};

DateLayout LayoutOf(std::int32_t layout) {
  switch (layout) {
    case fdDDMMYYYY:
      return {L"DD/MM/YYYY", L"'dd/mm/yyyy'"};
    case fdYYYYMMDD:
      return {L"YYYY/MM/DD", L"'yyyy/mm/dd'"};
    case fdDateTime:
      return {L"YYYY/MM/DD HH24:MI:SS", L"'yyyy/mm/dd hh:nn:ss'"};
    default:
      return {};
  }
}

}  // namespace

std::wstring DateAdd(std::wstring_view interval, std::wstring_view number, std::wstring_view date) {
  switch (IntervalOf(interval)) {
    case Interval::kMinutes:
      return text::Join({date, L" + ", number, L" / 1440"});
    case Interval::kDays:
      return text::Join({date, L" + ", number});
    case Interval::kMonths:
      return text::Join({L"ADD_MONTHS(", date, L", ", number, L")"});
    case Interval::kYears:
      return text::Join({L"ADD_MONTHS(", date, L", ", number, L" * 12)"});
    case Interval::kOther:
      break;
  }
  return {};
}

std::wstring ToDate(std::wstring_view text, std::int32_t layout) {
  const auto [databasePattern, literalPattern] = LayoutOf(layout);
  if (!literalPattern.empty()) {
    if (const auto date = text::ParseDate(text)) return DateLiteral(*date, layout);
  }
  return text::Join({L"TO_DATE(", text, L",'", databasePattern, L"')"});
}

std::wstring DateLiteral(platform::Date date, std::int32_t layout) {
  const auto [databasePattern, literalPattern] = LayoutOf(layout);
  return text::Join({L"TO_DATE(", text::FormatDate(date, literalPattern), L",'", databasePattern, L"')"});
}

std::wstring ToChar(std::wstring_view expr, std::wstring_view format) {
  return text::Join({L"TO_CHAR(", expr, L",'", format, L"')"});
}

}  // namespace kodra::sql::oracle_forms
