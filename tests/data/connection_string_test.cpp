// What PreAbreCn makes of a client's connection string.
#include "data/connection_string.h"

#include <gtest/gtest.h>

#include "tests/recorder/fake_surroundings.h"
#include "tests/recorder/raised.h"

namespace kodra::data {
namespace {

using recorder::FakeSurroundings;
using recorder::Lines;
using recorder::Raised;
using recorder::RaisedBy;
using recorder::Utf8;

constexpr auto kSetsNlsLang = R"(SetEnvironment("NLS_LANG", "BRAZILIAN PORTUGUESE_BRAZIL.WE8MSWIN1252"))";

class PreAbreCnTest : public testing::Test {
 protected:
  std::string Prepared(std::wstring connectionString) {
    PreAbreCn(connectionString, around_);
    return Utf8(connectionString);
  }

  FakeSurroundings around_;
};

TEST_F(PreAbreCnTest, AddsOnlyTheCommonPairForAnotherDatabase) {
  EXPECT_EQ(Prepared(L"Provider=SQLNCLI11;Data Source=arquivo"),
            "Provider=SQLNCLI11;Data Source=arquivo;Persist Security Info=True;");
  EXPECT_EQ(Prepared(L"Driver={MySQL ODBC 8.0 Unicode Driver};Server=arquivo"),
            "Driver={MySQL ODBC 8.0 Unicode Driver};Server=arquivo;Persist Security Info=True;");
  EXPECT_EQ(around_.journal.Calls(), "");
}

TEST_F(PreAbreCnTest, KeepsAFinalSemicolonAsItIs) {
  EXPECT_EQ(Prepared(L"Provider=SQLNCLI11;"), "Provider=SQLNCLI11;Persist Security Info=True;");
}

TEST_F(PreAbreCnTest, EndsTheEmptyStringWithASemicolonToo) { EXPECT_EQ(Prepared(L""), ";Persist Security Info=True;"); }

TEST_F(PreAbreCnTest, AddsASemicolonAfterATrailingBlank) {
  EXPECT_EQ(Prepared(L"Provider=SQLNCLI11; "), "Provider=SQLNCLI11; ;Persist Security Info=True;");
}

TEST_F(PreAbreCnTest, KeepsPersistSecurityInfoInAnyLetterCaseWithAnyValue) {
  EXPECT_EQ(Prepared(L"Provider=SQLNCLI11;PERSIST security INFO=False"),
            "Provider=SQLNCLI11;PERSIST security INFO=False;");
}

TEST_F(PreAbreCnTest, GivesAnOracleStringItsPoolAndTheProcessItsLanguage) {
  EXPECT_EQ(Prepared(L"Provider=MSDAORA;Data Source=ARQ"),
            "Provider=MSDAORA;Data Source=ARQ;Persist Security Info=True;"
            "Min Pool Size=5;Incr Pool Size=3;Decr Pool Size=3;");
  EXPECT_EQ(around_.journal.Calls(), Lines({kSetsNlsLang}));
}

TEST_F(PreAbreCnTest, KnowsOracleByEitherWordInAnyLetterCaseAnywhere) {
  for (const wchar_t* words : {L"Provider=OraOLEDB.Oracle;", L"provider=msdaora.1;", L"Server=my_oracle_host;"}) {
    around_.journal.Forget();
    EXPECT_EQ(Prepared(words), Utf8(words) +
                                   "Persist Security Info=True;"
                                   "Min Pool Size=5;Incr Pool Size=3;Decr Pool Size=3;");
    EXPECT_EQ(around_.journal.Calls(), Lines({kSetsNlsLang}));
  }
}

TEST_F(PreAbreCnTest, KeepsAnOraclePoolSizeInAnyLetterCase) {
  EXPECT_EQ(Prepared(L"Provider=MSDAORA;MIN pool SIZE=1"),
            "Provider=MSDAORA;MIN pool SIZE=1;Persist Security Info=True;");
  EXPECT_EQ(around_.journal.Calls(), Lines({kSetsNlsLang}));
}

TEST_F(PreAbreCnTest, GivesADB2StringItsWarningListAndThenItsPatch) {
  for (const wchar_t* words : {L"Provider=IBMDADB2.DB2COPY1;", L"Provider=ibmdadb2;", L"Driver={iSeries Access};",
                               L"Driver={IBM i Access ODBC Driver};", L"Driver={IBM DB2 ODBC DRIVER};"}) {
    EXPECT_EQ(Prepared(words), Utf8(words) + R"(Persist Security Info=True;IgnoreWarnList="'02000'";Patch1=1024;)");
  }
  EXPECT_EQ(around_.journal.Calls(), "");
}

TEST_F(PreAbreCnTest, KeepsADB2WarningListInAnyLetterCase) {
  EXPECT_EQ(Prepared(L"Provider=IBMDADB2;ignorewarnlist=x;"),
            "Provider=IBMDADB2;ignorewarnlist=x;Persist Security Info=True;Patch1=1024;");
}

TEST_F(PreAbreCnTest, KeepsADB2PatchInAnyLetterCase) {
  EXPECT_EQ(Prepared(L"Provider=IBMDADB2;PATCH1=2;"),
            R"(Provider=IBMDADB2;PATCH1=2;Persist Security Info=True;IgnoreWarnList="'02000'";)");
}

TEST_F(PreAbreCnTest, GivesAnSQLiteStringItsEncodingAndThenItsForeignKeys) {
  around_.files[L"C:\\dados\\arquivo.db"] = 1;
  EXPECT_EQ(Prepared(L"Driver={SQLite3 ODBC Driver};Database=C:\\dados\\arquivo.db"),
            "Driver={SQLite3 ODBC Driver};Database=C:\\dados\\arquivo.db;Persist Security Info=True;"
            "OEMCP=1;FKSupport=true;");
  EXPECT_EQ(around_.journal.Calls(), Lines({R"(FileLength("C:\dados\arquivo.db") -> 1)"}));
}

TEST_F(PreAbreCnTest, KnowsSQLiteInAnyLetterCase) {
  around_.files[L"a.db"] = 4096;
  EXPECT_EQ(Prepared(L"driver=sqlite;database=a.db;"),
            "driver=sqlite;database=a.db;Persist Security Info=True;OEMCP=1;FKSupport=true;");
}

TEST_F(PreAbreCnTest, RepeatsAnSQLiteEncodingThatIsThereAlready) {
  around_.files[L"a.db"] = 4096;
  EXPECT_EQ(Prepared(L"Driver=SQLite3;Database=a.db;OEMCP=1;"),
            "Driver=SQLite3;Database=a.db;OEMCP=1;Persist Security Info=True;OEMCP=1;FKSupport=true;");
}

TEST_F(PreAbreCnTest, KeepsSQLiteForeignKeysInAnyLetterCase) {
  around_.files[L"a.db"] = 4096;
  EXPECT_EQ(Prepared(L"Driver=SQLite3;Database=a.db;fksupport=false;"),
            "Driver=SQLite3;Database=a.db;fksupport=false;Persist Security Info=True;OEMCP=1;");
}

TEST_F(PreAbreCnTest, RaisesForAnSQLiteFileThatIsMissing) {
  EXPECT_EQ(RaisedBy([&] { Prepared(L"Driver=SQLite3;Database=C:\\nada.db;"); }),
            (Raised{kErrBase + 1, "modADO::PreAbreCn", R"(Banco de dados "C:\nada.db" não encontrado.)"}));
}

TEST_F(PreAbreCnTest, RaisesForAnSQLiteFileWithoutAByte) {
  around_.files[L"C:\\vazio.db"] = 0;
  EXPECT_EQ(RaisedBy([&] { Prepared(L"Driver=SQLite3;Database=C:\\vazio.db;"); }),
            (Raised{kErrBase + 2, "modADO::PreAbreCn", R"(Banco de dados "C:\vazio.db" danificado.)"}));
}

TEST_F(PreAbreCnTest, RaisesForAFolderInPlaceOfAnSQLiteFile) {
  around_.folders = {L"C:\\dados"};
  EXPECT_EQ(RaisedBy([&] { Prepared(L"Driver=SQLite3;Database=C:\\dados;"); }),
            (Raised{kErrBase + 2, "modADO::PreAbreCn", R"(Banco de dados "C:\dados" danificado.)"}));
}

TEST_F(PreAbreCnTest, TakesAnSQLiteFileOfFourGigabytesForAWholeOne) {
  around_.files[L"C:\\grande.db"] = 4294967296;
  EXPECT_EQ(Prepared(L"Driver=SQLite3;Database=C:\\grande.db;"),
            "Driver=SQLite3;Database=C:\\grande.db;Persist Security Info=True;OEMCP=1;FKSupport=true;");
}

TEST_F(PreAbreCnTest, LooksForAnEmptyPathWhenAnSQLiteStringNamesNoFile) {
  EXPECT_EQ(RaisedBy([&] { Prepared(L"Driver=SQLite3;"); }),
            (Raised{kErrBase + 1, "modADO::PreAbreCn", R"(Banco de dados "" não encontrado.)"}));
  EXPECT_EQ(around_.journal.Calls(), Lines({R"(FileLength("") -> none)"}));
}

TEST_F(PreAbreCnTest, LooksForThePathWithItsBlanks) {
  EXPECT_EQ(RaisedBy([&] { Prepared(L"Driver=SQLite3;Database= a.db ;"); }),
            (Raised{kErrBase + 1, "modADO::PreAbreCn", R"(Banco de dados " a.db " não encontrado.)"}));
}

TEST_F(PreAbreCnTest, TakesAStringWithOracleAndOtherWordsForOracleOnly) {
  EXPECT_EQ(Prepared(L"Provider=MSDAORA;Data Source=IBMDADB2;Database=SQLite;"),
            "Provider=MSDAORA;Data Source=IBMDADB2;Database=SQLite;Persist Security Info=True;"
            "Min Pool Size=5;Incr Pool Size=3;Decr Pool Size=3;");
  EXPECT_EQ(around_.journal.Calls(), Lines({kSetsNlsLang}));
}

TEST_F(PreAbreCnTest, TakesAStringWithDB2AndSQLiteWordsForDB2Only) {
  EXPECT_EQ(Prepared(L"Provider=IBMDADB2;Database=SQLITE;"),
            R"(Provider=IBMDADB2;Database=SQLITE;Persist Security Info=True;IgnoreWarnList="'02000'";Patch1=1024;)");
  EXPECT_EQ(around_.journal.Calls(), "");
}

TEST_F(PreAbreCnTest, GivesTheSystemThatItPreparedTheStringFor) {
  around_.files[L"a.db"] = 1;
  const auto systemOf = [&](std::wstring connectionString) { return PreAbreCn(connectionString, around_); };
  EXPECT_EQ(systemOf(L""), DatabaseSystem::kOther);
  EXPECT_EQ(systemOf(L"Provider=SQLNCLI11;Data Source=arquivo"), DatabaseSystem::kOther);
  EXPECT_EQ(systemOf(L"Provider=msdaora;Data Source=IBMDADB2;"), DatabaseSystem::kOracle);
  EXPECT_EQ(systemOf(L"Provider=IBMDADB2;Database=SQLITE;"), DatabaseSystem::kDB2);
  EXPECT_EQ(systemOf(L"Driver=SQLite3;Database=a.db;"), DatabaseSystem::kSQLite);
}

TEST_F(PreAbreCnTest, FindsWhatStandsAtTheEndOfALongString) {
  const std::wstring longValue(2000, L'x');
  EXPECT_EQ(
      Prepared(L"Extended Properties=" + longValue + L";Provider=MSDAORA;min pool size=1;persist security info=1"),
      "Extended Properties=" + Utf8(longValue) + ";Provider=MSDAORA;min pool size=1;persist security info=1;");
}

}  // namespace
}  // namespace kodra::data
