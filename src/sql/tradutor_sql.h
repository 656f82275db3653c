// The SQL dialect translator: the fragments that differ between database systems, built as text.
//
// A fragment is built for the thread's current database code, which every report sets before it builds its SQL. Nothing
// here touches a database or looks into the expressions it is given: they go into the fragment verbatim, unquoted.
//
//   DefineTipoBanco(tbOracle);
//   SQLNVL(L"dp.NOME", nvTexto, L"")   gives  NVL(dp.NOME, '')
//
// A code without a dialect (tbOther4, 0, negative, 8 and above) makes every function but DefineTipoBanco and
// SQLStrConcat raise Erro kErrBase + 1, source "TradutorSQL.<Function>", "Não há entrada para o banco tipo <code>".
#pragma once

#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

#include "platform/value.h"
#include "sql/tipo_banco.h"

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

// A date plus a number of minutes ("MINUTE", "MIN", "NN"), days ("DAY", "DD", "D"), months ("MONTH", "MM", "M") or
// years
// ("YEAR", "YYYY", "Y", "A", "AA", "AAAA"), in any letter case. Any other interval gives the empty text for Oracle, DB2
// and SQLite; SQL Server and MySQL get it, and the minutes, as the caller spelled it.
std::wstring SQLDateAdd(std::wstring_view interval, std::wstring_view number, std::wstring_view dateExpr);

// Today's date, without time.
std::wstring SQLDataAtual();

// A date-valued expression from a text. A text that text::ParseDate recognises becomes a literal in the layout's form;
// any other is an expression. SQL Server has no form for an expression: it is given back as it is.
std::wstring SQLToDate(std::wstring_view dateText, std::int32_t layout);

// The same for a date's text: as text::DateToText or, in the second form, as text::FormatDate writes it.
// REQUIRES: the pattern writes the whole day and the layout is fdDDMMYYYY or fdYYYYMMDD.
std::wstring SQLToDate(platform::Date date, std::int32_t layout);
std::wstring SQLToDate(platform::Date date, std::wstring_view pattern, std::int32_t layout);

// An expression cast to an integer.
std::wstring SQLToInt(std::wstring_view expr);

// A date expression as text, by an Oracle format: "DD/MM/YYYY HH24", "DD/MM/YYYY" or "HH24" in any letter case. Oracle
// and DB2 take any other format too; SQLite gives the empty text for every format.
std::wstring SQLToChar(std::wstring_view expr, std::wstring_view format);

// The expressions joined by the database's concatenation. Never raises: the empty text stands for a code without
// dialect and for an argument that has no text (Null, an object).
std::wstring SQLStrConcat(std::span<const platform::Value> parts);
std::wstring SQLStrConcat(std::initializer_list<std::wstring_view> parts);

// An expression with a value in place of null: a number (an empty default is 0; the default is read by
// text::LeadingNumber), a text (unescaped), or a date ("1932-01-30", which stands for no date, when empty).
std::wstring SQLNVL(std::wstring_view expr, std::int32_t kind, std::wstring_view defaultValue);

}  // namespace kodra::sql
