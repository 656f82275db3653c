#include <array>
#include <barrier>
#include <thread>

#include "tests/sql/dialect_codes.h"

namespace kodra::sql {
namespace {

TEST(TipoBanco, CodesHaveTheirFixedValues) {
  EXPECT_EQ(tbOracle, 1);
  EXPECT_EQ(tbSQLServer, 2);
  EXPECT_EQ(tbMySQL, 3);
  EXPECT_EQ(tbOther4, 4);
  EXPECT_EQ(tbOracleAlt, 5);
  EXPECT_EQ(tbDB2, 6);
  EXPECT_EQ(tbSQLite, 7);
}

TEST(TipoBanco, LayoutsAndKindsHaveTheirFixedValues) {
  EXPECT_EQ(fdDDMMYYYY, 0);
  EXPECT_EQ(fdYYYYMMDD, 1);
  EXPECT_EQ(fdDateTime, 2);
  EXPECT_EQ(nvNumero, 0);
  EXPECT_EQ(nvTexto, 1);
  EXPECT_EQ(nvData, 2);
}

TEST(TipoBanco, TheSecondOracleIsStoredAsOracle) {
  DefineTipoBanco(tbOracleAlt);
  EXPECT_EQ(SQLDataAtual(), L"TRUNC(SYSDATE)");
}

TEST(TipoBanco, ANewThreadHasNoCodeAndRaisesTheNoEntryErrorOfZero) {
  DefineTipoBanco(tbOracle);
  std::wstring description;
  std::thread([&] {
    try {
      SQLDataAtual();
    } catch (const Erro& erro) {
      description = erro.Description();
    }
  }).join();
  EXPECT_EQ(description, L"Não há entrada para o banco tipo 0");
  EXPECT_EQ(SQLDataAtual(), L"TRUNC(SYSDATE)");
}

TEST(TipoBanco, TwoThreadsBuildForTheirOwnDatabaseAtTheSameTime) {
  std::array<std::wstring, 2> fragments;
  std::barrier both(2);
  const auto build = [&](std::int32_t code, std::wstring& fragment) {
    DefineTipoBanco(code);
    both.arrive_and_wait();  // both codes are set before either fragment is built
    fragment = SQLNVL(L"x", nvTexto, L"");
    both.arrive_and_wait();
  };
  std::thread one(build, tbOracle, std::ref(fragments[0]));
  std::thread other(build, tbDB2, std::ref(fragments[1]));
  one.join();
  other.join();
  EXPECT_EQ(fragments[0], L"NVL(x, '')");
  EXPECT_EQ(fragments[1], L"COALESCE(x, '')");
}

TEST(TipoBanco, TheCodeStaysUntilTheNextOneIsSet) {
  DefineTipoBanco(tbMySQL);
  EXPECT_EQ(SQLDataAtual(), L"CURDATE()");
  EXPECT_EQ(SQLDataAtual(), L"CURDATE()");
  DefineTipoBanco(tbSQLite);
  EXPECT_EQ(SQLDataAtual(), L"date('now')");
}

}  // namespace
}  // namespace kodra::sql
