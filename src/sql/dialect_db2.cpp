#include "sql/dialect.h"
#include "sql/oracle_forms.h"
#include "text/join.h"

namespace kodra::sql {
namespace {

class DB2Dialect final : public Dialect {
 public:
  // Oracle's arithmetic and conversions: DB2 offers them under the same names.
  std::wstring DateAdd(std::wstring_view interval, std::wstring_view number, std::wstring_view date) const override {
    return oracle_forms::DateAdd(interval, number, date);
  }
  std::wstring ToDate(std::wstring_view text, std::int32_t layout) const override {
    return oracle_forms::ToDate(text, layout);
  }
  bool HasDateLiterals() const override { return true; }
  std::wstring DateLiteral(platform::Date date, std::int32_t layout) const override {
    return oracle_forms::DateLiteral(date, layout);
  }
  std::wstring ToChar(std::wstring_view expr, std::wstring_view format) const override {
    return oracle_forms::ToChar(expr, format);
  }
  std::wstring_view CurrentDate() const override { return L"CURRENT DATE"; }
  std::wstring ToInt(std::wstring_view expr) const override { return text::Join({L"CAST(", expr, L" AS INT)"}); }
  std::wstring_view ConcatSeparator() const override { return L" || "; }
  std::wstring Concat(std::wstring joined) const override { return joined; }
  std::wstring_view NullReplacer() const override { return L"COALESCE"; }
  std::wstring_view DefaultDateType() const override { return L"TIMESTAMP"; }
};

}  // namespace

const Dialect& DB2() {
  static constexpr DB2Dialect dialect;
  return dialect;
}

}  // namespace kodra::sql
