#include "siblings/str_con.h"

#include <gtest/gtest.h>

#include "sql/tipo_banco.h"
#include "tests/recorder/raised.h"

namespace kodra::siblings {
namespace {

// Connection strings and the codes of their databases.
void ExpectCodes(std::initializer_list<std::pair<const wchar_t*, std::int32_t>> cases) {
  for (const auto& [connectionString, code] : cases)
    EXPECT_EQ(DatabaseCode(connectionString), code) << connectionString;
}

TEST(StrCon, RecognisesTheDatabaseOfAConnectionString) {
  ExpectCodes({{L"Provider=OraOLEDB.Oracle;Data Source=ARQ", sql::tbOracle},
               {L"Provider=msdaora;Data Source=ARQ", sql::tbOracle},
               {L"Provider=SQLOLEDB;Data Source=srv", sql::tbSQLServer},
               {L"Provider=SQLNCLI11;Server=srv", sql::tbSQLServer},
               {L"Provider=MSOLEDBSQL;Server=srv", sql::tbSQLServer},
               {L"Driver={ODBC Driver 17 for SQL Server};Server=srv", sql::tbSQLServer},
               {L"Driver={MySQL ODBC 8.0 Unicode Driver};Server=srv", sql::tbMySQL},
               {L"driver={mariadb unicode};server=srv", sql::tbMySQL},
               {L"Provider=IBMDADB2;Database=ARQ", sql::tbDB2},
               {L"Driver={iSeries Access ODBC Driver};System=srv", sql::tbDB2},
               {L"Driver={IBM i Access ODBC Driver};System=srv", sql::tbDB2},
               {L"Driver={IBM DB2 ODBC DRIVER};Database=ARQ", sql::tbDB2},
               {L"Driver={SQLite3};Database=/dados/arquivo.db", sql::tbSQLite}});
}

TEST(StrCon, ReturnsTheCodeOfOtherSystemsForAnyOtherString) {
  ExpectCodes({{L"Driver={PostgreSQL Unicode};Server=srv", sql::tbOther4},
               {L"DSN=Arquivo", sql::tbOther4},
               {L" ", sql::tbOther4},
               {L"", sql::tbOther4}});
}

TEST(StrCon, PrefersOracleThenDb2ThenSqliteInAStringThatNamesTwo) {
  ExpectCodes({{L"Provider=IBMDADB2;Data Source=ORACLE", sql::tbOracle},
               {L"Driver={SQLite3};Database=IBM DB2.db", sql::tbDB2},
               {L"Driver={SQLite3};Database=mysql.db", sql::tbSQLite}});
}

TEST(StrCon, TakesTheStringAndReturnsTheCodeByName) {
  StrCon sibling;
  EXPECT_EQ(sibling.Get(L"TipoBanco"), Value(sql::tbOther4));
  sibling.Let(L"StrCon", L"Driver={SQLite3};Database=a.db");
  EXPECT_EQ(sibling.Get(L"StrCon"), Value(L"Driver={SQLite3};Database=a.db"));
  EXPECT_EQ(sibling.Get(L"TipoBanco"), Value(sql::tbSQLite));
  sibling.Let(L"StrCon", L"Provider=MSDAORA");
  EXPECT_EQ(sibling.Get(L"TipoBanco"), Value(sql::tbOracle));
}

TEST(StrCon, DoesNotLetTheCodeBeWritten) {
  StrCon sibling;
  EXPECT_EQ(recorder::RaisedBy([&] { sibling.Let(L"TipoBanco", 1); }), recorder::kMemberNotFound);
}

}  // namespace
}  // namespace kodra::siblings
