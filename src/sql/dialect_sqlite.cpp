#include "sql/dialect.h"
#include "sql/interval.h"
#include "sql/tradutor_sql.h"
#include "text/join.h"

namespace kodra::sql {
namespace {

class SQLiteDialect final : public Dialect {
 public:
  std::wstring DateAdd(std::wstring_view interval, std::wstring_view number, std::wstring_view date) const override {
    switch (IntervalOf(interval)) {
      case Interval::kMinutes:
        return text::Join({L"datetime('", date, L"', '+", number, L" minutes')"});
      case Interval::kDays:
        return text::Join({L"date('", date, L"', '+", number, L" days')"});
      case Interval::kMonths:
        return text::Join({L"date('", date, L"', '+", number, L" months')"});
      case Interval::kYears:
        return text::Join({L"date('", date, L"', '+", number, L" years')"});
      case Interval::kOther:
        break;
    }
    return {};
  }
  std::wstring_view CurrentDate() const override { return L"date('now')"; }
  std::wstring ToDate(std::wstring_view text, std::int32_t layout) const override {
    switch (layout) {
      case fdDDMMYYYY:
        return text::Join({L"strftime('%d-%m-%Y',", text, L")"});
      case fdYYYYMMDD:
        return text::Join({L"strftime('%Y-%m-%d',", text, L")"});
      case fdDateTime:
        return text::Join({L"strftime('%Y-%m-%d %H:%M:%S',", text, L")"});
      default:
        return {};
    }
  }
  bool HasDateLiterals() const override { return false; }
  std::wstring DateLiteral(platform::Date, std::int32_t) const override { return {}; }
  std::wstring ToInt(std::wstring_view expr) const override { return text::Join({L"CAST(", expr, L" AS INT)"}); }
  // A report on SQLite gets no text for this fragment, whatever the format.
  std::wstring ToChar(std::wstring_view, std::wstring_view) const override { return {}; }
  std::wstring_view ConcatSeparator() const override { return L" || "; }
  std::wstring Concat(std::wstring joined) const override { return joined; }
  std::wstring_view NullReplacer() const override { return L"IFNULL"; }
  std::wstring_view DefaultDateType() const override { return L"DATETIME"; }
};

}  // namespace

const Dialect& SQLite() {
  static constexpr SQLiteDialect dialect;
  return dialect;
}

}  // namespace kodra::sql
