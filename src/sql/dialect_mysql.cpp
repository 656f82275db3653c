#include "sql/char_format.h"
#include "sql/dialect.h"
#include "sql/interval.h"
#include "sql/quoted_date.h"
#include "sql/tradutor_sql.h"
#include "values/dates.h"

namespace kodra::sql {
namespace {

// An expression is read by the compact pattern; a date becomes a literal, which is read by the separated one.
struct DateLayout {
  values::Piece expressionPattern;
  values::Piece literalPattern;
};

DateLayout LayoutOf(std::int32_t layout) {
  switch (layout) {
    case fdDDMMYYYY:
      return {L"%d%m%Y", L"%d/%m/%Y"};
    case fdYYYYMMDD:
      return {L"%Y%m%d", L"%Y/%m/%d"};
    case fdDateTime:
      return {L"%Y%m%d %T", L"%Y/%m/%d %T"};
    default:
      return {L"%d%m%Y", L"%d%m%Y"};
  }
}

class MySQLDialect final : public Dialect {
 public:
  void DateAdd(values::Writer& out, values::Piece interval, values::Piece number, values::Piece date) const override {
    out.Append(L"DATE_ADD(", date, L", INTERVAL ", number, L" ", Unit(interval), L")");
  }
  values::Piece CurrentDate() const override { return L"CURDATE()"; }
  void ToDate(values::Writer& out, values::Piece text, std::int32_t layout) const override {
    const DateLayout form = LayoutOf(layout);
    const auto date = values::ParseDate(text);
    if (!date) return out.Append(L"STR_TO_DATE(", text, L",'", form.expressionPattern, L"')");
    if (HasQuotedDate(layout)) return DateLiteral(out, values::ToCalendar(*date), layout);
    // An unknown layout has no format of its own: the date's text is quoted as it came.
    out.Append(L"STR_TO_DATE('", text, L"','", form.literalPattern, L"')");
  }
  bool HasDateLiterals() const override { return true; }
  void DateLiteral(values::Writer& out, const values::Calendar& date, std::int32_t layout) const override {
    out.Append(L"STR_TO_DATE(", QuotedDate{date, layout}, L",'", LayoutOf(layout).literalPattern, L"')");
  }
  void ToInt(values::Writer& out, values::Piece expr) const override { out.Append(L"CAST(", expr, L" AS UNSIGNED)"); }
  void ToChar(values::Writer& out, values::Piece expr, values::Piece format) const override {
    out.Append(L"DATE_FORMAT(", expr, L",'", PatternOf(format), L"')");
  }
  values::Piece ConcatSeparator() const override { return L","; }
  values::Piece ConcatOpening() const override { return L"CONCAT("; }
  values::Piece ConcatClosing() const override { return L")"; }
  values::Piece NullReplacer() const override { return L"IFNULL"; }
  values::Piece DefaultDateType() const override { return L"DATE"; }

 private:
  static values::Piece Unit(values::Piece interval) {
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

  static values::Piece PatternOf(values::Piece format) {
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
};

}  // namespace

const Dialect& MySQL() {
  static constexpr MySQLDialect dialect;
  return dialect;
}

}  // namespace kodra::sql
