#include "siblings/str_con.h"

#include <gtest/gtest.h>

#include "tests/recorder/raised.h"

namespace kodra::siblings {
namespace {

TEST(StrCon, KnowsTheDatabaseOfAConnectionString) {
  EXPECT_EQ(DatabaseCode(L"Provider=OraOLEDB.Oracle;Data Source=ARQ"), 1);
  EXPECT_EQ(DatabaseCode(L"Provider=msdaora;Data Source=ARQ"), 1);
  EXPECT_EQ(DatabaseCode(L"Provider=SQLOLEDB;Data Source=srv"), 2);
  EXPECT_EQ(DatabaseCode(L"Provider=SQLNCLI11;Server=srv"), 2);
  EXPECT_EQ(DatabaseCode(L"Provider=MSOLEDBSQL;Server=srv"), 2);
  EXPECT_EQ(DatabaseCode(L"Driver={ODBC Driver 17 for SQL Server};Server=srv"), 2);
  EXPECT_EQ(DatabaseCode(L"Driver={MySQL ODBC 8.0 Unicode Driver};Server=srv"), 3);
  EXPECT_EQ(DatabaseCode(L"driver={mariadb unicode};server=srv"), 3);
  EXPECT_EQ(DatabaseCode(L"Provider=IBMDADB2;Database=ARQ"), 6);
  EXPECT_EQ(DatabaseCode(L"Driver={iSeries Access ODBC Driver};System=srv"), 6);
  EXPECT_EQ(DatabaseCode(L"Driver={IBM i Access ODBC Driver};System=srv"), 6);
  EXPECT_EQ(DatabaseCode(L"Driver={IBM DB2 ODBC DRIVER};Database=ARQ"), 6);
  EXPECT_EQ(DatabaseCode(L"Driver={SQLite3};Database=/dados/arquivo.db"), 7);
}

TEST(StrCon, GivesTheCodeOfOtherSystemsForAnyOtherString) {
  EXPECT_EQ(DatabaseCode(L"Driver={PostgreSQL Unicode};Server=srv"), 4);
  EXPECT_EQ(DatabaseCode(L"DSN=Arquivo"), 4);
  EXPECT_EQ(DatabaseCode(L" "), 4);
  EXPECT_EQ(DatabaseCode(L""), 4);
}

TEST(StrCon, PrefersOracleThenDb2ThenSqliteInAStringThatNamesTwo) {
  EXPECT_EQ(DatabaseCode(L"Provider=IBMDADB2;Data Source=ORACLE"), 1);
  EXPECT_EQ(DatabaseCode(L"Driver={SQLite3};Database=IBM DB2.db"), 6);
  EXPECT_EQ(DatabaseCode(L"Driver={SQLite3};Database=mysql.db"), 7);
}

TEST(StrCon, TakesTheStringAndGivesTheCodeByName) {
  StrCon sibling;
  EXPECT_EQ(sibling.Get(L"TipoBanco"), Value(4));
  sibling.Let(L"StrCon", L"Driver={SQLite3};Database=a.db");
  EXPECT_EQ(sibling.Get(L"StrCon"), Value(L"Driver={SQLite3};Database=a.db"));
  EXPECT_EQ(sibling.Get(L"TipoBanco"), Value(7));
  sibling.Let(L"StrCon", L"Provider=MSDAORA");
  EXPECT_EQ(sibling.Get(L"TipoBanco"), Value(1));
}

TEST(StrCon, DoesNotLetTheCodeBeWritten) {
  StrCon sibling;
  EXPECT_EQ(recorder::RaisedBy([&] { sibling.Let(L"TipoBanco", 1); }),
            (recorder::Raised{438, "KodraRpt", "O objeto não aceita esta propriedade ou método"}));
}

}  // namespace
}  // namespace kodra::siblings
