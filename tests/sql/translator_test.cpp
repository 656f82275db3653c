// Translators of several databases at the same time.
#include "sql/translator.h"

#include <gtest/gtest.h>

namespace kodra::sql {
namespace {

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
