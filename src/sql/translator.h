// The SQL of one database system: every fragment that differs between systems, for one database code.
//
// Fragments are plain texts. Nothing here accesses a database or inspects the expressions that are passed: they are
// copied into the fragment verbatim, unquoted.
//
//   const Translator sql(tbOracle);
//   sql.NVL(L"dp.NOME", nvTexto, L"")   returns  NVL(dp.NOME, '')
//
// For a code without a dialect (tbOther4, 0, negative, 8 and above) every function but StrConcat and FromOneRow raises
// Erro kErrBase + 1, source "TradutorSQL.SQL<Function>", "Não há entrada para o banco tipo <code>".
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "sql/dialect.h"
#include "sql/layouts.h"
#include "sql/tipo_banco.h"
#include "values/value.h"

namespace kodra::sql {

class Translator {
 public:
  constexpr Translator() = default;
  explicit Translator(std::int32_t code) noexcept : code_(code), dialect_(FindDialect(code)) {}

  std::int32_t Code() const { return code_; }

  // A date plus a number of minutes ("MINUTE", "MIN", "NN"), days ("DAY", "DD", "D"), months ("MONTH", "MM", "M") or
  // years ("YEAR", "YYYY", "Y", "A", "AA", "AAAA"), in any letter case. Any other interval returns the empty text for
  // Oracle, DB2 and SQLite; SQL Server and MySQL get it, and the minutes, as the caller spelled it.
  std::wstring DateAdd(const std::wstring& interval, const std::wstring& number, const std::wstring& date) const;

  // Today's date, without time.
  std::wstring DataAtual() const;

  // A date-valued expression from a text. A text that values::ParseDate recognises becomes a literal in the layout's
  // form; otherwise it is an expression. SQL Server has no form for an expression: it is returned unchanged.
  std::wstring ToDate(const std::wstring& text, std::int32_t layout) const;

  // An expression cast to an integer.
  std::wstring ToInt(const std::wstring& expr) const;

  // A date expression as text, by an Oracle format: "DD/MM/YYYY HH24", "DD/MM/YYYY" or "HH24" in any letter case.
  // Oracle and DB2 take any other format too; SQLite returns the empty text for every format.
  std::wstring ToChar(const std::wstring& expr, const std::wstring& format) const;

  // The expressions joined by the database's concatenation. Raises nothing: returns the empty text for a code without
  // dialect and for an argument that has no text (Null, an object).
  std::wstring StrConcat(const std::vector<Value>& parts) const;

  // An expression with a value in place of null: a number (an empty default is 0; the default is read by
  // values::LeadingNumber), a text (unescaped), or a date ("1932-01-30", which means no date, when empty).
  std::wstring NVL(const std::wstring& expr, std::int32_t kind, const std::wstring& defaultValue) const;

  // The FROM clause of a SELECT of one row of literals, with the blank before it; empty where no table is needed.
  std::wstring FromOneRow() const;

 private:
  // The dialect of the code, or the error of the public function of that name.
  const Dialect& DialectFor(const wchar_t* function) const;

  std::int32_t code_ = 0;
  const Dialect* dialect_ = nullptr;
};

}  // namespace kodra::sql
