#include "sql/oracle_forms.h"

#include "sql/interval.h"
#include "sql/layouts.h"
#include "sql/quoted_date.h"

namespace kodra::sql::oracle_forms {
namespace {

// The pattern of a layout; empty for an unknown layout.
std::wstring PatternOf(std::int32_t layout) {
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

std::wstring DateAdd(const std::wstring& interval, const std::wstring& number, const std::wstring& date) {
  switch (IntervalOf(interval)) {
    case Interval::kMinutes:
      return date + L" + " + number + L" / 1440";
    case Interval::kDays:
      return date + L" + " + number;
    case Interval::kMonths:
      return L"ADD_MONTHS(" + date + L", " + number + L")";
    case Interval::kYears:
      return L"ADD_MONTHS(" + date + L", " + number + L" * 12)";
    case Interval::kOther:
      break;
  }
  return {};
}

std::wstring ToDate(const std::wstring& text, std::int32_t layout) {
  return L"TO_DATE(" + QuotedDate(text, layout).value_or(text) + L",'" + PatternOf(layout) + L"')";
}

std::wstring ToChar(const std::wstring& expr, const std::wstring& format) {
  return L"TO_CHAR(" + expr + L",'" + format + L"')";
}

}  // namespace kodra::sql::oracle_forms
