// Connection strings: their preparation by PreAbreCn, the values of their keys, and replacements in them.
#include "data/connection_string.h"

#include <gtest/gtest.h>

#include "tests/recorder/fake_surroundings.h"
#include "tests/recorder/raised.h"

namespace kodra::data {
namespace {

using recorder::FakeSurroundings;
using recorder::kOverflow;
using recorder::Lines;
using recorder::Raised;
using recorder::RaisedBy;
using recorder::Utf8;

const std::string kSetsNlsLang = Lines({R"(SetEnvironment("NLS_LANG", "BRAZILIAN PORTUGUESE_BRAZIL.WE8MSWIN1252"))"});
const std::string kMeasuresFile = Lines({R"(FileLength("a.db") -> 4096)"});

class PreAbreCnTest : public testing::Test {
 protected:
  PreAbreCnTest() {
    around_.files = {
        {L"a.db", 4096}, {L"C:\\dados\\arquivo.db", 1}, {L"C:\\grande.db", 4294967296}, {L"C:\\vazio.db", 0}};
    around_.folders = {L"C:\\dados"};
  }

  std::string Prepared(std::wstring connectionString) {
    PreAbreCn(connectionString, around_);
    return Utf8(connectionString);
  }
  // Expects that prepared string and those calls.
  void Check(const wchar_t* given, const std::string& prepared, const std::string& calls = "") {
    around_.journal.Forget();
    EXPECT_EQ(Prepared(given), prepared);
    EXPECT_EQ(around_.journal.Calls(), calls);
  }

