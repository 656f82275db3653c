#include "tests/sql/dialect_codes.h"

namespace kodra::sql {
namespace {

std::wstring Nvl(std::int32_t code, std::int32_t kind, const std::wstring& defaultValue) {
  DefineTipoBanco(code);
  return SQLNVL(L"dp.NOME", kind, defaultValue);
}

TEST(SQLNVL, EachDatabaseHasItsOwnFunction) {
  EXPECT_EQ(Nvl(1, nvTexto, L""), L"NVL(dp.NOME, '')");
  EXPECT_EQ(Nvl(2, nvTexto, L""), L"ISNULL(dp.NOME, '')");
  EXPECT_EQ(Nvl(3, nvTexto, L""), L"IFNULL(dp.NOME, '')");
  EXPECT_EQ(Nvl(5, nvTexto, L""), L"NVL(dp.NOME, '')");
  EXPECT_EQ(Nvl(6, nvTexto, L""), L"COALESCE(dp.NOME, '')");
  EXPECT_EQ(Nvl(7, nvTexto, L""), L"IFNULL(dp.NOME, '')");
}

TEST(SQLNVL, ATextDefaultIsQuotedButNotEscaped) {
  EXPECT_EQ(Nvl(1, nvTexto, L"nenhum"), L"NVL(dp.NOME, 'nenhum')");
  EXPECT_EQ(Nvl(1, nvTexto, L"d'água "), L"NVL(dp.NOME, 'd'água ')");
}

TEST(SQLNVL, AnEmptyNumberDefaultIsZeroOnEveryDatabase) {
  EXPECT_EQ(Nvl(1, nvNumero, L""), L"NVL(dp.NOME, 0)");
  EXPECT_EQ(Nvl(2, nvNumero, L""), L"ISNULL(dp.NOME, 0)");
  EXPECT_EQ(Nvl(3, nvNumero, L""), L"IFNULL(dp.NOME, 0)");
  EXPECT_EQ(Nvl(5, nvNumero, L""), L"NVL(dp.NOME, 0)");
  EXPECT_EQ(Nvl(6, nvNumero, L""), L"COALESCE(dp.NOME, 0)");
  EXPECT_EQ(Nvl(7, nvNumero, L""), L"IFNULL(dp.NOME, 0)");
}
TEST(SQLNVL, ANumberDefaultIsTheLeadingNumberOfTheText) {
  EXPECT_EQ(Nvl(1, nvNumero, L"12"), L"NVL(dp.NOME, 12)");
  EXPECT_EQ(Nvl(1, nvNumero, L"-3 anos"), L"NVL(dp.NOME, -3)");
  EXPECT_EQ(Nvl(1, nvNumero, L"abc"), L"NVL(dp.NOME, 0)");
}
TEST(SQLNVL, ANumberDefaultIsReadWithAPointAndWrittenWithTheSystemsComma) {
  EXPECT_EQ(Nvl(1, nvNumero, L"1.5"), L"NVL(dp.NOME, 1,5)");
  EXPECT_EQ(Nvl(1, nvNumero, L"1,5"), L"NVL(dp.NOME, 1)");
}

TEST(SQLNVL, ADateDefaultIsCastToTheDatabasesOwnType) {
  EXPECT_EQ(Nvl(1, nvData, L"2023-12-31"), L"NVL(dp.NOME, CAST('2023-12-31' AS DATE))");
  EXPECT_EQ(Nvl(2, nvData, L"2023-12-31"), L"ISNULL(dp.NOME, CAST('2023-12-31' AS DATETIME))");
  EXPECT_EQ(Nvl(3, nvData, L"2023-12-31"), L"IFNULL(dp.NOME, CAST('2023-12-31' AS DATE))");
  EXPECT_EQ(Nvl(5, nvData, L"2023-12-31"), L"NVL(dp.NOME, CAST('2023-12-31' AS DATE))");
  EXPECT_EQ(Nvl(6, nvData, L"2023-12-31"), L"COALESCE(dp.NOME, CAST('2023-12-31' AS TIMESTAMP))");
  EXPECT_EQ(Nvl(7, nvData, L"2023-12-31"), L"IFNULL(dp.NOME, CAST('2023-12-31' AS DATETIME))");
}
TEST(SQLNVL, AnEmptyDateDefaultIsTheDateThatMeansNone) {
  EXPECT_EQ(Nvl(1, nvData, L""), L"NVL(dp.NOME, CAST('1932-01-30' AS DATE))");
  EXPECT_EQ(Nvl(3, nvData, L""), L"IFNULL(dp.NOME, CAST('1932-01-30' AS DATE))");
  EXPECT_EQ(Nvl(6, nvData, L""), L"COALESCE(dp.NOME, CAST('1932-01-30' AS TIMESTAMP))");
  EXPECT_EQ(Nvl(7, nvData, L""), L"IFNULL(dp.NOME, CAST('1932-01-30' AS DATETIME))");
  DefineTipoBanco(2);
  EXPECT_EQ(SQLNVL(L"x", 2, L""), L"ISNULL(x, CAST('1932-01-30' AS DATETIME))");
}
TEST(SQLNVL, EveryOtherKindIsADate) {
  EXPECT_EQ(Nvl(1, 3, L""), L"NVL(dp.NOME, CAST('1932-01-30' AS DATE))");
  EXPECT_EQ(Nvl(1, -1, L"x"), L"NVL(dp.NOME, CAST('x' AS DATE))");
}

TEST(SQLNVL, ACodeWithoutDialectRaisesWhateverTheKind) {
  for (const std::int32_t kind : {0, 1, 2, 3, -1}) {
    ExpectNoEntry(L"SQLNVL", [kind] { SQLNVL(L"x", kind, L""); });
  }
}

}  // namespace
}  // namespace kodra::sql
