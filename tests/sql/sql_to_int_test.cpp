#include "tests/sql/dialect_codes.h"

namespace kodra::sql {
namespace {

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
