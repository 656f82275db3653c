#include "sql/dialect.h"
#include "sql/interval.h"
#include "sql/tradutor_sql.h"

namespace kodra::sql {
namespace {

class SQLiteDialect final : public Dialect {
 public:
  void DateAdd(values::Writer& out, values::Piece interval, values::Piece number, values::Piece date) const override {
    switch (IntervalOf(interval)) {
      case Interval::kMinutes:
        return out.Append(L"datetime('", date, L"', '+", number, L" minutes')");
      case Interval::kDays:
        return out.Append(L"date('", date, L"', '+", number, L" days')");
      case Interval::kMonths:
        return out.Append(L"date('", date, L"', '+", number, L" months')");
      case Interval::kYears:
        return out.Append(L"date('", date, L"', '+", number, L" years')");
      case Interval::kOther:
        break;
    }
  }
  values::Piece CurrentDate() const override { return L"date('now')"; }
  void ToDate(values::Writer& out, values::Piece text, std::int32_t layout) const override {
    switch (layout) {
      case fdDDMMYYYY:
        return out.Append(L"strftime('%d-%m-%Y',", text, L")");
      case fdYYYYMMDD:
        return out.Append(L"strftime('%Y-%m-%d',", text, L")");
      case fdDateTime:
        return out.Append(L"strftime('%Y-%m-%d %H:%M:%S',", text, L")");
      default:
        break;
    }
  }
  bool HasDateLiterals() const override { return false; }
  void DateLiteral(values::Writer&, const values::Calendar&, std::int32_t) const override {}
  void ToInt(values::Writer& out, values::Piece expr) const override { out.Append(L"CAST(", expr, L" AS INT)"); }
  // A report on SQLite gets no text for this fragment, whatever the format.
  void ToChar(values::Writer&, values::Piece, values::Piece) const override {}
  values::Piece ConcatSeparator() const override { return L" || "; }
  values::Piece NullReplacer() const override { return L"IFNULL"; }
  values::Piece DefaultDateType() const override { return L"DATETIME"; }
};

}  // namespace

const Dialect& SQLite() {
  static constexpr SQLiteDialect dialect;
  return dialect;
}

}  // namespace kodra::sql
