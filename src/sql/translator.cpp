#include "sql/translator.h"

#include "values/convert.h"
#include "values/erro.h"
#include "values/numbers.h"

namespace kodra::sql {

// This is the one place that refuses a code without dialect.
const Dialect& Translator::DialectFor(const wchar_t* function) const {
  if (dialect_ != nullptr) return *dialect_;
  throw Erro(kErrBase + 1, std::wstring(L"TradutorSQL.") + function,
             L"Não há entrada para o banco tipo " + values::NumberToText(code_));
}

std::wstring Translator::DateAdd(const std::wstring& interval, const std::wstring& number,
                                 const std::wstring& date) const {
  return DialectFor(L"SQLDateAdd").DateAdd(interval, number, date);
}

std::wstring Translator::DataAtual() const { return DialectFor(L"SQLDataAtual").CurrentDate(); }

std::wstring Translator::ToDate(const std::wstring& text, std::int32_t layout) const {
  return DialectFor(L"SQLToDate").ToDate(text, layout);
}

std::wstring Translator::ToInt(const std::wstring& expr) const { return DialectFor(L"SQLToInt").ToInt(expr); }

std::wstring Translator::ToChar(const std::wstring& expr, const std::wstring& format) const {
  return DialectFor(L"SQLToChar").ToChar(expr, format);
}

std::wstring Translator::StrConcat(const std::vector<Value>& parts) const {
  if (dialect_ == nullptr) return {};
  std::wstring joined;
  try {
    for (const Value& part : parts) {
      if (&part != &parts.front()) joined += dialect_->ConcatSeparator();
      joined += values::ToText(part);
    }
  } catch (const Erro&) {
    return {};
  }
  if (joined.empty()) return {};
  return dialect_->ConcatOpening() + joined + dialect_->ConcatClosing();
}

std::wstring Translator::NVL(const std::wstring& expr, std::int32_t kind, const std::wstring& defaultValue) const {
  const Dialect& dialect = DialectFor(L"SQLNVL");
  const std::wstring opening = dialect.NullReplacer() + L"(" + expr + L", ";
  switch (kind) {
    case nvNumero:
      return opening + values::NumberToText(values::LeadingNumber(defaultValue)) + L")";
    case nvTexto:
      return opening + L"'" + defaultValue + L"')";
    default:
      return opening + L"CAST('" + (defaultValue.empty() ? L"1932-01-30" : defaultValue) + L"' AS " +
             dialect.DefaultDateType() + L"))";
  }
}

std::wstring Translator::FromOneRow() const { return dialect_ == nullptr ? std::wstring() : dialect_->FromOneRow(); }

}  // namespace kodra::sql
