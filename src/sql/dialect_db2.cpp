#include "sql/dialect.h"
#include "sql/oracle_forms.h"

namespace kodra::sql {
namespace {

class DB2Dialect final : public Dialect {
 public:
  // Oracle's arithmetic and conversions: DB2 offers them under the same names.
  void DateAdd(values::Writer& out, values::Piece interval, values::Piece number, values::Piece date) const override {
    oracle_forms::DateAdd(out, interval, number, date);
  }
  void ToDate(values::Writer& out, values::Piece text, std::int32_t layout) const override {
    oracle_forms::ToDate(out, text, layout);
  }
  bool HasDateLiterals() const override { return true; }
  void DateLiteral(values::Writer& out, const values::Calendar& date, std::int32_t layout) const override {
    oracle_forms::DateLiteral(out, date, layout);
  }
  void ToChar(values::Writer& out, values::Piece expr, values::Piece format) const override {
    oracle_forms::ToChar(out, expr, format);
  }
  values::Piece CurrentDate() const override { return L"CURRENT DATE"; }
  void ToInt(values::Writer& out, values::Piece expr) const override { out.Append(L"CAST(", expr, L" AS INT)"); }
  values::Piece ConcatSeparator() const override { return L" || "; }
  values::Piece NullReplacer() const override { return L"COALESCE"; }
  values::Piece DefaultDateType() const override { return L"TIMESTAMP"; }
};

}  // namespace

const Dialect& DB2() {
  static constexpr DB2Dialect dialect;
  return dialect;
}

}  // namespace kodra::sql
