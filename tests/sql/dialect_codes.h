// Shared by the translator's tests: the database codes, the results of a function on each database, and the one error
// of a code without a dialect.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <limits>
#include <string>

#include "sql/tradutor_sql.h"
#include "tests/raised.h"

namespace kodra::sql {

inline constexpr std::int32_t kCodesWithDialect[] = {tbOracle, tbSQLServer, tbMySQL, tbOracleAlt, tbDB2, tbSQLite};
inline constexpr std::int32_t kCodesWithoutDialect[] = {
    tbOther4, 0, -1, 8, 9, 100, std::numeric_limits<std::int32_t>::max(), std::numeric_limits<std::int32_t>::min()};

// The result of a function for a database.
struct Returned {
  std::int32_t code;
  const wchar_t* text;
};

// Expects that `call` returns each text for its database.
template <class Call>
void ExpectOnEach(std::initializer_list<Returned> expected, Call call) {
  for (const auto& [code, text] : expected) {
    DefineTipoBanco(code);
    EXPECT_EQ(call(), text) << "database code " << code;
  }
}

// Expects that `call` returns that text for every database that has a dialect.
template <class Call>
void ExpectOnAll(const wchar_t* text, Call call) {
  for (const std::int32_t code : kCodesWithDialect) ExpectOnEach({{code, text}}, call);
}

// The error of TradutorSQL.`function` for a code without a dialect.
inline tests::Raised NoEntry(const std::wstring& function, std::int32_t code) {
  return {-2147221503, L"TradutorSQL." + function, L"Não há entrada para o banco tipo " + std::to_wstring(code)};
}

// Expects that error of `call` for every code without a dialect.
template <class Call>
void ExpectNoEntry(const std::wstring& function, Call call) {
  for (const std::int32_t code : kCodesWithoutDialect) {
    DefineTipoBanco(code);
    EXPECT_EQ(tests::RaisedBy(call), NoEntry(function, code));
  }
}

}  // namespace kodra::sql
