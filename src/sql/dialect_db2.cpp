#include "sql/dialect.h"
#include "sql/oracle_forms.h"

namespace kodra::sql {
namespace {

class DB2Dialect final : public Dialect {
 public:
  // Oracle's arithmetic and conversions: DB2 offers them under the same names.
  std::wstring DateAdd(const std::wstring& interval, const std::wstring& number,
                       const std::wstring& date) const override {
    return oracle_forms::DateAdd(interval, number, date);
  }
  std::wstring ToDate(const std::wstring& text, std::int32_t layout) const override {
    return oracle_forms::ToDate(text, layout);
  }
  std::wstring ToChar(const std::wstring& expr, const std::wstring& format) const override {
    return oracle_forms::ToChar(expr, format);
  }
  std::wstring CurrentDate() const override { return L"CURRENT DATE"; }
  std::wstring ToInt(const std::wstring& expr) const override { return L"CAST(" + expr + L" AS INT)"; }
  std::wstring ConcatSeparator() const override { return L" || "; }
  std::wstring ConcatOpening() const override { return L""; }
  std::wstring ConcatClosing() const override { return L""; }
  std::wstring NullReplacer() const override { return L"COALESCE"; }
  std::wstring DefaultDateType() const override { return L"TIMESTAMP"; }
  std::wstring FromOneRow() const override { return L" FROM SYSIBM.SYSDUMMY1 "; }
};

}  // namespace

const Dialect& DB2() {
  static constexpr DB2Dialect dialect;
  return dialect;
}

}  // namespace kodra::sql
