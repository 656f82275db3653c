// SQLNVL, SQLStrConcat and SQLToInt.
#include <vector>

#include "tests/recorder/fake_surroundings.h"
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

using Parts = std::vector<Value>;

// Expects those texts for the concatenation of the parts.
void ExpectJoined(const Parts& parts, std::initializer_list<Returned> expected) {
  ExpectOnEach(expected, [&] { return SQLStrConcat(parts); });
}

TEST(SQLStrConcat, EachDatabaseJoinsInItsOwnWay) {
  ExpectJoined({L"a.X", L"'-'", L"a.Y"}, {{tbOracle, L"a.X || '-' || a.Y"},
                                          {tbSQLServer, L"a.X + '-' + a.Y"},
                                          {tbMySQL, L"CONCAT(a.X,'-',a.Y)"},
                                          {tbOracleAlt, L"a.X || '-' || a.Y"},
                                          {tbDB2, L"a.X || '-' || a.Y"},
                                          {tbSQLite, L"a.X || '-' || a.Y"}});
}

TEST(SQLStrConcat, OneArgumentIsReturnedAloneExceptOnMySQL) {
  ExpectJoined({L"A"}, {{tbOracle, L"A"},
                        {tbSQLServer, L"A"},
                        {tbMySQL, L"CONCAT(A)"},
                        {tbOracleAlt, L"A"},
                        {tbDB2, L"A"},
                        {tbSQLite, L"A"}});
}

TEST(SQLStrConcat, NoArgumentIsTheEmptyText) {
  ExpectOnAll(L"", [] { return SQLStrConcat({}); });
}

TEST(SQLStrConcat, AnEmptyArgumentKeepsItsSeparators) {
  ExpectJoined({L"", L"b"}, {{tbOracle, L" || b"}});
  ExpectJoined({L"a", L""}, {{tbSQLServer, L"a + "}});
  ExpectJoined({L"", L""}, {{tbMySQL, L"CONCAT(,)"}});
}

TEST(SQLStrConcat, OneEmptyArgumentIsTheEmptyTextEvenOnMySQL) {
  ExpectOnAll(L"", [] { return SQLStrConcat({L""}); });
}

TEST(SQLStrConcat, ValuesBecomeTextByTheBrazilianConventions) {
  ExpectJoined({L"a.X", std::int32_t{7}, 1.5, true, Empty{}, Date{45291}},
               {{tbOracle, L"a.X || 7 || 1,5 || Verdadeiro ||  || 31/12/2023"}});
  ExpectJoined({std::int64_t{8}, false}, {{tbMySQL, L"CONCAT(8,Falso)"}});
}

TEST(SQLStrConcat, AnArgumentWithoutTextMakesItEmpty) {
  recorder::FakeSurroundings around;
  const ObjectRef object = around.NewObject(L"Objeto", {});
  for (const Parts& parts : {Parts{L"a", Null{}, L"b"}, Parts{L"a", ObjectRef()}, Parts{object}})
    ExpectOnAll(L"", [&] { return SQLStrConcat(parts); });
}

TEST(SQLStrConcat, ACodeWithoutDialectMakesItEmptyAndRaisesNothing) {
  for (const std::int32_t code : kCodesWithoutDialect)
    for (const Parts& parts : {Parts{L"a.X", L"a.Y"}, Parts{L"a.X", Null{}}, Parts{}})
      ExpectJoined(parts, {{code, L""}});
}

TEST(SQLToInt, EachDatabaseHasItsOwnConversion) {
  ExpectOnEach({{tbOracle, L"TO_NUMBER(c.NUM)"},
                {tbSQLServer, L"CAST(c.NUM AS INT)"},
                {tbMySQL, L"CAST(c.NUM AS UNSIGNED)"},
                {tbOracleAlt, L"TO_NUMBER(c.NUM)"},
                {tbDB2, L"CAST(c.NUM AS INT)"},
                {tbSQLite, L"CAST(c.NUM AS INT)"}},
               [] { return SQLToInt(L"c.NUM"); });
}

TEST(SQLToInt, TheExpressionIsTakenVerbatim) {
  ExpectOnEach({{tbSQLServer, L"CAST( a + 'b'  AS INT)"}}, [] { return SQLToInt(L" a + 'b' "); });
}

TEST(SQLToInt, ACodeWithoutDialectRaises) {
  ExpectNoEntry(L"SQLToInt", [] { SQLToInt(L"x"); });
}

}  // namespace
}  // namespace kodra::sql
