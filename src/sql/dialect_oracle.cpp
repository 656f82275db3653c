#include "sql/dialect.h"
#include "sql/oracle_forms.h"

namespace kodra::sql {
namespace {

// Both codes of Oracle. Only the row of literals differs: for the second variant it is selected from no table.
class OracleDialect final : public Dialect {
 public:
  explicit constexpr OracleDialect(const wchar_t* fromOneRow) : fromOneRow_(fromOneRow) {}

  std::wstring DateAdd(const std::wstring& interval, const std::wstring& number,
                       const std::wstring& date) const override {
    return oracle_forms::DateAdd(interval, number, date);
  }
  std::wstring CurrentDate() const override { return L"TRUNC(SYSDATE)"; }
  std::wstring ToDate(const std::wstring& text, std::int32_t layout) const override {
    return oracle_forms::ToDate(text, layout);
  }
  std::wstring ToInt(const std::wstring& expr) const override { return L"TO_NUMBER(" + expr + L")"; }
  std::wstring ToChar(const std::wstring& expr, const std::wstring& format) const override {
    return oracle_forms::ToChar(expr, format);
  }
  std::wstring ConcatSeparator() const override { return L" || "; }
  std::wstring ConcatOpening() const override { return L""; }
  std::wstring ConcatClosing() const override { return L""; }
  std::wstring NullReplacer() const override { return L"NVL"; }
  std::wstring DefaultDateType() const override { return L"DATE"; }
  std::wstring FromOneRow() const override { return fromOneRow_; }

 private:
  const wchar_t* fromOneRow_;
};

}  // namespace

const Dialect& Oracle() {
  static constexpr OracleDialect dialect(L" FROM SYS.DUAL ");
  return dialect;
}

const Dialect& OracleAlt() {
  static constexpr OracleDialect dialect(L"");
  return dialect;
}

}  // namespace kodra::sql
