// Opening the recordset of a report.
#include "data/abre_firehose_rs.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/recorder/fake_surroundings.h"
#include "tests/recorder/raised.h"

namespace kodra::data {
namespace {

using recorder::Failure;
using recorder::FakeSurroundings;
using recorder::Lines;
using recorder::Raised;
using recorder::RaisedBy;

constexpr auto kSQLServer = L"Provider=SQLNCLI11;Data Source=arquivo";
const std::wstring kStatement = L"SELECT NOME FROM DEPOSITO";

const Erro kNoTable(-2147217865, L"OraOLEDB", L"ORA-00942: a tabela ou view não existe");

// That error as AbreFirehoseRs raises it.
Raised NoTable(const std::string& nativeCode = "") {
  return {-2147217865, "modADO.AbreFirehoseRs", "[OraOLEDB]: ORA-00942: a tabela ou view não existe" + nativeCode};
}

class AbreFirehoseRsTest : public testing::Test {
 protected:
  // Creates a connection for the test, and starts a new journal after it.
  void GiveConnection() {
    connection_ = around_.NewConnection();
    around_.journal.Forget();
  }

  std::unique_ptr<platform::Recordset> Opened(const platform::RecordsetSource& source,
                                              std::int32_t options = platform::ad::kCmdText,
                                              const std::wstring& connectionString = kSQLServer) {
    return AbreFirehoseRs(source, connectionString, options, connection_, around_);
  }

  // Raised when the recordset cannot be opened on a connection with those provider errors.
  Raised RaisedWithNativeErrors(std::vector<std::int32_t> nativeErrors) {
    around_.ado.nativeErrors = std::move(nativeErrors);
    around_.journal.FailOn(L"Recordset1.Open", Failure(kNoTable));
    return RaisedBy([&] { Opened(kStatement); });
  }

