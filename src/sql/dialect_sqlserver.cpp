#include "sql/char_format.h"
#include "sql/dialect.h"
#include "sql/interval.h"
#include "sql/tradutor_sql.h"
#include "text/dates.h"
#include "text/format_date.h"

namespace kodra::sql {
namespace {

class SQLServerDialect final : public Dialect {
 public:
  void DateAdd(text::Writer& out, text::Piece interval, text::Piece number, text::Piece date) const override {
    out.Append(L"DATEADD(", DatePart(interval), L", ", number, L", ", date, L")");
  }
  text::Piece CurrentDate() const override { return L"DATEADD(dd, 0, DATEDIFF(dd, 0, GETDATE()))"; }
  void ToDate(text::Writer& out, text::Piece text, std::int32_t layout) const override {
    const auto date = text::ParseDate(text);
    if (!date) return out.Append(text);
    return DateLiteral(out, text::ToCalendar(*date), layout);
  }
  bool HasDateLiterals() const override { return true; }
  void DateLiteral(text::Writer& out, const text::Calendar& date, std::int32_t layout) const override {
    if (layout == fdDateTime) return out.Append(text::DateBy<L"'yyyy-mm-dd\\Thh:nn:ss'">(date));
    out.Append(text::DateBy<L"'yyyymmdd'">(date));
  }
  void ToInt(text::Writer& out, text::Piece expr) const override { out.Append(L"CAST(", expr, L" AS INT)"); }
  void ToChar(text::Writer& out, text::Piece expr, text::Piece format) const override {
    switch (CharFormatOf(format)) {
      // Ten characters of the date are all that the reports want of either format.
      case CharFormat::kDateAndHour:
      case CharFormat::kDate:
        return out.Append(L"CONVERT(CHAR(10),", expr, L",103)");
      case CharFormat::kHour:
        return out.Append(L"CONVERT(CHAR(2),", expr, L",8)");
      case CharFormat::kOther:
        break;
    }
    out.Append(L"CONVERT(CHAR(0),", expr, L",)");
  }
  text::Piece ConcatSeparator() const override { return L" + "; }
  text::Piece NullReplacer() const override { return L"ISNULL"; }
  text::Piece DefaultDateType() const override { return L"DATETIME"; }

 private:
  static text::Piece DatePart(text::Piece interval) {
    switch (IntervalOf(interval)) {
      case Interval::kDays:
        return L"dd";
      case Interval::kMonths:
        return L"mm";
      case Interval::kYears:
        return L"yyyy";
      case Interval::kMinutes:
      case Interval::kOther:
        break;
    }
    return interval;
  }
};

}  // namespace

const Dialect& SQLServer() {
  static constexpr SQLServerDialect dialect;
  return dialect;
}

}  // namespace kodra::sql
