#include "sql/dialect.h"
#include "sql/oracle_forms.h"

namespace kodra::sql {
namespace {

class DB2Dialect final : public Dialect {
 public:
  // Oracle's arithmetic and conversions: DB2 offers them under the same names.
  void DateAdd(text::Writer& out, text::Piece interval, text::Piece number, text::Piece date) const override {
    oracle_forms::DateAdd(out, interval, number, date);
  }
  void ToDate(text::Writer& out, text::Piece text, std::int32_t layout) const override {
    oracle_forms::ToDate(out, text, layout);
  }
  bool HasDateLiterals() const override { return true; }
  void DateLiteral(text::Writer& out, const text::Calendar& date, std::int32_t layout) const override {
    oracle_forms::DateLiteral(out, date, layout);
  }
  void ToChar(text::Writer& out, text::Piece expr, text::Piece format) const override {
    oracle_forms::ToChar(out, expr, format);
  }
  text::Piece CurrentDate() const override { return L"CURRENT DATE"; }
  void ToInt(text::Writer& out, text::Piece expr) const override { out.Append(L"CAST(", expr, L" AS INT)"); }
  text::Piece ConcatSeparator() const override { return L" || "; }
  text::Piece NullReplacer() const override { return L"COALESCE"; }
  text::Piece DefaultDateType() const override { return L"TIMESTAMP"; }
};

}  // namespace

const Dialect& DB2() {
  static constexpr DB2Dialect dialect;
  return dialect;
}

}  // namespace kodra::sql
