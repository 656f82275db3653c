// What the translator's tests share: the codes of the data model and the one error of a code without dialect.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

#include "sql/tradutor_sql.h"
#include "values/erro.h"

namespace kodra::sql {

inline constexpr std::int32_t kCodesWithoutDialect[] = {
    4, 0, -1, 8, 9, 100, std::numeric_limits<std::int32_t>::max(), std::numeric_limits<std::int32_t>::min()};

// Expects that `call` raises the no-entry error of TradutorSQL.`function` for every code without dialect.
template <class Call>
void ExpectNoEntry(const std::wstring& function, Call call) {
  for (const std::int32_t code : kCodesWithoutDialect) {
    SCOPED_TRACE(code);
    DefineTipoBanco(code);
    try {
      call();
      ADD_FAILURE() << "nothing raised";
    } catch (const Erro& erro) {
      EXPECT_EQ(erro.Number(), -2147221503);
      EXPECT_EQ(erro.Source(), L"TradutorSQL." + function);
      EXPECT_EQ(erro.Description(), L"Não há entrada para o banco tipo " + std::to_wstring(code));
    }
  }
}

}  // namespace kodra::sql
