#include "odbc/engine/driver_quirks.h"

#include <gtest/gtest.h>
#include <langinfo.h>

#include <string>

#include "odbc/engine/command_text.h"
#include "odbc/engine/types.h"
#include "odbc/engine/utf8_locale.h"
#include "tests/odbc/raised.h"

namespace kodra::odbc {

namespace ad = platform::ad;
namespace {

TEST(WithStreaming, AddsStepApiForSqlitesDriver) {
  EXPECT_EQ(WithStreaming(L"Driver={SQLite3};Database=/tmp/a.db;"), L"Driver={SQLite3};Database=/tmp/a.db;StepAPI=1;");
}

TEST(WithStreaming, KeepsAKeyOfTheUser) {
  EXPECT_EQ(WithStreaming(L"Driver={SQLite3};stepapi=0;"), L"Driver={SQLite3};stepapi=0;");
}

TEST(WithStreaming, AddsNothingForOtherDrivers) {
  EXPECT_EQ(WithStreaming(L"Driver={MariaDB Unicode};Database=sqlite;"), L"Driver={MariaDB Unicode};Database=sqlite;");
  EXPECT_EQ(WithStreaming(L"DSN=sqlite;"), L"DSN=sqlite;");
}

TEST(TextIsUtf8, WithMariaDbsDriverUnlessTheConnectionNamesACharacterSet) {
  EXPECT_TRUE(TextIsUtf8(L"libmaodbc.so", L"Driver={MariaDB Unicode};Server=127.0.0.1;"));
  EXPECT_TRUE(TextIsUtf8(L"MAODBC.DLL", L"DSN=arquivo"));
  EXPECT_FALSE(TextIsUtf8(L"libmaodbc.so", L"Driver={MariaDB Unicode};CharSet=latin1;"));
  EXPECT_FALSE(TextIsUtf8(L"sqlite3odbc.so", L"Driver={SQLite3}"));
}

TEST(UnitsReadBeyond, OneForEachUnitThatLooksLikeHalfAPair) {
  EXPECT_EQ(UnitsReadBeyond(u""), 0U);
  EXPECT_EQ(UnitsReadBeyond(u"Ação à mão, ×Üß"), 0U);
  EXPECT_EQ(UnitsReadBeyond(u"ÚLTIMA Ú ØÙÛ"), 5U);
  EXPECT_EQ(UnitsReadBeyond(u"\u06D9\u06DC"), 1U);
}

TEST(OnlyReads, ASelectMayRunTwice) {
  EXPECT_TRUE(OnlyReads(L"select 1"));
  EXPECT_TRUE(OnlyReads(L"  (SELECT replace(a,'x','y') from t)"));
  EXPECT_TRUE(OnlyReads(L"values (1)"));
  EXPECT_TRUE(OnlyReads(L"with q as (select 1) select * from q"));
}

TEST(OnlyReads, AStatementThatMayWriteMayNotRunTwice) {
  EXPECT_FALSE(OnlyReads(L"insert into t values(1) returning a"));
  EXPECT_FALSE(OnlyReads(L"with q as (select 1) insert into t select * from q returning a"));
  EXPECT_FALSE(OnlyReads(L"pragma user_version"));
  EXPECT_FALSE(OnlyReads(L""));
}

TEST(StatementText, ATableNameBecomesASelect) {
  EXPECT_EQ(StatementText(L"DEPTO", ad::kCmdTable, ad::kCmdUnknown, 0), L"select * from DEPTO");
  EXPECT_EQ(StatementText(L"DEPTO", ad::kUnspecified, ad::kCmdTableDirect, 0), L"select * from DEPTO");
}

TEST(StatementText, AProcedureBecomesACallWithAMarkForEachParameter) {
  EXPECT_EQ(StatementText(L"p", ad::kCmdStoredProc, ad::kCmdUnknown, 0), L"{call p}");
  EXPECT_EQ(StatementText(L"p", ad::kUnspecified, ad::kCmdStoredProc, 2), L"{call p(?,?)}");
}

TEST(StatementText, TextIsTheStatementItself) {
  EXPECT_EQ(StatementText(L"select 1", ad::kCmdText, ad::kCmdTable, 0), L"select 1");
  EXPECT_EQ(StatementText(L"select 1", ad::kExecuteNoRecords, ad::kCmdUnknown, 0), L"select 1");
}

TEST(StatementText, NoTextRaises) {
  EXPECT_EQ(tests::RaisedBy([] { StatementText(L"", ad::kCmdText, ad::kCmdUnknown, 0); }),
            (tests::Raised{static_cast<std::int32_t>(0x80040E0CU), L"Microsoft OLE DB Provider for ODBC Drivers",
                           L"Command text was not set for the command object."}));
}

TEST(Utf8Locale, TheThreadsCharacterSetIsUtf8WhileItLivesAndTheFormerOneAfterwards) {
  const std::string former = nl_langinfo(CODESET);
  {
    const Utf8Locale utf8;
    EXPECT_STREQ(nl_langinfo(CODESET), "UTF-8");
  }
  EXPECT_EQ(nl_langinfo(CODESET), former);
}

TEST(Utf8Locale, OneInsideAnotherLeavesTheOuterOneInForce) {
  const Utf8Locale outer;
  { const Utf8Locale inner; }
  EXPECT_STREQ(nl_langinfo(CODESET), "UTF-8");
}

}  // namespace
}  // namespace kodra::odbc
