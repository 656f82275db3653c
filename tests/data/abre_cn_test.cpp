// Opening a connection.
#include "data/abre_cn.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/recorder/fake_surroundings.h"
#include "tests/recorder/raised.h"

namespace kodra::data {
namespace {

namespace ad = platform::ad;
using recorder::Failure;
using recorder::FakeSurroundings;
using recorder::Lines;
using recorder::Raised;
using recorder::RaisedBy;

constexpr auto kSQLServer = L"Provider=SQLNCLI11;Data Source=arquivo";
constexpr auto kOracle = L"Provider=MSDAORA;Data Source=ARQ";

constexpr auto kSetsSQLiteString =
    "Connection1.SetConnectionString(\"Driver=SQLite3;Database=a.db;Persist Security Info=True;"
    "OEMCP=1;FKSupport=true;\")";
constexpr auto kSetsOracleString =
    "Connection1.SetConnectionString(\"Provider=MSDAORA;Data Source=ARQ;Persist Security Info=True;"
    "Min Pool Size=5;Incr Pool Size=3;Decr Pool Size=3;\")";
constexpr auto kSetsOracleLanguage =
    "Connection1.Execute(\"alter session set nls_language='brazilian portuguese' nls_territory='brazil'\", -1)";

const Erro kRefused(-2147467259, L"Microsoft OLE DB Provider", L"Acesso negado");

class AbreCnTest : public testing::Test {
 protected:
  std::unique_ptr<platform::Connection> Opened(const std::wstring& connectionString,
                                               std::int32_t cursorLocation = ad::kUseServer,
                                               std::int32_t isolationLevel = ad::kXactReadCommitted) {
    return AbreCn(connectionString, cursorLocation, isolationLevel, around_);
  }

  Raised RaisedFor(const std::wstring& connectionString) {
    return RaisedBy([&] { Opened(connectionString); });
  }