  FakeSurroundings around_;
  std::unique_ptr<platform::Connection> connection_;
};

TEST_F(AbreFirehoseRsTest, OpensATextOnAConnectionOfItsOwn) {
  const auto recordset = Opened(kStatement);
  EXPECT_NE(recordset, nullptr);
  EXPECT_NE(connection_, nullptr);
  EXPECT_EQ(
      around_.journal.Calls(),
      Lines({
          "NewConnection() -> Connection1",
          R"(Connection1.SetConnectionString("Provider=SQLNCLI11;Data Source=arquivo;Persist Security Info=True;"))",
          "Connection1.SetCursorLocation(2)",
          "Connection1.SetIsolationLevel(4096)",
          R"(Connection1.Open("", "", -1))",
          "NewRecordset() -> Recordset1",
          "Recordset1.SetCursorLocation(2)",
          "Recordset1.SetCacheSize(100)",
          R"(Recordset1.Open("SELECT NOME FROM DEPOSITO", Connection1, 0, 1, 1))",
      }));
}

TEST_F(AbreFirehoseRsTest, OpensATextOnTheConnectionThatIsPassed) {
  GiveConnection();
  EXPECT_NE(Opened(kStatement), nullptr);
  EXPECT_EQ(around_.journal.Calls(), Lines({
                                         "NewRecordset() -> Recordset1",
                                         "Recordset1.SetCursorLocation(2)",
                                         "Recordset1.SetCacheSize(100)",
                                         R"(Recordset1.Open("SELECT NOME FROM DEPOSITO", Connection1, 0, 1, 1))",
                                         "~Recordset1",
                                     }));
}

TEST_F(AbreFirehoseRsTest, PassesTheOptionsOnUnchanged) {
  GiveConnection();
  Opened(kStatement, platform::ad::kUnspecified);
  EXPECT_NE(around_.journal.Calls().find(R"(Recordset1.Open("SELECT NOME FROM DEPOSITO", Connection1, 0, 1, -1))"),
            std::string::npos);
}

TEST_F(AbreFirehoseRsTest, OpensACommandWithoutTheConnectionString) {
  const auto command = around_.NewCommand();
  around_.journal.Forget();
  EXPECT_NE(Opened(command.get()), nullptr);
  EXPECT_EQ(connection_, nullptr);
  EXPECT_EQ(around_.journal.Calls(), Lines({
                                         "NewRecordset() -> Recordset1",
                                         "Recordset1.SetCursorLocation(2)",
                                         "Recordset1.SetCacheSize(100)",
                                         "Recordset1.Open(Command1, missing, 0, 1, 1)",
                                         "~Recordset1",
                                     }));
}

TEST_F(AbreFirehoseRsTest, ReturnsAnUnopenedRecordsetWithoutASource) {
  EXPECT_NE(Opened(std::monostate{}), nullptr);
  EXPECT_EQ(connection_, nullptr);
  EXPECT_EQ(around_.journal.Calls(), Lines({
                                         "NewRecordset() -> Recordset1",
                                         "Recordset1.SetCursorLocation(2)",
                                         "Recordset1.SetCacheSize(100)",
                                         "~Recordset1",
                                     }));
}

TEST_F(AbreFirehoseRsTest, LeavesAnEmptyConnectionStringToTheProvider) {
  around_.journal.FailOn(L"Recordset1.Open", Failure(Erro(3709, L"ADODB.Recordset", L"A conexão não pode ser usada")));
  EXPECT_EQ(RaisedBy([&] { Opened(kStatement, platform::ad::kCmdText, L""); }),
            (Raised{3709, "modADO.AbreFirehoseRs", "[ADODB.Recordset]: A conexão não pode ser usada"}));
  EXPECT_EQ(around_.journal.Calls(), Lines({
                                         "NewRecordset() -> Recordset1",
                                         "Recordset1.SetCursorLocation(2)",
                                         "Recordset1.SetCacheSize(100)",
                                         R"(Recordset1.Open("SELECT NOME FROM DEPOSITO", Nothing, 0, 1, 1) raises)",
                                         "~Recordset1",
                                     }));
}

TEST_F(AbreFirehoseRsTest, AppendsAPositiveNativeCodeToTheProvidersError) {
  EXPECT_EQ(RaisedWithNativeErrors({942}), NoTable(" [N:942]"));
}

TEST_F(AbreFirehoseRsTest, ShowsNeitherAZeroNorANegativeNativeCode) {
  for (const std::vector<std::int32_t>& codes : {std::vector<std::int32_t>{}, {0}, {-942}}) {
    around_.journal.Forget();
    EXPECT_EQ(RaisedWithNativeErrors(codes), NoTable());
  }
}

TEST_F(AbreFirehoseRsTest, ReadsTheFirstNativeCodeOnceForEachProviderError) {
  GiveConnection();
  EXPECT_EQ(RaisedWithNativeErrors({942, 17, 0}), NoTable(" [N:942]"));
  EXPECT_EQ(around_.journal.Calls(), Lines({
                                         "NewRecordset() -> Recordset1",
                                         "Recordset1.SetCursorLocation(2)",
                                         "Recordset1.SetCacheSize(100)",
                                         R"(Recordset1.Open("SELECT NOME FROM DEPOSITO", Connection1, 0, 1, 1) raises)",
                                         "~Recordset1",
                                         "Connection1.ErrorCount() -> 3",
                                         "Connection1.NativeError(0) -> 942",
                                         "Connection1.NativeError(0) -> 942",
                                         "Connection1.NativeError(0) -> 942",
                                     }));
}

TEST_F(AbreFirehoseRsTest, KeepsTheFirstErrorWhenTheNativeCodeCannotBeRead) {
  for (const auto* call : {L"Connection1.ErrorCount", L"Connection1.NativeError"}) {
    for (const auto& failure :
         {Failure(Erro(5, L"ADODB", L"outra")), Failure(std::bad_alloc()), Failure(std::runtime_error("x"))}) {
      GiveConnection();
      around_.journal.FailOn(call, failure);
      EXPECT_EQ(RaisedWithNativeErrors({942}), NoTable());
      EXPECT_TRUE(around_.journal.FailedCall().starts_with(call));
    }
  }
}

TEST_F(AbreFirehoseRsTest, UsesTheNativeCodeOfALaterReadWhenOneFails) {
  GiveConnection();
  around_.journal.FailOn(L"Connection1.NativeError", Failure(Erro(5, L"ADODB", L"outra")));
  EXPECT_EQ(RaisedWithNativeErrors({942, 942}), NoTable(" [N:942]"));
}

TEST_F(AbreFirehoseRsTest, ReadsTheNativeCodeOfThePassedConnectionForACommandToo) {
  const auto command = around_.NewCommand();
  GiveConnection();
  around_.ado.nativeErrors = {208};
  around_.journal.FailOn(L"Recordset1.Open", Failure(kNoTable));
  EXPECT_EQ(RaisedBy([&] { Opened(command.get()); }), NoTable(" [N:208]"));
}

TEST_F(AbreFirehoseRsTest, HasNoNativeCodeForAConnectionThatDidNotOpen) {
  around_.ado.nativeErrors = {1017};
  around_.journal.FailOn(L"Connection1.Open", Failure(Erro(-2147217843, L"OraOLEDB", L"Acesso negado")));
  EXPECT_EQ(RaisedBy([&] { Opened(kStatement); }),
            (Raised{-2147217843, "modADO.AbreFirehoseRs", "[modADO.AbreCn]: [OraOLEDB]: Acesso negado"}));
  EXPECT_EQ(connection_, nullptr);
  EXPECT_EQ(around_.journal.LiveObjects(), 0);
}

TEST_F(AbreFirehoseRsTest, AddsItsLayerToAMissingSQLiteFile) {
  EXPECT_EQ(RaisedBy([&] { Opened(kStatement, platform::ad::kCmdText, L"Driver=SQLite3;Database=C:\\nada.db"); }),
            (Raised{kErrBase + 1, "modADO.AbreFirehoseRs",
                    R"([modADO.AbreCn]: [modADO::PreAbreCn]: Banco de dados "C:\nada.db" não encontrado.)"}));
}

TEST_F(AbreFirehoseRsTest, RaisesAFailureOfAnyRecordsetStepInItsLayer) {
  for (const auto* call :
       {L"NewRecordset", L"Recordset1.SetCursorLocation", L"Recordset1.SetCacheSize", L"Recordset1.Open"}) {
    connection_.reset();
    around_.journal.Forget();
    around_.journal.FailOn(call, Failure(std::bad_alloc()));
    EXPECT_EQ(RaisedBy([&] { Opened(kStatement); }),
              (Raised{7, "modADO.AbreFirehoseRs", "[KodraRpt]: Memória insuficiente"}));
    EXPECT_EQ(around_.journal.LiveObjects(), 1);  // the caller's connection
  }
}

}  // namespace
}  // namespace kodra::data
