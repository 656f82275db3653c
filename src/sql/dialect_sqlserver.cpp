#include "sql/char_format.h"
#include "sql/dialect.h"
#include "sql/interval.h"
#include "sql/tradutor_sql.h"
#include "text/dates.h"
#include "text/join.h"

namespace kodra::sql {
namespace {

class SQLServerDialect final : public Dialect {
 public:
  std::wstring DateAdd(std::wstring_view interval, std::wstring_view number, std::wstring_view date) const override {
    return text::Join({L"DATEADD(", DatePart(interval), L", ", number, L", ", date, L")"});
  }
  std::wstring_view CurrentDate() const override { return L"DATEADD(dd, 0, DATEDIFF(dd, 0, GETDATE()))"; }
  std::wstring ToDate(std::wstring_view text, std::int32_t layout) const override {
    const auto date = text::ParseDate(text);
    if (!date) return std::wstring(text);
    return DateLiteral(*date, layout);
  }
  bool HasDateLiterals() const override { return true; }
  std::wstring DateLiteral(platform::Date date, std::int32_t layout) const override {
    return text::FormatDate(date, layout == fdDateTime ? L"'yyyy-mm-dd\\Thh:nn:ss'" : L"'yyyymmdd'");
  }
  std::wstring ToInt(std::wstring_view expr) const override { return text::Join({L"CAST(", expr, L" AS INT)"}); }
  std::wstring ToChar(std::wstring_view expr, std::wstring_view format) const override {
    switch (CharFormatOf(format)) {
      // Ten characters of the date are all that the reports want of either format.
      case CharFormat::kDateAndHour:
      case CharFormat::kDate:
        return text::Join({L"CONVERT(CHAR(10),", expr, L",103)"});
      case CharFormat::kHour:
        return text::Join({L"CONVERT(CHAR(2),", expr, L",8)"});
      case CharFormat::kOther:
        break;
    }
    return text::Join({L"CONVERT(CHAR(0),", expr, L",)"});
  }
  std::wstring_view ConcatSeparator() const override { return L" + "; }
  std::wstring Concat(std::wstring joined) const override { return joined; }
  std::wstring_view NullReplacer() const override { return L"ISNULL"; }
  std::wstring_view DefaultDateType() const override { return L"DATETIME"; }

 private:
  static std::wstring_view DatePart(std::wstring_view interval) {
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
