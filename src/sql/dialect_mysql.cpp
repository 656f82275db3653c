#include "sql/char_format.h"
#include "sql/dialect.h"
#include "sql/interval.h"
#include "sql/layouts.h"
#include "sql/quoted_date.h"
#include "values/dates.h"

namespace kodra::sql {
namespace {

// The pattern with which STR_TO_DATE reads an expression: without separators between the parts of the date.
std::wstring ExpressionPattern(std::int32_t layout) {
  switch (layout) {
    case fdYYYYMMDD:
      return L"%Y%m%d";
    case fdDateTime:
      return L"%Y%m%d %T";
    default:
      return L"%d%m%Y";
  }
}

// The pattern with which STR_TO_DATE reads our own date literals. An unknown layout has no pattern of its own.
std::wstring LiteralPattern(std::int32_t layout) {
  switch (layout) {
    case fdDDMMYYYY:
      return L"%d/%m/%Y";
    case fdYYYYMMDD:
      return L"%Y/%m/%d";
    case fdDateTime:
      return L"%Y/%m/%d %T";
    default:
      return L"%d%m%Y";
  }
}

std::wstring Unit(const std::wstring& interval) {
  switch (IntervalOf(interval)) {
    case Interval::kDays:
      return L"DAY";
    case Interval::kMonths:
      return L"MONTH";
    case Interval::kYears:
      return L"YEAR";
    case Interval::kMinutes:
    case Interval::kOther:
      break;
  }
  return interval;
}

std::wstring FormatPattern(const std::wstring& format) {
  switch (CharFormatOf(format)) {
    case CharFormat::kDateAndHour:
      return L"%d/%m/%Y %H:%i:%s";
    case CharFormat::kDate:
      return L"%d/%m/%Y";
    case CharFormat::kHour:
      return L"%H:%i:%s";
    case CharFormat::kOther:
      break;
  }
  return {};
}

class MySQLDialect final : public Dialect {
 public:
  std::wstring DateAdd(const std::wstring& interval, const std::wstring& number,
                       const std::wstring& date) const override {
    return L"DATE_ADD(" + date + L", INTERVAL " + number + L" " + Unit(interval) + L")";
  }
  std::wstring CurrentDate() const override { return L"CURDATE()"; }
  std::wstring ToDate(const std::wstring& text, std::int32_t layout) const override {
    if (!values::ParseDate(text)) return L"STR_TO_DATE(" + text + L",'" + ExpressionPattern(layout) + L"')";
    // When the layout is unknown, the date's own text is quoted.
    const std::wstring literal = QuotedDate(text, layout).value_or(L"'" + text + L"'");
    return L"STR_TO_DATE(" + literal + L",'" + LiteralPattern(layout) + L"')";
  }
  std::wstring ToInt(const std::wstring& expr) const override { return L"CAST(" + expr + L" AS UNSIGNED)"; }
  std::wstring ToChar(const std::wstring& expr, const std::wstring& format) const override {
    return L"DATE_FORMAT(" + expr + L",'" + FormatPattern(format) + L"')";
  }
  std::wstring ConcatSeparator() const override { return L","; }
  std::wstring ConcatOpening() const override { return L"CONCAT("; }
  std::wstring ConcatClosing() const override { return L")"; }
  std::wstring NullReplacer() const override { return L"IFNULL"; }
  std::wstring DefaultDateType() const override { return L"DATE"; }
  std::wstring FromOneRow() const override { return L""; }
};

}  // namespace

const Dialect& MySQL() {
  static constexpr MySQLDialect dialect;
  return dialect;
}

}  // namespace kodra::sql
