#include "sql/tradutor_sql.h"

namespace kodra::sql {
namespace {

thread_local Translator current;

}  // namespace

void DefineTipoBanco(std::int32_t code) noexcept { current = Translator(code == tbOracleAlt ? tbOracle : code); }

std::wstring SQLDateAdd(const std::wstring& interval, const std::wstring& number, const std::wstring& date) {
  return current.DateAdd(interval, number, date);
}

std::wstring SQLDataAtual() { return current.DataAtual(); }

std::wstring SQLToDate(const std::wstring& text, std::int32_t layout) { return current.ToDate(text, layout); }

std::wstring SQLToInt(const std::wstring& expr) { return current.ToInt(expr); }

std::wstring SQLToChar(const std::wstring& expr, const std::wstring& format) { return current.ToChar(expr, format); }

std::wstring SQLStrConcat(const std::vector<Value>& parts) { return current.StrConcat(parts); }

std::wstring SQLNVL(const std::wstring& expr, std::int32_t kind, const std::wstring& defaultValue) {
  return current.NVL(expr, kind, defaultValue);
}

}  // namespace kodra::sql
