#include "sql/char_format.h"
#include "sql/dialect.h"
#include "sql/interval.h"
#include "sql/tradutor_sql.h"
#include "text/dates.h"
#include "text/join.h"

namespace kodra::sql {
namespace {

// An expression is read by the compact pattern; a date becomes a literal, which is read by the separated one.
struct DateLayout {
  std::wstring_view expressionPattern;
  std::wstring_view literalPattern;
  std::wstring_view literalFormat;
};

DateLayout LayoutOf(std::int32_t layout) {
  switch (layout) {
    case fdDDMMYYYY:
      return {L"%d%m%Y", L"%d/%m/%Y", L"'dd/mm/yyyy'"};
    case fdYYYYMMDD:
      return {L"%Y%m%d", L"%Y/%m/%d", L"'yyyy/mm/dd'"};
    case fdDateTime:
      return {L"%Y%m%d %T", L"%Y/%m/%d %T", L"'yyyy/mm/dd hh:nn:ss'"};
    default:
      return {L"%d%m%Y", L"%d%m%Y", {}};
  }
}

class MySQLDialect final : public Dialect {
 public:
  std::wstring DateAdd(std::wstring_view interval, std::wstring_view number, std::wstring_view date) const override {
    return text::Join({L"DATE_ADD(", date, L", INTERVAL ", number, L" ", Unit(interval), L")"});
  }
  std::wstring_view CurrentDate() const override { return L"CURDATE()"; }
  std::wstring ToDate(std::wstring_view text, std::int32_t layout) const override {
    const DateLayout form = LayoutOf(layout);
    const auto date = text::ParseDate(text);
    if (!date) return text::Join({L"STR_TO_DATE(", text, L",'", form.expressionPattern, L"')"});
    if (!form.literalFormat.empty()) return DateLiteral(*date, layout);
    // An unknown layout has no format of its own: the date's text is quoted as it came.
    return text::Join({L"STR_TO_DATE('", text, L"','", form.literalPattern, L"')"});
  }
  bool HasDateLiterals() const override { return true; }
  std::wstring DateLiteral(platform::Date date, std::int32_t layout) const override {
    const DateLayout form = LayoutOf(layout);
    return text::Join({L"STR_TO_DATE(", text::FormatDate(date, form.literalFormat), L",'", form.literalPattern, L"')"});
  }
  std::wstring ToInt(std::wstring_view expr) const override { return text::Join({L"CAST(", expr, L" AS UNSIGNED)"}); }
  std::wstring ToChar(std::wstring_view expr, std::wstring_view format) const override {
    return text::Join({L"DATE_FORMAT(", expr, L",'", DatePattern(format), L"')"});
  }
  std::wstring_view ConcatSeparator() const override { return L","; }
  std::wstring Concat(std::wstring joined) const override {
    if (joined.empty()) return joined;
    return text::Join({L"CONCAT(", joined, L")"});
  }
  std::wstring_view NullReplacer() const override { return L"IFNULL"; }
  std::wstring_view DefaultDateType() const override { return L"DATE"; }

 private:
  static std::wstring_view Unit(std::wstring_view interval) {
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

  static std::wstring_view DatePattern(std::wstring_view format) {
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
