#include "sql/dialect.h"
#include "sql/interval.h"
#include "sql/layouts.h"

namespace kodra::sql {
namespace {

class SQLiteDialect final : public Dialect {
 public:
  std::wstring DateAdd(const std::wstring& interval, const std::wstring& number,
                       const std::wstring& date) const override {
    switch (IntervalOf(interval)) {
      case Interval::kMinutes:
        return L"datetime('" + date + L"', '+" + number + L" minutes')";
      case Interval::kDays:
        return L"date('" + date + L"', '+" + number + L" days')";
      case Interval::kMonths:
        return L"date('" + date + L"', '+" + number + L" months')";
      case Interval::kYears:
        return L"date('" + date + L"', '+" + number + L" years')";
      case Interval::kOther:
        break;
    }
    return {};
  }
  std::wstring CurrentDate() const override { return L"date('now')"; }
  std::wstring ToDate(const std::wstring& text, std::int32_t layout) const override {
    switch (layout) {
      case fdDDMMYYYY:
        return L"strftime('%d-%m-%Y'," + text + L")";
      case fdYYYYMMDD:
        return L"strftime('%Y-%m-%d'," + text + L")";
      case fdDateTime:
        return L"strftime('%Y-%m-%d %H:%M:%S'," + text + L")";
      default:
        return {};
    }
  }
  std::wstring ToInt(const std::wstring& expr) const override { return L"CAST(" + expr + L" AS INT)"; }
  // Reports on SQLite get the empty text for this fragment, whatever the format.
  std::wstring ToChar(const std::wstring&, const std::wstring&) const override { return {}; }
  std::wstring ConcatSeparator() const override { return L" || "; }
  std::wstring ConcatOpening() const override { return L""; }
  std::wstring ConcatClosing() const override { return L""; }
  std::wstring NullReplacer() const override { return L"IFNULL"; }
  std::wstring DefaultDateType() const override { return L"DATETIME"; }
  std::wstring FromOneRow() const override { return L""; }
};

}  // namespace

const Dialect& SQLite() {
  static constexpr SQLiteDialect dialect;
  return dialect;
}

}  // namespace kodra::sql
