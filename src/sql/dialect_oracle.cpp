#include "sql/dialect.h"
#include "sql/oracle_forms.h"

namespace kodra::sql {
namespace {

class OracleDialect final : public Dialect {
 public:
  void DateAdd(values::Writer& out, values::Piece interval, values::Piece number, values::Piece date) const override {
    oracle_forms::DateAdd(out, interval, number, date);
  }
  values::Piece CurrentDate() const override { return L"TRUNC(SYSDATE)"; }
  void ToDate(values::Writer& out, values::Piece text, std::int32_t layout) const override {
    oracle_forms::ToDate(out, text, layout);
  }
  bool HasDateLiterals() const override { return true; }
  void DateLiteral(values::Writer& out, const values::Calendar& date, std::int32_t layout) const override {
    oracle_forms::DateLiteral(out, date, layout);
  }
  void ToInt(values::Writer& out, values::Piece expr) const override { out.Append(L"TO_NUMBER(", expr, L")"); }
  void ToChar(values::Writer& out, values::Piece expr, values::Piece format) const override {
    oracle_forms::ToChar(out, expr, format);
  }
  values::Piece ConcatSeparator() const override { return L" || "; }
  values::Piece NullReplacer() const override { return L"NVL"; }
  values::Piece DefaultDateType() const override { return L"DATE"; }
};

}  // namespace

const Dialect& Oracle() {
  static constexpr OracleDialect dialect;
  return dialect;
}

}  // namespace kodra::sql
