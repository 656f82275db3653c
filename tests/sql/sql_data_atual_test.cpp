#include "tests/sql/dialect_codes.h"

namespace kodra::sql {
namespace {

TEST(SQLDataAtual, EachDatabaseHasItsOwnText) {
  ExpectOnEach({{tbOracle, L"TRUNC(SYSDATE)"},
                {tbSQLServer, L"DATEADD(dd, 0, DATEDIFF(dd, 0, GETDATE()))"},
                {tbMySQL, L"CURDATE()"},
                {tbOracleAlt, L"TRUNC(SYSDATE)"},
                {tbDB2, L"CURRENT DATE"},
                {tbSQLite, L"date('now')"}},
               SQLDataAtual);
}

TEST(SQLDataAtual, ACodeWithoutDialectRaises) { ExpectNoEntry(L"SQLDataAtual", SQLDataAtual); }

}  // namespace
}  // namespace kodra::sql
