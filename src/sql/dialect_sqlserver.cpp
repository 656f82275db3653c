#include "sql/char_format.h"
#include "sql/dialect.h"
#include "sql/interval.h"
#include "sql/tradutor_sql.h"
#include "values/dates.h"
#include "values/format_date.h"

namespace kodra::sql {
namespace {

class SQLServerDialect final : public Dialect {
 public:
  void DateAdd(values::Writer& out, values::Piece interval, values::Piece number, values::Piece date) const override {
    out.Append(L"DATEADD(", DatePart(interval), L", ", number, L", ", date, L")");
  }
  values::Piece CurrentDate() const override { return L"DATEADD(dd, 0, DATEDIFF(dd, 0, GETDATE()))"; }
  void ToDate(values::Writer& out, values::Piece text, std::int32_t layout) const override {
    const auto date = values::ParseDate(text);
    if (!date) return out.Append(text);
    return DateLiteral(out, values::ToCalendar(*date), layout);
  }
  bool HasDateLiterals() const override { return true; }
  void DateLiteral(values::Writer& out, const values::Calendar& date, std::int32_t layout) const override {
    if (layout == fdDateTime) return out.Append(values::DateBy<L"'yyyy-mm-dd\\Thh:nn:ss'">(date));
    out.Append(values::DateBy<L"'yyyymmdd'">(date));
  }
  void ToInt(values::Writer& out, values::Piece expr) const override { out.Append(L"CAST(", expr, L" AS INT)"); }
  void ToChar(values::Writer& out, values::Piece expr, values::Piece format) const override {
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
  values::Piece ConcatSeparator() const override { return L" + "; }
  values::Piece NullReplacer() const override { return L"ISNULL"; }
  values::Piece DefaultDateType() const override { return L"DATETIME"; }

 private:
  static values::Piece DatePart(values::Piece interval) {
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
