#include "sql/tradutor_sql.h"

#include "platform/erro.h"
#include "sql/dialect.h"
#include "text/convert.h"
#include "text/dates.h"
#include "text/join.h"
#include "text/numbers.h"

namespace kodra::sql {
namespace {

thread_local std::int32_t currentCode = 0;

// The dialect of the current code. This is the one place that refuses a code without dialect; `function` is the
// caller's public name.
const Dialect& DialectFor(std::wstring_view function) {
  const Dialect* dialect = FindDialect(currentCode);
  if (dialect) return *dialect;
  throw platform::Erro(platform::kErrBase + 1, text::Join({L"TradutorSQL.", function}),
                       text::Join({L"Não há entrada para o banco tipo ", text::NumberToText(currentCode)}));
}

// Joins what `textOf` gives for each part, by the current dialect. Never raises.
template <class Parts, class TextOf>
std::wstring Concatenate(const Parts& parts, TextOf textOf) {
  const Dialect* dialect = FindDialect(currentCode);
  if (!dialect) return {};
  try {
    std::wstring joined;
    bool first = true;
    for (const auto& part : parts) {
      if (!first) joined += dialect->ConcatSeparator();
      first = false;
      joined += textOf(part);
    }
    return dialect->Concat(std::move(joined));
  } catch (const platform::Erro&) {
    return {};
  }
}

std::wstring DefaultNumber(std::wstring_view value) { return text::NumberToText(text::LeadingNumber(value)); }

std::wstring DefaultDate(const Dialect& dialect, std::wstring_view value) {
  constexpr std::wstring_view kNoDate = L"1932-01-30";
  return text::Join({L"CAST('", value.empty() ? kNoDate : value, L"' AS ", dialect.DefaultDateType(), L")"});
}

}  // namespace

void DefineTipoBanco(std::int32_t code) noexcept { currentCode = code == tbOracleAlt ? tbOracle : code; }

std::int32_t TipoBancoAtual() noexcept { return currentCode; }

std::wstring SQLDateAdd(std::wstring_view interval, std::wstring_view number, std::wstring_view dateExpr) {
  return DialectFor(L"SQLDateAdd").DateAdd(interval, number, dateExpr);
}

std::wstring SQLDataAtual() { return CurrentDateOf(DialectFor(L"SQLDataAtual")); }

std::wstring SQLToDate(std::wstring_view dateText, std::int32_t layout) {
  return DialectFor(L"SQLToDate").ToDate(dateText, layout);
}

// A literal does not show how the text was written: writing and reading it again are left out.
std::wstring SQLToDate(platform::Date date, std::int32_t layout) {
  const Dialect& dialect = DialectFor(L"SQLToDate");
  return dialect.HasDateLiterals() ? dialect.DateLiteral(date, layout) : dialect.ToDate(text::DateToText(date), layout);
}

std::wstring SQLToDate(platform::Date date, std::wstring_view pattern, std::int32_t layout) {
  const Dialect& dialect = DialectFor(L"SQLToDate");
  return dialect.HasDateLiterals() ? dialect.DateLiteral(date, layout)
                                   : dialect.ToDate(text::FormatDate(date, pattern), layout);
}

std::wstring SQLToInt(std::wstring_view expr) { return DialectFor(L"SQLToInt").ToInt(expr); }

std::wstring SQLToChar(std::wstring_view expr, std::wstring_view format) {
  return DialectFor(L"SQLToChar").ToChar(expr, format);
}

std::wstring SQLStrConcat(std::span<const platform::Value> parts) {
  return Concatenate(parts, [](const platform::Value& part) { return text::ToText(part); });
}

std::wstring SQLStrConcat(std::initializer_list<std::wstring_view> parts) {
  return Concatenate(parts, [](std::wstring_view part) { return part; });
}

std::wstring SQLNVL(std::wstring_view expr, std::int32_t kind, std::wstring_view defaultValue) {
  const Dialect& dialect = DialectFor(L"SQLNVL");
  if (kind == nvTexto) return text::Join({dialect.NullReplacer(), L"(", expr, L", '", defaultValue, L"')"});
  const std::wstring value = kind == nvNumero ? DefaultNumber(defaultValue) : DefaultDate(dialect, defaultValue);
  return text::Join({dialect.NullReplacer(), L"(", expr, L", ", value, L")"});
}

}  // namespace kodra::sql
