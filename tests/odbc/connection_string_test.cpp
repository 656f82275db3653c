#include "odbc/engine/connection_string.h"

#include <gtest/gtest.h>

#include "tests/odbc/raised.h"

namespace kodra::odbc {
namespace {

using tests::Raised;
using tests::RaisedBy;

std::wstring Odbc(const std::wstring& text) { return ToOdbcConnectionString(text, L"", L""); }

const Raised kMalformed{static_cast<std::int32_t>(0x80040E73U), L"Microsoft OLE DB Service Components",
                        L"Format of the initialization string does not conform to the OLE DB specification."};

// A connection string, and its conversion for ODBC.
struct Translation {
  const char* name;
  const wchar_t* given;
  const wchar_t* odbc;
};

const Translation kTranslations[] = {
    {"AnOdbcStringPassesAsItIs", L"Driver={SQLite3};Database=/tmp/arquivo.db;OEMCP=1;FKSupport=true;",
     L"Driver={SQLite3};Database=/tmp/arquivo.db;OEMCP=1;FKSupport=true;"},
    {"ProviderAndPersistSecurityInfoAreDroppedInAnyLetterCase",
     L"PROVIDER=MSDASQL.1;persist security info=True;DSN=Arquivo", L"DSN=Arquivo;"},
    {"ExtendedPropertiesAreSplicedInWhereTheyAre",
     L"Provider=MSDASQL;Extended Properties=\"Driver={SQLite3};Database=/tmp/a.db\";OEMCP=1;",
     L"Driver={SQLite3};Database=/tmp/a.db;OEMCP=1;"},
    {"QuotesDoubledInsideExtendedPropertiesEncloseAValueThere",
     L"Extended Properties=\"DSN=X;IgnoreWarnList=\"\"'02000'\"\";\"", L"DSN=X;IgnoreWarnList='02000';"},
    {"UserPasswordAndCatalogGetOdbcNames", L"Data Source=Arquivo;User ID=ana;Password=segredo;Initial Catalog=arq",
     L"DSN=Arquivo;UID=ana;PWD=segredo;DATABASE=arq;"},
    {"ADataSourceIsDroppedBesideADriver", L"Data Source=x;Driver={SQLite3};Database=/tmp/a.db",
     L"Driver={SQLite3};Database=/tmp/a.db;"},
    {"TheDriversOwnKeyCountsBeforeOleDbsNameForIt", L"User ID=ana;UID=bia;Initial Catalog=x;DATABASE=y",
     L"UID=bia;DATABASE=y;"},
    {"UnknownKeysPassOn", L"DSN=D;IgnoreWarnList=\"'02000'\";Patch1=1024;Min Pool Size=5;",
     L"DSN=D;IgnoreWarnList='02000';Patch1=1024;Min Pool Size=5;"},
    {"EmptyPairsAndBlanksAreSkipped", L";; ;DSN = Arquivo ; ;;OEMCP= 1;", L"DSN=Arquivo;OEMCP=1;"},
    {"AnEmptyValueStaysEmpty", L"DSN=D;Password=;", L"DSN=D;PWD=;"},
    {"ValuesMayBeInDoubleOrSingleQuotes", L"DSN='Arquivo Geral';UID=\"ana\";", L"DSN=Arquivo Geral;UID=ana;"},
    {"AQuotedValueThatContainsASemicolonIsPassedOnInBraces", L"DSN=D;PWD=\"a;b}c\";", L"DSN=D;PWD={a;b}}c};"},
    {"BracesAreKeptWithTheirContent", L"Driver={MariaDB Unicode};PWD={a;b}}c};",
     L"Driver={MariaDB Unicode};PWD={a;b}}c};"},
    {"AValueMayContainAnEqualsSign", L"DSN=D;PWD=a=b", L"DSN=D;PWD=a=b;"},
    {"AnEmptyStringStaysEmpty", L"", L""},
    {"AccentsPass", L"Driver={SQLite3};Database=/tmp/depósito ç.db", L"Driver={SQLite3};Database=/tmp/depósito ç.db;"},
};

class ConnectionStringTest : public testing::TestWithParam<Translation> {};
INSTANTIATE_TEST_SUITE_P(Translations, ConnectionStringTest, testing::ValuesIn(kTranslations),
                         [](const auto& info) { return info.param.name; });

TEST_P(ConnectionStringTest, BecomesOneForOdbc) { EXPECT_EQ(Odbc(GetParam().given), GetParam().odbc); }

TEST(ConnectionString, BracesThatDoNotEncloseTheWholeValueAreEnclosedThemselves) {
  EXPECT_EQ(Odbc(L"DSN=D;PWD=\"{a}b}\";"), L"DSN=D;PWD={{a}}b}}};");
  EXPECT_EQ(Odbc(L"DSN=D;PWD='{}}';"), L"DSN=D;PWD={{}}}}};");
  EXPECT_EQ(ToOdbcConnectionString(L"DSN=D;", L"", L"{a};b}"), L"DSN=D;PWD={{a}};b}}};");
}

TEST(ConnectionString, UserAndPasswordGivenAtOpenReplaceTheStrings) {
  EXPECT_EQ(ToOdbcConnectionString(L"DSN=D;UID=ana;Password=x;", L"bia", L"y"), L"DSN=D;UID=bia;PWD=y;");
}

TEST(ConnectionString, AnEmptyUserLeavesTheStrings) {
  EXPECT_EQ(ToOdbcConnectionString(L"DSN=D;UID=ana;", L"", L""), L"DSN=D;UID=ana;");
}

TEST(ConnectionString, APairWithoutAnEqualsSignIsMalformed) {
  EXPECT_EQ(RaisedBy([] { Odbc(L"DSN=D;arquivo"); }), kMalformed);
  EXPECT_EQ(RaisedBy([] { Odbc(L"arquivo;DSN=D"); }), kMalformed);
}

TEST(ConnectionString, AnUnclosedValueIsMalformed) {
  EXPECT_EQ(RaisedBy([] { Odbc(L"DSN=\"D;UID=x"); }), kMalformed);
  EXPECT_EQ(RaisedBy([] { Odbc(L"Driver={D;UID=x"); }), kMalformed);
}

TEST(ConnectionString, ExtendedPropertiesInsideExtendedPropertiesAreMalformed) {
  EXPECT_EQ(RaisedBy([] { Odbc(L"Extended Properties=\"Extended Properties='DSN=D'\""); }), kMalformed);
  std::wstring deep;
  for (int i = 0; i < 100000; ++i) deep += L"Extended Properties=";
  EXPECT_EQ(RaisedBy([&] { Odbc(deep); }), kMalformed);
}

TEST(ConnectionString, TextAfterAClosingQuoteIsMalformed) {
  EXPECT_EQ(RaisedBy([] { Odbc(L"DSN=\"D\"x;"); }), kMalformed);
}

}  // namespace
}  // namespace kodra::odbc
