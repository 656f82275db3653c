#include "sql/tradutor_sql.h"

#include "values/convert.h"
#include "values/erro.h"
#include "values/numbers.h"

namespace kodra::sql {
namespace {

thread_local std::int32_t currentCode = 0;
thread_local const Dialect* currentDialect = nullptr;

// Joins what `textOf` gives for each part, by the current dialect. Never raises.
template <class Parts, class TextOf>
void Concatenate(values::Writer& out, const Parts& parts, TextOf textOf) {
  if (!currentDialect) return;
  const std::size_t before = out.size();
  const values::Piece opening = currentDialect->ConcatOpening();
  try {
    out.Append(opening);
    bool first = true;
    for (const auto& part : parts) {
      if (!first) out.Append(currentDialect->ConcatSeparator());
      first = false;
      out.Append(textOf(part));
    }
    if (out.size() == before + opening.size())
      out.Truncate(before);
    else
      out.Append(currentDialect->ConcatClosing());
  } catch (const Erro&) {
    out.Truncate(before);
  }
}

}  // namespace

void DefineTipoBanco(std::int32_t code) noexcept {
  currentCode = code == tbOracleAlt ? tbOracle : code;
  currentDialect = FindDialect(currentCode);
}

std::int32_t TipoBancoAtual() noexcept { return currentCode; }

// This is the one place that refuses a code without dialect.
const Dialect& DialectFor(values::Piece function) {
  if (currentDialect) return *currentDialect;
  throw Erro(kErrBase + 1, std::wstring(L"TradutorSQL.").append(function),
             L"Não há entrada para o banco tipo " + values::NumberToText(currentCode));
}

void WriteConcatenation(values::Writer& out, std::span<const Value> parts) {
  Concatenate(out, parts, [](const Value& part) { return values::ToText(part); });
}

void WriteConcatenation(values::Writer& out, std::span<const values::Piece> parts) {
  Concatenate(out, parts, [](values::Piece part) { return part; });
}

void WriteNullReplacement(values::Writer& out, const Dialect& dialect, values::Piece expr, std::int32_t kind,
                          values::Piece defaultValue) {
  constexpr values::Piece kNoDate = L"1932-01-30";
  out.Append(dialect.NullReplacer(), L"(", expr);
  switch (kind) {
    case nvNumero:
      return out.Append(L", ", values::NumberToText(values::LeadingNumber(defaultValue)), L")");
    case nvTexto:
      return out.Append(L", '", defaultValue, L"')");
    default:
      return out.Append(L", CAST('", defaultValue.empty() ? kNoDate : defaultValue, L"' AS ", dialect.DefaultDateType(),
                        L"))");
  }
}

}  // namespace kodra::sql
