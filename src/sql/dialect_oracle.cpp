#include "sql/dialect.h"
#include "sql/oracle_forms.h"
#include "text/join.h"

namespace kodra::sql {
namespace {

class OracleDialect final : public Dialect {
 public:
  std::wstring DateAdd(std::wstring_view interval, std::wstring_view number, std::wstring_view date) const override {
    return oracle_forms::DateAdd(interval, number, date);
  }
  std::wstring_view CurrentDate() const override { return L"TRUNC(SYSDATE)"; }
  std::wstring ToDate(std::wstring_view text, std::int32_t layout) const override {
    return oracle_forms::ToDate(text, layout);
  }
  bool HasDateLiterals() const override { return true; }
  std::wstring DateLiteral(platform::Date date, std::int32_t layout) const override {
    return oracle_forms::DateLiteral(date, layout);
  }
  std::wstring ToInt(std::wstring_view expr) const override { return text::Join({L"TO_NUMBER(", expr, L")"}); }
  std::wstring ToChar(std::wstring_view expr, std::wstring_view format) const override {
    return oracle_forms::ToChar(expr, format);
  }
  std::wstring_view ConcatSeparator() const override { return L" || "; }
  std::wstring Concat(std::wstring joined) const override { return joined; }
  std::wstring_view NullReplacer() const override { return L"NVL"; }
  std::wstring_view DefaultDateType() const override { return L"DATE"; }
};

}  // namespace

const Dialect& Oracle() {
  static constexpr OracleDialect dialect;
  return dialect;
}

}  // namespace kodra::sql