  FakeSurroundings around_;
};

TEST_F(AbreCnTest, ReturnsNullForTheEmptyStringWithoutACall) {
  EXPECT_EQ(Opened(L""), nullptr);
  EXPECT_EQ(around_.journal.Calls(), "");
}

TEST_F(AbreCnTest, OpensThePreparedStringStepByStep) {
  EXPECT_NE(Opened(kSQLServer), nullptr);
  EXPECT_EQ(
      around_.journal.Calls(),
      Lines({
          "NewConnection() -> Connection1",
          R"(Connection1.SetConnectionString("Provider=SQLNCLI11;Data Source=arquivo;Persist Security Info=True;"))",
          "Connection1.SetCursorLocation(2)",
          "Connection1.SetIsolationLevel(4096)",
          R"(Connection1.Open("", "", -1))",
          "~Connection1",
      }));
  EXPECT_EQ(around_.journal.LiveObjects(), 0);
}

TEST_F(AbreCnTest, ChecksTheSQLiteFileBeforeItCreatesAConnection) {
  around_.files[L"a.db"] = 4096;
  EXPECT_NE(Opened(L"Driver=SQLite3;Database=a.db"), nullptr);
  EXPECT_EQ(around_.journal.Calls(), Lines({
                                         R"(FileLength("a.db") -> 4096)",
                                         "NewConnection() -> Connection1",
                                         kSetsSQLiteString,
                                         "Connection1.SetCursorLocation(2)",
                                         "Connection1.SetIsolationLevel(4096)",
                                         R"(Connection1.Open("", "", -1))",
                                         "~Connection1",
                                     }));
}

TEST_F(AbreCnTest, SetsTheLanguageOfAnOracleSessionThatIsOpen) {
  EXPECT_NE(Opened(kOracle), nullptr);
  EXPECT_EQ(around_.journal.Calls(), Lines({
                                         R"(SetEnvironment("NLS_LANG", "BRAZILIAN PORTUGUESE_BRAZIL.WE8MSWIN1252"))",
                                         "NewConnection() -> Connection1",
                                         kSetsOracleString,
                                         "Connection1.SetCursorLocation(2)",
                                         "Connection1.SetIsolationLevel(4096)",
                                         R"(Connection1.Open("", "", -1))",
                                         "Connection1.State() -> 1",
                                         kSetsOracleLanguage,
                                         "~Connection1",
                                     }));
}

TEST_F(AbreCnTest, SetsNoLanguageForAnOracleSessionThatIsNotOpen) {
  for (const std::int32_t state : {0, 2}) {  // closed, still connecting
    around_.journal.Forget();
    around_.ado.connectionState = state;
    EXPECT_NE(Opened(kOracle), nullptr);
    EXPECT_TRUE(around_.journal.Calls().ends_with("Connection1.Open(\"\", \"\", -1)\nConnection1.State() -> " +
                                                  std::to_string(state) + "\n~Connection1\n"))
        << around_.journal.Calls();
  }
}

TEST_F(AbreCnTest, KeepsTheConnectionHoweverSettingTheOracleLanguageFails) {
  for (const auto* call : {L"Connection1.State", L"Connection1.Execute"}) {
    for (const auto& failure :
         {Failure(kRefused), Failure(std::bad_alloc()), Failure(std::runtime_error("unexpected"))}) {
      around_.journal.Forget();
      around_.journal.FailOn(call, failure);
      EXPECT_NE(Opened(kOracle), nullptr);
      EXPECT_TRUE(around_.journal.FailedCall().starts_with(call));
    }
  }
}

struct Cleaning {
  const wchar_t* given;
  const char* opened;
};

class AbreCnCleaningTest : public AbreCnTest, public testing::WithParamInterface<Cleaning> {};

TEST_P(AbreCnCleaningTest, RemovesEmptyPairsInOnePassEach) {
  Opened(GetParam().given);
  EXPECT_NE(
      around_.journal.Calls().find(std::string("Connection1.SetConnectionString(\"") + GetParam().opened + "\")\n"),
      std::string::npos)
      << around_.journal.Calls();
}

INSTANTIATE_TEST_SUITE_P(Strings, AbreCnCleaningTest,
                         testing::Values(Cleaning{L"a=1;;b=2;", "a=1;b=2;Persist Security Info=True;"},
                                         Cleaning{L"a=1;;;b=2;", "a=1;;b=2;Persist Security Info=True;"},
                                         Cleaning{L"a=1;;;;b=2;", "a=1;;b=2;Persist Security Info=True;"},
                                         Cleaning{L"a=1; ;b=2;", "a=1;b=2;Persist Security Info=True;"},
                                         Cleaning{L"a=1; ; ;b=2;", "a=1; ;b=2;Persist Security Info=True;"},
                                         Cleaning{L"a=1;; ;b=2;", "a=1;b=2;Persist Security Info=True;"},
                                         Cleaning{L"a=1; ;;b=2;", "a=1;b=2;Persist Security Info=True;"},
                                         Cleaning{L"a=1; ", "a=1;Persist Security Info=True;"},
                                         Cleaning{L"a=1;  ;b=2;", "a=1;  ;b=2;Persist Security Info=True;"},
                                         Cleaning{L" ", " ;Persist Security Info=True;"}));

TEST_F(AbreCnTest, ReplacesALowerCursorLocationByTheServers) {
  for (const auto& [asked, set] :
       {std::pair(-1, 2), std::pair(0, 2), std::pair(1, 2), std::pair(2, 2), std::pair(3, 3)}) {
    around_.journal.Forget();
    Opened(kSQLServer, asked);
    EXPECT_NE(around_.journal.Calls().find("Connection1.SetCursorLocation(" + std::to_string(set) + ")\n"),
              std::string::npos)
        << asked;
  }
}

TEST_F(AbreCnTest, TreatsIsolationLevelZeroAsReadCommitted) {
  for (const auto& [asked, set] : {std::pair(0, 4096), std::pair(4096, 4096), std::pair(256, 256), std::pair(-1, -1)}) {
    around_.journal.Forget();
    Opened(kSQLServer, ad::kUseServer, asked);
    EXPECT_NE(around_.journal.Calls().find("Connection1.SetIsolationLevel(" + std::to_string(set) + ")\n"),
              std::string::npos)
        << asked;
  }
}

TEST_F(AbreCnTest, RaisesAMissingSQLiteFileWithItsOwnLayer) {
  EXPECT_EQ(
      RaisedFor(L"Driver=SQLite3;Database=C:\\nada.db;"),
      (Raised{kErrBase + 1, "modADO.AbreCn", R"([modADO::PreAbreCn]: Banco de dados "C:\nada.db" não encontrado.)"}));
}

TEST_F(AbreCnTest, RaisesADamagedSQLiteFileWithItsOwnLayer) {
  around_.files[L"C:\\vazio.db"] = 0;
  EXPECT_EQ(
      RaisedFor(L"Driver=SQLite3;Database=C:\\vazio.db;"),
      (Raised{kErrBase + 2, "modADO.AbreCn", R"([modADO::PreAbreCn]: Banco de dados "C:\vazio.db" danificado.)"}));
}

TEST_F(AbreCnTest, RaisesAnOverflowInAVeryLongSQLiteString) {
  EXPECT_EQ(RaisedFor(L"Driver=SQLite3;x=" + std::wstring(32767, L'x') + L";Database=a.db;"),
            (Raised{6, "modADO.AbreCn", "[KodraRpt]: Estouro"}));
}

TEST_F(AbreCnTest, RaisesAFailureOfAnyStepWithItsNumberAndLayerAndLeavesNoConnection) {
  for (const auto* call : {L"SetEnvironment", L"NewConnection", L"Connection1.SetConnectionString",
                           L"Connection1.SetCursorLocation", L"Connection1.SetIsolationLevel", L"Connection1.Open"}) {
    around_.journal.Forget();
    around_.journal.FailOn(call, Failure(kRefused));
    EXPECT_EQ(RaisedFor(kOracle), (Raised{-2147467259, "modADO.AbreCn", "[Microsoft OLE DB Provider]: Acesso negado"}));
    EXPECT_EQ(around_.journal.LiveObjects(), 0);
  }
}

TEST_F(AbreCnTest, RaisesExhaustedMemoryAndForeignExceptionsAsRuntimeErrors) {
  around_.journal.FailOn(L"Connection1.Open", Failure(std::bad_alloc()));
  EXPECT_EQ(RaisedFor(kSQLServer), (Raised{7, "modADO.AbreCn", "[KodraRpt]: Memória insuficiente"}));
  around_.journal.Forget();
  around_.journal.FailOn(L"Connection1.Open", Failure(std::runtime_error("unexpected")));
  EXPECT_EQ(RaisedFor(kSQLServer), (Raised{51, "modADO.AbreCn", "[KodraRpt]: Erro interno"}));
  EXPECT_EQ(around_.journal.LiveObjects(), 0);
}

}  // namespace
}  // namespace kodra::data