  FakeSurroundings around_;
};

// A client's string, the prepared string, and the calls that the preparation makes.
struct Preparation {
  const char* name;
  const wchar_t* given;
  const char* prepared;
  std::string calls = "";
};

const Preparation kPreparations[] = {
    {"AddsOnlyTheCommonPairForSQLServer", L"Provider=SQLNCLI11;Data Source=arquivo",
     "Provider=SQLNCLI11;Data Source=arquivo;Persist Security Info=True;"},
    {"AddsOnlyTheCommonPairForMySQL", L"Driver={MySQL ODBC 8.0 Unicode Driver};Server=arquivo",
     "Driver={MySQL ODBC 8.0 Unicode Driver};Server=arquivo;Persist Security Info=True;"},
    {"KeepsAFinalSemicolonAsItIs", L"Provider=SQLNCLI11;", "Provider=SQLNCLI11;Persist Security Info=True;"},
    {"EndsTheEmptyStringWithASemicolonToo", L"", ";Persist Security Info=True;"},
    {"AddsASemicolonAfterATrailingBlank", L"Provider=SQLNCLI11; ", "Provider=SQLNCLI11; ;Persist Security Info=True;"},
    {"KeepsPersistSecurityInfoInAnyLetterCaseWithAnyValue", L"Provider=SQLNCLI11;PERSIST security INFO=False",
     "Provider=SQLNCLI11;PERSIST security INFO=False;"},
    {"KeepsAnOraclePoolSizeInAnyLetterCase", L"Provider=MSDAORA;MIN pool SIZE=1",
     "Provider=MSDAORA;MIN pool SIZE=1;Persist Security Info=True;", kSetsNlsLang},
    {"KeepsADB2WarningListInAnyLetterCase", L"Provider=IBMDADB2;ignorewarnlist=x;",
     "Provider=IBMDADB2;ignorewarnlist=x;Persist Security Info=True;Patch1=1024;"},
    {"KeepsADB2PatchInAnyLetterCase", L"Provider=IBMDADB2;PATCH1=2;",
     R"(Provider=IBMDADB2;PATCH1=2;Persist Security Info=True;IgnoreWarnList="'02000'";)"},
    {"AddsEncodingAndForeignKeysForSQLite", L"Driver={SQLite3 ODBC Driver};Database=C:\\dados\\arquivo.db",
     "Driver={SQLite3 ODBC Driver};Database=C:\\dados\\arquivo.db;Persist Security Info=True;"
     "OEMCP=1;FKSupport=true;",
     Lines({R"(FileLength("C:\dados\arquivo.db") -> 1)"})},
    {"RecognisesSQLiteInAnyLetterCase", L"driver=sqlite;database=a.db;",
     "driver=sqlite;database=a.db;Persist Security Info=True;OEMCP=1;FKSupport=true;", kMeasuresFile},
    {"KeepsSQLiteForeignKeysInAnyLetterCase", L"Driver=SQLite3;Database=a.db;fksupport=false;",
     "Driver=SQLite3;Database=a.db;fksupport=false;Persist Security Info=True;OEMCP=1;", kMeasuresFile},
    {"AcceptsAnSQLiteFileOfFourGigabytes", L"Driver=SQLite3;Database=C:\\grande.db;",
     "Driver=SQLite3;Database=C:\\grande.db;Persist Security Info=True;OEMCP=1;FKSupport=true;",
     Lines({R"(FileLength("C:\grande.db") -> 4294967296)"})},
    {"TreatsAStringWithDB2AndSQLiteWordsAsDB2Only", L"Provider=IBMDADB2;Database=SQLITE;",
     R"(Provider=IBMDADB2;Database=SQLITE;Persist Security Info=True;IgnoreWarnList="'02000'";Patch1=1024;)"},
};

class PreAbreCnStringTest : public PreAbreCnTest, public testing::WithParamInterface<Preparation> {};
INSTANTIATE_TEST_SUITE_P(Strings, PreAbreCnStringTest, testing::ValuesIn(kPreparations),
                         [](const auto& info) { return info.param.name; });

TEST_P(PreAbreCnStringTest, IsPrepared) { Check(GetParam().given, GetParam().prepared, GetParam().calls); }

TEST_F(PreAbreCnTest, AddsAPoolToAnOracleStringAndSetsTheLanguageOfTheProcess) {
  Check(L"Provider=MSDAORA;Data Source=ARQ",
        "Provider=MSDAORA;Data Source=ARQ;Persist Security Info=True;"
        "Min Pool Size=5;Incr Pool Size=3;Decr Pool Size=3;",
        kSetsNlsLang);
}

TEST_F(PreAbreCnTest, RecognisesOracleByEitherWordInAnyLetterCaseAnywhere) {
  for (const wchar_t* words : {L"Provider=OraOLEDB.Oracle;", L"provider=msdaora.1;", L"Server=my_oracle_host;"})
    Check(words, Utf8(words) + "Persist Security Info=True;Min Pool Size=5;Incr Pool Size=3;Decr Pool Size=3;",
          kSetsNlsLang);
}

TEST_F(PreAbreCnTest, TreatsAStringWithOracleAndOtherWordsAsOracleOnly) {
  Check(L"Provider=MSDAORA;Data Source=IBMDADB2;Database=SQLite;",
        "Provider=MSDAORA;Data Source=IBMDADB2;Database=SQLite;Persist Security Info=True;"
        "Min Pool Size=5;Incr Pool Size=3;Decr Pool Size=3;",
        kSetsNlsLang);
}

TEST_F(PreAbreCnTest, RecognisesDB2ByEachOfItsWordsAndAddsWarningListAndPatch) {
  for (const wchar_t* words : {L"Provider=IBMDADB2.DB2COPY1;", L"Provider=ibmdadb2;", L"Driver={iSeries Access};",
                               L"Driver={IBM i Access ODBC Driver};", L"Driver={IBM DB2 ODBC DRIVER};"})
    Check(words, Utf8(words) + R"(Persist Security Info=True;IgnoreWarnList="'02000'";Patch1=1024;)");
}

TEST_F(PreAbreCnTest, RepeatsAnSQLiteEncodingThatIsAlreadyThere) {
  Check(L"Driver=SQLite3;Database=a.db;OEMCP=1;",
        "Driver=SQLite3;Database=a.db;OEMCP=1;Persist Security Info=True;OEMCP=1;FKSupport=true;", kMeasuresFile);
}

// An SQLite string whose file cannot be used.
struct Refusal {
  const char* name;
  const wchar_t* given;
  std::int32_t number;
  const char* description;
  const char* call;
};

const Refusal kRefusals[] = {
    {"AMissingFile", L"Driver=SQLite3;Database=C:\\nada.db;", kErrBase + 1,
     R"(Banco de dados "C:\nada.db" não encontrado.)", R"(FileLength("C:\nada.db") -> none)"},
    {"AFileWithoutAByte", L"Driver=SQLite3;Database=C:\\vazio.db;", kErrBase + 2,
     R"(Banco de dados "C:\vazio.db" danificado.)", R"(FileLength("C:\vazio.db") -> 0)"},
    {"AFolder", L"Driver=SQLite3;Database=C:\\dados;", kErrBase + 2, R"(Banco de dados "C:\dados" danificado.)",
     R"(FileLength("C:\dados") -> 0)"},
    {"TheEmptyPathWhereNoFileIsNamed", L"Driver=SQLite3;", kErrBase + 1, R"(Banco de dados "" não encontrado.)",
     R"(FileLength("") -> none)"},
    {"APathWithItsBlanks", L"Driver=SQLite3;Database= a.db ;", kErrBase + 1,
     R"(Banco de dados " a.db " não encontrado.)", R"(FileLength(" a.db ") -> none)"},
};

class PreAbreCnRefusalTest : public PreAbreCnTest, public testing::WithParamInterface<Refusal> {};
INSTANTIATE_TEST_SUITE_P(SQLiteFiles, PreAbreCnRefusalTest, testing::ValuesIn(kRefusals),
                         [](const auto& info) { return info.param.name; });

TEST_P(PreAbreCnRefusalTest, IsRaisedUnderItsSource) {
  EXPECT_EQ(RaisedBy([&] { Prepared(GetParam().given); }),
            (Raised{GetParam().number, "modADO::PreAbreCn", GetParam().description}));
  EXPECT_EQ(around_.journal.Calls(), Lines({GetParam().call}));
}

TEST_F(PreAbreCnTest, ReturnsTheSystemThatItPreparedTheStringFor) {
  const auto systemOf = [&](std::wstring connectionString) { return PreAbreCn(connectionString, around_); };
  EXPECT_EQ(systemOf(L""), DatabaseSystem::kOther);
  EXPECT_EQ(systemOf(L"Provider=SQLNCLI11;Data Source=arquivo"), DatabaseSystem::kOther);
  EXPECT_EQ(systemOf(L"Provider=msdaora;Data Source=IBMDADB2;"), DatabaseSystem::kOracle);
  EXPECT_EQ(systemOf(L"Provider=IBMDADB2;Database=SQLITE;"), DatabaseSystem::kDB2);
  EXPECT_EQ(systemOf(L"Driver=SQLite3;Database=a.db;"), DatabaseSystem::kSQLite);
}

TEST_F(PreAbreCnTest, RecognisesKeysAtTheEndOfALongString) {
  const std::wstring longValue(2000, L'x');
  EXPECT_EQ(
      Prepared(L"Extended Properties=" + longValue + L";Provider=MSDAORA;min pool size=1;persist security info=1"),
      "Extended Properties=" + Utf8(longValue) + ";Provider=MSDAORA;min pool size=1;persist security info=1;");
}

// The last position that a search may find, counted from 1.
constexpr std::size_t kLastPosition = 32767;

std::wstring Filler(std::size_t length) { return std::wstring(length, L'x'); }

// A text, a key and the value that is read for it.
struct Reading {
  const char* name;
  const wchar_t* text;
  const wchar_t* value;
  const wchar_t* key = L"Database";
};

const Reading kReadings[] = {
    {"TheEmptyTextForTheEmptyString", L"", L""},
    {"TheEmptyTextForAKeyThatIsNotThere", L"Driver=x;", L""},
    {"APairInTheMiddle", L"Driver=x;Database=a.db;UID=u;", L"a.db"},
    {"TheLastPairWithoutASemicolon", L"Driver=x;Database=a.db", L"a.db"},
    {"AKeyInAnyLetterCase", L"DATABASE=a.DB;", L"a.DB", L"dataBase"},
    {"AValueWithItsBlanks", L"Database =  a.db ;", L"  a.db "},
    {"TheEmptyTextWhenTheFirstMatchIsInAValue", L"Server=MyDatabase;Database=a.db;", L""},
    {"TheEmptyTextForAKeyWithoutAnEqualsSign", L"Database;UID=u;", L""},
    {"EverythingAfterTheFirstEqualsSign", L"Database=a=b;", L"a=b"},
    {"AnEmptyValue", L"Database=;", L""},
};

class ReadKeyValueTest : public testing::TestWithParam<Reading> {};
INSTANTIATE_TEST_SUITE_P(Texts, ReadKeyValueTest, testing::ValuesIn(kReadings),
                         [](const auto& info) { return info.param.name; });

TEST_P(ReadKeyValueTest, IsRead) { EXPECT_EQ(ReadKey(GetParam().text, GetParam().key), GetParam().value); }

TEST(ReadKeyTest, FindsTheKeyInsideALongerOneAndTakesTheFirst) {
  EXPECT_EQ(ReadKey(L"Default Database=um;Database=dois;", L"Database"), L"um");
  EXPECT_EQ(ReadKey(L"DatabaseFile=um;Database=dois;", L"Database"), L"um");
}

TEST(ReadKeyTest, ReadsAPairThatEndsAtTheLastPosition) {
  const std::wstring pair = L"Database=a;";
  EXPECT_EQ(ReadKey(Filler(kLastPosition - pair.size()) + pair, L"Database"), L"a");
}

TEST(ReadKeyTest, OverflowsForAPairThatEndsBeyondTheLastPosition) {
  const std::wstring pair = L"Database=a;";
  const std::wstring text = Filler(kLastPosition - pair.size() + 1) + pair;
  EXPECT_EQ(RaisedBy([&] { ReadKey(text, L"Database"); }), kOverflow);
}

TEST(ReadKeyTest, OverflowsForAKeyBeyondTheLastPosition) {
  const std::wstring text = Filler(kLastPosition) + L"Database=a;";
  EXPECT_EQ(RaisedBy([&] { ReadKey(text, L"Database"); }), kOverflow);
}

TEST(ReadKeyTest, FindsNoKeyInALongStringWithoutOverflow) {
  EXPECT_EQ(ReadKey(Filler(2 * kLastPosition), L"Database"), L"");
}

TEST(ReplaceAll, ReplacesEveryMatch) { EXPECT_EQ(ReplaceAll(L"a-b-c", L"-", L"+"), L"a+b+c"); }

TEST(ReplaceAll, ReturnsTheTextWithoutAMatch) { EXPECT_EQ(ReplaceAll(L"abc", L"-", L"+"), L"abc"); }

TEST(ReplaceAll, ReturnsTheTextForAnEqualReplacement) { EXPECT_EQ(ReplaceAll(L"abc", L"b", L"b"), L"abc"); }

TEST(ReplaceAll, ReturnsTheEmptyText) { EXPECT_EQ(ReplaceAll(L"", L"b", L"c"), L""); }

TEST(ReplaceAll, ResumesAfterTheInsertedText) {
  EXPECT_EQ(ReplaceAll(L";;;", L";;", L";"), L";;");
  EXPECT_EQ(ReplaceAll(L";;;;", L";;", L";"), L";;");
  EXPECT_EQ(ReplaceAll(L"aa", L"a", L"aa"), L"aaaa");
}

TEST(ReplaceAll, RemovesMatchesForAnEmptyReplacement) { EXPECT_EQ(ReplaceAll(L"a-b-", L"-", L""), L"ab"); }

}  // namespace
}  // namespace kodra::data
