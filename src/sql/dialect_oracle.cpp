#include "sql/dialect.h"
#include "sql/oracle_forms.h"

namespace kodra::sql {
namespace {

class OracleDialect final : public Dialect {
 public:
  void DateAdd(text::Writer& out, text::Piece interval, text::Piece number, text::Piece date) const override {
    oracle_forms::DateAdd(out, interval, number, date);
  }
  text::Piece CurrentDate() const override { return L"TRUNC(SYSDATE)"; }
  void ToDate(text::Writer& out, text::Piece text, std::int32_t layout) const override {
    oracle_forms::ToDate(out, text, layout);
  }
  bool HasDateLiterals() const override { return true; }
  void DateLiteral(text::Writer& out, const text::Calendar& date, std::int32_t layout) const override {
    oracle_forms::DateLiteral(out, date, layout);
  }
  void ToInt(text::Writer& out, text::Piece expr) const override { out.Append(L"TO_NUMBER(", expr, L")"); }
  void ToChar(text::Writer& out, text::Piece expr, text::Piece format) const override {
    oracle_forms::ToChar(out, expr, format);
  }
  text::Piece ConcatSeparator() const override { return L" || "; }
  text::Piece NullReplacer() const override { return L"NVL"; }
  text::Piece DefaultDateType() const override { return L"DATE"; }
};

}  // namespace

const Dialect& Oracle() {
  static constexpr OracleDialect dialect;
  return dialect;
}

}  // namespace kodra::sql
