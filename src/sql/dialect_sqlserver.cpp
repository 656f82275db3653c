#include "sql/char_format.h"
#include "sql/dialect.h"
#include "sql/interval.h"
#include "sql/layouts.h"
#include "values/dates.h"
#include "values/format_date.h"

namespace kodra::sql {
namespace {

std::wstring DatePart(const std::wstring& interval) {
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

class SQLServerDialect final : public Dialect {
 public:
  std::wstring DateAdd(const std::wstring& interval, const std::wstring& number,
                       const std::wstring& date) const override {
    return L"DATEADD(" + DatePart(interval) + L", " + number + L", " + date + L")";
  }
  std::wstring CurrentDate() const override { return L"DATEADD(dd, 0, DATEDIFF(dd, 0, GETDATE()))"; }
  std::wstring ToDate(const std::wstring& text, std::int32_t layout) const override {
    const std::optional<Date> date = values::ParseDate(text);
    if (!date) return text;
    return values::FormatDate(*date, layout == fdDateTime ? L"'yyyy-mm-dd\\Thh:nn:ss'" : L"'yyyymmdd'");
  }
  std::wstring ToInt(const std::wstring& expr) const override { return L"CAST(" + expr + L" AS INT)"; }
  std::wstring ToChar(const std::wstring& expr, const std::wstring& format) const override {
    switch (CharFormatOf(format)) {
      // The reports use only the first ten characters of the date in either format.
      case CharFormat::kDateAndHour:
      case CharFormat::kDate:
        return L"CONVERT(CHAR(10)," + expr + L",103)";
      case CharFormat::kHour:
        return L"CONVERT(CHAR(2)," + expr + L",8)";
      case CharFormat::kOther:
        break;
    }
    return L"CONVERT(CHAR(0)," + expr + L",)";
  }
  std::wstring ConcatSeparator() const override { return L" + "; }
  std::wstring ConcatOpening() const override { return L""; }
  std::wstring ConcatClosing() const override { return L""; }
  std::wstring NullReplacer() const override { return L"ISNULL"; }
  std::wstring DefaultDateType() const override { return L"DATETIME"; }
  std::wstring FromOneRow() const override { return L""; }
};

}  // namespace

const Dialect& SQLServer() {
  static constexpr SQLServerDialect dialect;
  return dialect;
}

}  // namespace kodra::sql
