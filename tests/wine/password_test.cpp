// No error, event or log line contains the connection's password, whichever report fails and however the connection is
// refused.
#include <iostream>

#include "tests/wine/event_sink.h"
#include "tests/wine/fake_databases.h"
#include "tests/wine/hostile_client.h"

namespace kodra::face {
namespace {

using tests::kSecret;

class Passwords : public Hostile {
 protected:
  // Connection strings that contain the password and that no report returns rows for.
  std::vector<std::wstring> Refused() const {
    const std::wstring archive = archive_.Connection();
    std::wstring wrong = Variable(L"KODRA_MYSQL");
    wrong.insert(wrong.find(L"Pwd=") + 4, L"Errada");
    std::wstring quoted = Variable(L"KODRA_MYSQL");
    quoted.replace(quoted.find(L"Pwd=") + 4, kSecret.size(), L"{antes;" + kSecret + L"}}depois}");
    return {
        L"Driver={SQLite3};Database=/tmp/kodra-face-nao-existe/a.db;Password=" + kSecret,
        L"Driver={SQLite3};Database=" + empty_.path() + L";password = \"antes;" + kSecret + L"\"",
        L"Driver={Nao Existe};Extended Properties=\"DSN=a;PWD=\"\"antes;" + kSecret + L"\"\"\"",
        L"DSN=NaoExiste;pwd=" + kSecret,
        L"PWD={" + kSecret,
        wrong,
        quoted,
        // The siblings, which do not use ADO, find no database with these either.
        FakeConnection(System::kSqlServer) + L";" + FakeDatabases::kRefuseConnection,
        FakeConnection(System::kSqlServer) + L";" + FakeDatabases::kRefuseStatement,
        L"Provider=IBMDADB2;Data Source=nada;pwd = \"antes;" + kSecret + L"\";Simulado=1;Recusa=conexao",
        L"Provider=MSDAORA;Data Source=nada;Password='" + kSecret + L"';Simulado=1;Recusa=comando",
    };
  }

  static void ExpectNoPassword(const std::wstring& text) {
    // The failure does not show the text, which would print the password.
    EXPECT_EQ(std::wstring::npos, text.find(kSecret));
  }
  void ExpectLogWithoutPassword() const {
    const std::string lines = BytesOf(log_.windowsPath());
    EXPECT_NE(std::string::npos, lines.find("saindo com o erro"));
    EXPECT_EQ(std::string::npos, lines.find(std::string(kSecret.begin(), kSecret.end())));
  }

  // Runs a case on a connection string that is refused.
  void ExpectRefused(const ReportCase& tested, const std::wstring& connection) {
    const auto report = tested.NewReport();
    const auto sink = EventSink::New();
    const bool isModule = tested.IsOf(L"CCaixaRpt");
    if (isModule) {
      DWORD cookie = 0;
      EXPECT_EQ(S_OK, Put(report, L"LogFile", log_.windowsPath()).hr);
      EXPECT_EQ(S_OK, EventsOf(report)->Advise(sink.get(), &cookie));
    }
    EXPECT_EQ(S_OK, Put(report, L"StringConexao", connection).hr);
    const Outcome outcome = Call(report, tested.method, {Var(tested.NewParameters().get())});
    ++failures_;
    EXPECT_EQ(DISP_E_EXCEPTION, outcome.hr);
    ExpectNoPassword(outcome.failure.source);
    ExpectNoPassword(outcome.failure.description);
    for (const std::wstring& line : sink->lines) ExpectNoPassword(line);
    EXPECT_EQ(isModule && !tested.HasNoFrame(), !sink->lines.empty());
    EXPECT_EQ(connection, Got(Get(report, L"StringConexao")).text());
  }

  const TemporaryFile empty_{L"vazio.db"};
  const TemporaryFile log_{L"senha.log"};
  int failures_ = 0;
};

TEST_F(Passwords, AreInNoErrorEventOrLogLineOfAnyReport) {
  const FakeDatabases databases;
  empty_.CreateEmpty();
  for (const std::wstring& connection : Refused())
    for (const ReportCase& tested : CasesOnStrings()) {
      SCOPED_TRACE(testing::PrintToString(tested.Source()));
      ExpectRefused(tested, connection);
      if (HasFailure()) return;
    }
  ExpectLogWithoutPassword();
  std::cout << "[   NOTE   ] " << failures_ << " refused connections" << std::endl;
}

TEST_F(Passwords, AreThreeAsterisksInAMessageThatRepeatsTheConnectionString) {
  const FakeDatabases databases;
  const auto report = Create(L"KodraRpt.CDeptoRpt");
  Put(report, L"StringConexao", FakeConnection(System::kSqlServer) + L";" + FakeDatabases::kRefuseConnection);
  EXPECT_EQ((Failure{kReportError, L"KodraRpt.CDeptoRpt::RelatorioDeptos",
                     L"Erro ao gerar dados para o relatório: [modADO.AbreCn]: [Provedor simulado]: Recusado: "
                     L"Provider=SQLNCLI11;Server=acervo;Uid=arquivo;Pwd=***;Simulado=1;Recusa=conexao;"
                     L"Persist Security Info=True;"}),
            Call(report, L"RelatorioDeptos", {Var(Create(L"KodraRpt.CDeptoRptObj").get())}).failure);
}

}  // namespace
}  // namespace kodra::face
