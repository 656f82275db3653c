// The connection's password is in nothing that a client sees, receives or finds in the log, whichever report fails and
// however the connection is refused.
#include <fstream>
#include <iostream>
#include <iterator>

#include "tests/wine/fake_databases.h"
#include "tests/wine/hostile_client.h"
#include "tests/wine/stand_in.h"

namespace kodra::face {
namespace {

using tests::kSecret;

class Passwords : public Hostile {
 protected:
  // Connection strings that contain the password and lead to no rows; more may be added to their ends.
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
        // Where the siblings, which do not read through ADO, find no database either.
        Pretended(System::kSqlServer) + L";" + PretendDatabases::kRefuseConnection,
        Pretended(System::kSqlServer) + L";" + PretendDatabases::kRefuseStatement,
        L"Provider=IBMDADB2;Data Source=nada;pwd = \"antes;" + kSecret + L"\";Simulado=1;Recusa=conexao",
        L"Provider=MSDAORA;Data Source=nada;Password='" + kSecret + L"';Simulado=1;Recusa=comando",
    };
  }

  static void ExpectSilent(const std::wstring& text) {
    // The text itself is not shown, because that would print the password.
    EXPECT_EQ(std::wstring::npos, text.find(kSecret));
  }
  void ExpectSilentLog() const {
    const std::wstring path = log_.windowsPath();
    std::ifstream log(std::string(path.begin(), path.end()), std::ios::binary);
    const std::string lines{std::istreambuf_iterator<char>(log), {}};
    EXPECT_NE(std::string::npos, lines.find("saindo com o erro"));
    EXPECT_EQ(std::string::npos, lines.find(std::string(kSecret.begin(), kSecret.end())));
  }

  // Lets the report write its log to a file and send its lines to `lines`.
  void Listen(const Ref<IDispatch>& report, Names& lines) const {
    EXPECT_EQ(S_OK, Put(report, L"LogFile", log_.windowsPath()).hr);
    const auto sink = RecordingObject::New(L"Ouvinte", std::make_shared<Names>(),
                                           [&](const auto&, const std::vector<Var>& arguments, VARIANT*, EXCEPINFO*) {
                                             lines.push_back(arguments.at(0).text().value());
                                             return S_OK;
                                           });
    EXPECT_EQ(1, IdOf(sink.get(), L"DebugLog"));
    Ref<IConnectionPoint> point;
    DWORD cookie = 0;
    EXPECT_EQ(S_OK,
              report.As<IConnectionPointContainer>()->FindConnectionPoint(__uuidof(DCCaixaRptEvents), point.put()));
    EXPECT_EQ(S_OK, point->Advise(sink.get(), &cookie));
  }

  // A failing call of a case on a connection string.
  void ExpectRefused(const ReportCase& tested, const std::wstring& connection) {
    Names lines;
    const auto report = tested.NewReport();
    const bool isModule = tested.report == std::wstring(L"CCaixaRpt");
    if (isModule) Listen(report, lines);
    EXPECT_EQ(S_OK, Put(report, L"StringConexao", connection).hr);
    const Outcome outcome = Call(report, tested.method, {Var(tested.NewParameters().get())});
    ++failures_;
    EXPECT_EQ(DISP_E_EXCEPTION, outcome.hr);
    ExpectSilent(outcome.failure.source);
    ExpectSilent(outcome.failure.description);
    for (const std::wstring& line : lines) ExpectSilent(line);
    EXPECT_EQ(isModule && tested.method != std::wstring(L"DocsNoModuloSubRpt"), !lines.empty());
    EXPECT_EQ(connection, Got(Get(report, L"StringConexao")).text());
  }

  const OwnFile empty_{L"vazio.db"};
  const OwnFile log_{L"senha.log"};
  int failures_ = 0;
};

TEST_F(Passwords, AreInNoErrorNoEventAndNoLogLineOfAnyReport) {
  const PretendDatabases databases;
  empty_.CreateEmpty();
  for (const std::wstring& connection : Refused())
    for (const ReportCase& tested : ReportCases()) {
      SCOPED_TRACE(testing::PrintToString(tested.Source()));
      if (!tested.onConexao) ExpectRefused(tested, connection);
      if (HasFailure()) return;
    }
  ExpectSilentLog();
  std::cout << "[   NOTE   ] " << failures_ << " connections refused in secret" << std::endl;
}

TEST_F(Passwords, AreThreeAsterisksInAMessageThatRepeatsTheConnectionString) {
  const PretendDatabases databases;
  const auto report = Create(L"KodraRpt.CDeptoRpt");
  Put(report, L"StringConexao", Pretended(System::kSqlServer) + L";" + PretendDatabases::kRefuseConnection);
  EXPECT_EQ((Failure{0x80041FAB, L"KodraRpt.CDeptoRpt::RelatorioDeptos",
                     L"Erro ao gerar dados para o relatório: [modADO.AbreCn]: [Provedor simulado]: Recusado: "
                     L"Provider=SQLNCLI11;Server=acervo;Uid=arquivo;Pwd=***;Simulado=1;Recusa=conexao;"
                     L"Persist Security Info=True;"}),
            Call(report, L"RelatorioDeptos", {Var(Create(L"KodraRpt.CDeptoRptObj").get())}).failure);
}

}  // namespace
}  // namespace kodra::face
