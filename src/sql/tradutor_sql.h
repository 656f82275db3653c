// The SQL dialect translator: the fragments that differ between database systems.
//
// A fragment is made for the thread's current database code, which every report sets before it builds its SQL, and
// writes itself into the statement. Nothing here touches a database or looks into the expressions it is given: they go
// into the fragment verbatim, unquoted. A fragment looks into the texts, dates and lists that it was made of until it
// is written.
//
//   DefineTipoBanco(tbOracle);
//   statement.Append(SQLNVL(L"dp.NOME", nvTexto, L""))   writes  NVL(dp.NOME, '')
//
// A code without a dialect (tbOther4, 0, negative, 8 and above) makes every function but DefineTipoBanco and
// SQLStrConcat raise Erro kErrBase + 1, source "TradutorSQL.<Function>", "Não há entrada para o banco tipo <code>".
#pragma once

#include <cstdint>
#include <initializer_list>
#include <span>

#include "sql/dialect.h"
#include "sql/tipo_banco.h"
#include "values/piece.h"
#include "values/value.h"
#include "values/writer.h"

namespace kodra::sql {

// How a date text is laid out (SQLToDate).
inline constexpr std::int32_t fdDDMMYYYY = 0;  // day/month/year
inline constexpr std::int32_t fdYYYYMMDD = 1;  // year/month/day
inline constexpr std::int32_t fdDateTime = 2;  // year/month/day with time

// The kind of a default value (SQLNVL). Every code but the first two is a date.
inline constexpr std::int32_t nvNumero = 0;
inline constexpr std::int32_t nvTexto = 1;
inline constexpr std::int32_t nvData = 2;

// Sets the database code of this thread (initially 0). tbOracleAlt is stored as tbOracle, any other code as given.
void DefineTipoBanco(std::int32_t code) noexcept;

// The database code of this thread.
std::int32_t TipoBancoAtual() noexcept;

// The dialect of the current code, which a fragment is made for. `function` is the public name that an error gives.
const Dialect& DialectFor(values::Piece function);

// A date plus a number of minutes ("MINUTE", "MIN", "NN"), days ("DAY", "DD", "D"), months ("MONTH", "MM", "M") or
// years ("YEAR", "YYYY", "Y", "A", "AA", "AAAA"), in any letter case. Any other interval gives the empty text for
// Oracle, DB2 and SQLite; SQL Server and MySQL get it, and the minutes, as the caller spelled it.
inline auto SQLDateAdd(values::Piece interval, values::Piece number, values::Piece dateExpr) {
  return values::Written([&dialect = DialectFor(L"SQLDateAdd"), interval, number, dateExpr](values::Writer& out) {
    dialect.DateAdd(out, interval, number, dateExpr);
  });
}

// Today's date, without time.
inline auto SQLDataAtual() {
  return values::Written(
      [&dialect = DialectFor(L"SQLDataAtual")](values::Writer& out) { WriteCurrentDate(out, dialect); });
}

// A date-valued expression from a text. A text that values::ParseDate recognises becomes a literal in the layout's
// form; any other is an expression. SQL Server has no form for an expression: it is given back as it is.
inline auto SQLToDate(values::Piece dateText, std::int32_t layout) {
  return values::Written([&dialect = DialectFor(L"SQLToDate"), dateText, layout](values::Writer& out) {
    dialect.ToDate(out, dateText, layout);
  });
}

// The same for a date's text, as a values::DateBy or values::DateAsText of that date writes it. A literal does not show
// how the text was written: only a dialect without literals has it written. REQUIRES: it is written with its whole day,
// and the layout is fdDDMMYYYY or fdYYYYMMDD.
template <values::Fragment DateText>
auto SQLToDate(const values::Calendar& date, const DateText& dateText, std::int32_t layout) {
  return values::Written([&dialect = DialectFor(L"SQLToDate"), &date, dateText, layout](values::Writer& out) {
    if (dialect.HasDateLiterals()) return dialect.DateLiteral(out, date, layout);
    dialect.ToDate(out, values::LocalText<32>(dateText).View(), layout);
  });
}

// An expression cast to an integer.
inline auto SQLToInt(values::Piece expr) {
  return values::Written([&dialect = DialectFor(L"SQLToInt"), expr](values::Writer& out) { dialect.ToInt(out, expr); });
}

// A date expression as text, by an Oracle format: "DD/MM/YYYY HH24", "DD/MM/YYYY" or "HH24" in any letter case. Oracle
// and DB2 take any other format too; SQLite gives the empty text for every format.
inline auto SQLToChar(values::Piece expr, values::Piece format) {
  return values::Written(
      [&dialect = DialectFor(L"SQLToChar"), expr, format](values::Writer& out) { dialect.ToChar(out, expr, format); });
}

void WriteConcatenation(values::Writer& out, std::span<const Value> parts);
void WriteConcatenation(values::Writer& out, std::span<const values::Piece> parts);

// The expressions joined by the database's concatenation. Never raises: the empty text stands for a code without
// dialect and for an argument that has no text (Null, an object).
inline auto SQLStrConcat(std::span<const Value> parts) {
  return values::Written([parts](values::Writer& out) { WriteConcatenation(out, parts); });
}
inline auto SQLStrConcat(std::initializer_list<values::Piece> parts) {
  return values::Written([parts](values::Writer& out) { WriteConcatenation(out, {parts.begin(), parts.size()}); });
}

void WriteNullReplacement(values::Writer& out, const Dialect& dialect, values::Piece expr, std::int32_t kind,
                          values::Piece defaultValue);

// An expression with a value in place of null: a number (an empty default is 0; the default is read by
// values::LeadingNumber), a text (unescaped), or a date ("1932-01-30", which stands for no date, when empty).
inline auto SQLNVL(values::Piece expr, std::int32_t kind, values::Piece defaultValue) {
  return values::Written([&dialect = DialectFor(L"SQLNVL"), expr, kind, defaultValue](values::Writer& out) {
    WriteNullReplacement(out, dialect, expr, kind, defaultValue);
  });
}

}  // namespace kodra::sql
