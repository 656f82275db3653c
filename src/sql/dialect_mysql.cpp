#include "sql/char_format.h"
#include "sql/dialect.h"
#include "sql/interval.h"
#include "sql/quoted_date.h"
#include "sql/tradutor_sql.h"
#include "text/dates.h"

namespace kodra::sql {
namespace {

// An expression is read by the compact pattern; a date becomes a literal, which is read by the separated one.
struct DateLayout {
  text::Piece expressionPattern;
  text::Piece literalPattern;
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
  void DateAdd(text::Writer& out, text::Piece interval, text::Piece number, text::Piece date) const override {
    out.Append(L"DATE_ADD(", date, L", INTERVAL ", number, L" ", Unit(interval), L")");
  }
  text::Piece CurrentDate() const override { return L"CURDATE()"; }
  void ToDate(text::Writer& out, text::Piece text, std::int32_t layout) const override {
    const DateLayout form = LayoutOf(layout);
    const auto date = text::ParseDate(text);
    if (!date) return out.Append(L"STR_TO_DATE(", text, L",'", form.expressionPattern, L"')");
    if (HasQuotedDate(layout)) return DateLiteral(out, text::ToCalendar(*date), layout);
    // An unknown layout has no format of its own: the date's text is quoted as it came.
    out.Append(L"STR_TO_DATE('", text, L"','", form.literalPattern, L"')");
  }
  bool HasDateLiterals() const override { return true; }
  void DateLiteral(text::Writer& out, const text::Calendar& date, std::int32_t layout) const override {
    out.Append(L"STR_TO_DATE(", QuotedDate{date, layout}, L",'", LayoutOf(layout).literalPattern, L"')");
  }
  void ToInt(text::Writer& out, text::Piece expr) const override { out.Append(L"CAST(", expr, L" AS UNSIGNED)"); }
  void ToChar(text::Writer& out, text::Piece expr, text::Piece format) const override {
    out.Append(L"DATE_FORMAT(", expr, L",'", PatternOf(format), L"')");
  }
  text::Piece ConcatSeparator() const override { return L","; }
  text::Piece ConcatOpening() const override { return L"CONCAT("; }
  text::Piece ConcatClosing() const override { return L")"; }
  text::Piece NullReplacer() const override { return L"IFNULL"; }
  text::Piece DefaultDateType() const override { return L"DATE"; }

 private:
  static text::Piece Unit(text::Piece interval) {
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

  static text::Piece PatternOf(text::Piece format) {
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
