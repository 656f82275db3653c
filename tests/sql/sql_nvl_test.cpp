#include "tests/sql/dialect_codes.h"

namespace kodra::sql {
namespace {

// Expects those texts for a null dp.NOME with that default.
void ExpectDefault(std::int32_t kind, const wchar_t* defaultValue, std::initializer_list<Returned> expected) {
  SCOPED_TRACE(testing::PrintToString(defaultValue));
  ExpectOnEach(expected, [=] { return SQLNVL(L"dp.NOME", kind, defaultValue); });
}

TEST(SQLNVL, EachDatabaseHasItsOwnFunction) {
  ExpectDefault(nvTexto, L"",
                {{tbOracle, L"NVL(dp.NOME, '')"},
                 {tbSQLServer, L"ISNULL(dp.NOME, '')"},
                 {tbMySQL, L"IFNULL(dp.NOME, '')"},
                 {tbOracleAlt, L"NVL(dp.NOME, '')"},
                 {tbDB2, L"COALESCE(dp.NOME, '')"},
                 {tbSQLite, L"IFNULL(dp.NOME, '')"}});
}

TEST(SQLNVL, ATextDefaultIsQuotedButNotEscaped) {
  ExpectDefault(nvTexto, L"nenhum", {{tbOracle, L"NVL(dp.NOME, 'nenhum')"}});
  ExpectDefault(nvTexto, L"d'água ", {{tbOracle, L"NVL(dp.NOME, 'd'água ')"}});
}

TEST(SQLNVL, AnEmptyNumberDefaultIsZeroOnEveryDatabase) {
  ExpectDefault(nvNumero, L"",
                {{tbOracle, L"NVL(dp.NOME, 0)"},
                 {tbSQLServer, L"ISNULL(dp.NOME, 0)"},
                 {tbMySQL, L"IFNULL(dp.NOME, 0)"},
                 {tbOracleAlt, L"NVL(dp.NOME, 0)"},
                 {tbDB2, L"COALESCE(dp.NOME, 0)"},
                 {tbSQLite, L"IFNULL(dp.NOME, 0)"}});
}
TEST(SQLNVL, ANumberDefaultIsTheLeadingNumberOfTheText) {
  ExpectDefault(nvNumero, L"12", {{tbOracle, L"NVL(dp.NOME, 12)"}});
  ExpectDefault(nvNumero, L"-3 anos", {{tbOracle, L"NVL(dp.NOME, -3)"}});
  ExpectDefault(nvNumero, L"abc", {{tbOracle, L"NVL(dp.NOME, 0)"}});
}
TEST(SQLNVL, ANumberDefaultIsReadWithAPointAndWrittenWithTheSystemsComma) {
  ExpectDefault(nvNumero, L"1.5", {{tbOracle, L"NVL(dp.NOME, 1,5)"}});
  ExpectDefault(nvNumero, L"1,5", {{tbOracle, L"NVL(dp.NOME, 1)"}});
}

TEST(SQLNVL, ADateDefaultIsCastToTheDatabasesOwnType) {
  ExpectDefault(nvData, L"2023-12-31",
                {{tbOracle, L"NVL(dp.NOME, CAST('2023-12-31' AS DATE))"},
                 {tbSQLServer, L"ISNULL(dp.NOME, CAST('2023-12-31' AS DATETIME))"},
                 {tbMySQL, L"IFNULL(dp.NOME, CAST('2023-12-31' AS DATE))"},
                 {tbOracleAlt, L"NVL(dp.NOME, CAST('2023-12-31' AS DATE))"},
                 {tbDB2, L"COALESCE(dp.NOME, CAST('2023-12-31' AS TIMESTAMP))"},
                 {tbSQLite, L"IFNULL(dp.NOME, CAST('2023-12-31' AS DATETIME))"}});
}
TEST(SQLNVL, AnEmptyDateDefaultIsTheDateThatMeansNone) {
  ExpectDefault(nvData, L"",
                {{tbOracle, L"NVL(dp.NOME, CAST('1932-01-30' AS DATE))"},
                 {tbSQLServer, L"ISNULL(dp.NOME, CAST('1932-01-30' AS DATETIME))"},
                 {tbMySQL, L"IFNULL(dp.NOME, CAST('1932-01-30' AS DATE))"},
                 {tbOracleAlt, L"NVL(dp.NOME, CAST('1932-01-30' AS DATE))"},
                 {tbDB2, L"COALESCE(dp.NOME, CAST('1932-01-30' AS TIMESTAMP))"},
                 {tbSQLite, L"IFNULL(dp.NOME, CAST('1932-01-30' AS DATETIME))"}});
}
TEST(SQLNVL, EveryOtherKindIsADate) {
  ExpectDefault(3, L"", {{tbOracle, L"NVL(dp.NOME, CAST('1932-01-30' AS DATE))"}});
  ExpectDefault(-1, L"x", {{tbOracle, L"NVL(dp.NOME, CAST('x' AS DATE))"}});
}

TEST(SQLNVL, ACodeWithoutDialectRaisesWhateverTheKind) {
  for (const std::int32_t kind : {nvNumero, nvTexto, nvData, 3, -1})
    ExpectNoEntry(L"SQLNVL", [kind] { SQLNVL(L"x", kind, L""); });
}

}  // namespace
}  // namespace kodra::sql
