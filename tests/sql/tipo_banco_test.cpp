// The database codes: that of each thread, and those of translators.
#include <array>
#include <barrier>
#include <thread>

#include "sql/translator.h"
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
  tests::Raised raised;
  std::thread([&] { raised = tests::RaisedBy(SQLDataAtual); }).join();
  EXPECT_EQ(raised, NoEntry(L"SQLDataAtual", 0));
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

TEST(TranslatorTest, KeepsItsCodeWhateverTheCodeOfTheThreadIs) {
  const Translator oracle(tbOracle);
  const Translator sqlite(tbSQLite);
  EXPECT_EQ(oracle.Code(), tbOracle);
  EXPECT_EQ(sqlite.Code(), tbSQLite);
  EXPECT_EQ(oracle.ToInt(L"d.FRENTE"), L"TO_NUMBER(d.FRENTE)");
  EXPECT_EQ(sqlite.ToInt(L"d.FRENTE"), L"CAST(d.FRENTE AS INT)");
}

TEST(TranslatorTest, TheSecondOracleKeepsItsCodeAndHasOraclesDialect) {
  const Translator translator(tbOracleAlt);
  EXPECT_EQ(translator.Code(), tbOracleAlt);
  EXPECT_EQ(translator.DateAdd(L"D", L"1", L"x"), L"x + 1");
  EXPECT_EQ(translator.DataAtual(), L"TRUNC(SYSDATE)");
  EXPECT_EQ(translator.ToDate(L"31/12/2023", fdYYYYMMDD), L"TO_DATE('2023/12/31','YYYY/MM/DD')");
  EXPECT_EQ(translator.ToInt(L"x"), L"TO_NUMBER(x)");
  EXPECT_EQ(translator.ToChar(L"x", L"DD/MM/YYYY"), L"TO_CHAR(x,'DD/MM/YYYY')");
  EXPECT_EQ(translator.StrConcat({L"a", L"b"}), L"a || b");
  EXPECT_EQ(translator.NVL(L"x", nvData, L""), L"NVL(x, CAST('1932-01-30' AS DATE))");
}

TEST(TranslatorTest, ARowOfLiteralsIsSelectedFromATableOnOracleAndDB2Only) {
  EXPECT_EQ(Translator(tbOracle).FromOneRow(), L" FROM SYS.DUAL ");
  EXPECT_EQ(Translator(tbDB2).FromOneRow(), L" FROM SYSIBM.SYSDUMMY1 ");
  for (const std::int32_t code : {tbSQLServer, tbMySQL, tbOther4, tbOracleAlt, tbSQLite, 0, 8})
    EXPECT_EQ(Translator(code).FromOneRow(), L"") << code;
}

}  // namespace
}  // namespace kodra::sql
