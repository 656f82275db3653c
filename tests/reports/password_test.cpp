// The password of the connection string in nothing that a report says, whoever repeats it and at whichever call.
#include <gtest/gtest.h>

#include <iostream>
#include <sstream>

#include "frame/parameter_object.h"
#include "recorder/fake_surroundings.h"
#include "recorder/raised.h"
#include "reports/modules/caixa_rpt.h"
#include "reports/report_methods.h"
#include "secret.h"

namespace kodra::reports {
namespace {

using platform::Erro;
using platform::Value;
using recorder::Raised;
using tests::kSecret;

// A password as connection strings spell it, and what is left of it for a careless message.
struct Spelling {
  std::wstring pair;
  std::wstring bare;
};

std::vector<Spelling> Spellings() {
  return {
      {L"PWD=" + kSecret, kSecret},
      {L"pwd = " + kSecret, kSecret},
      {L"Password=" + kSecret, kSecret},
      {L"Jet OLEDB:Database PassWord=" + kSecret, kSecret},
      {L"Password=\"antes;" + kSecret + L"\"", L"antes;" + kSecret},
      {L"Password='antes;" + kSecret + L"'", L"antes;" + kSecret},
      {L"PWD={antes;" + kSecret + L"}}depois}", L"antes;" + kSecret + L"}depois"},
      {L"PWD={antes;" + kSecret + L"}}depois}", kSecret},
      {L"PWD={antes;Database=" + kSecret + L"}", kSecret},
      {L"Extended Properties=\"DSN=a;PWD=\"\"antes;" + kSecret + L"\"\"\"", kSecret},
  };
}

// A machine on which every report comes as far as its rows, and logs.
class Machine {
 public:
  Machine() {
    around.Register(L"KodraConexao.StrCon", {{L"TipoBanco", {2}}});
    around.Register(L"KodraBsnV3.ModulosBsn", {{L"NumCxSubordinadaSQL", {L"s.COD7"}}});
    around.Register(L"KodraBsnV3.ModulosFiltro", {});
    around.Register(L"KodraBsnV3.ObtedorDeModulos",
                    {{L"ObtemSubordinados", {around.NewObject(L"Subordinados", {{L"Count", {1}}})}}});
    around.Register(L"KodraRegEvt.RegEvtFind", {});
    around.Register(L"KodraRegEvt.RegEvtDAO", {{L"Localiza", {platform::ObjectRef()}}});
    around.Register(L"VantLog.FnLog", {{L"DebugLog", {platform::Empty{}}}});
    const Value names = around.NewObject(
        L"Nomes",
        {{L"Grupo", {L"Fundo"}}, {L"Subgrupo", {L"Grupo"}}, {L"Serie", {L"Série"}}, {L"Serie_Plural", {L""}}});
    around.Register(L"KodraParamSist.Obtedor", {{L"Obtem", {around.NewObject(L"Conjunto", {{L"Nomes", {names}}})}}});
    around.journal.Forget();
  }

  // Calls a report whose call of that number fails with an error that repeats the connection string and the password.
  Raised Run(const ReportMethod& method, const Spelling& password, int failing) {
    const std::wstring connectionString = L"Provider=SQLNCLI11;Data Source=a;" + password.pair + L";Application=b";
    const std::wstring words = connectionString + L" recusada: " + password.bare;
    frame::ParameterObject parameters(frame::ParameterClassNamed(method.parameterClass));
    if (method.className == L"CCaixaRpt") parameters.Let(L"Modulo1", L"AB001");
    around.journal.Forget();
    around.journal.FailAt(failing, recorder::Failure(Erro(-2147467259, L"Provedor " + words, L"Conexão " + words)));
    try {
      method.call(around, connectionString, &parameters);
    } catch (const Erro& erro) {
      return recorder::ToRaised(erro);
    }
    return {};
  }

  // The lines that the log took.
  std::string Logged() const {
    std::string logged;
    std::istringstream lines(around.journal.Calls());
    for (std::string line; std::getline(lines, line);)
      if (line.find(".Call(DebugLog, ") != std::string::npos) logged += line + "\n";
    return logged;
  }

  recorder::FakeSurroundings around;
};

bool TellsSecret(const std::string& text) { return text.find(recorder::Utf8(kSecret)) != std::string::npos; }

TEST(Password, OfTheConnectionStringIsInNoErrorAndNoLogLineOfAnyReport) {
  int failures = 0;
  for (const ReportMethod& method : ReportMethods())
    for (const Spelling& password : Spellings()) {
      Machine machine;
      for (int failing = 1; !testing::Test::HasFailure(); ++failing) {
        const Raised raised = machine.Run(method, password, failing);
        if (machine.around.journal.FailedCall().empty()) break;
        ++failures;
        SCOPED_TRACE(recorder::Utf8(method.method) + " at call " + std::to_string(failing));
        EXPECT_FALSE(TellsSecret(raised.source));
        EXPECT_FALSE(TellsSecret(raised.description));
        EXPECT_FALSE(TellsSecret(machine.Logged()));
      }
    }
  std::cout << "[   NOTE   ] " << failures << " errors that repeat a password" << std::endl;
  EXPECT_LT(39 * 5 * 10, failures);
}

const ReportMethod& Departments() { return *FindReportMethod(L"CDeptoRpt", L"RelatorioDeptos"); }

TEST(Password, IsThreeAsterisksInTheErrorOfAConnectionThatFails) {
  Machine machine;
  // The opening of the connection.
  EXPECT_EQ(machine.Run(Departments(), {L"PWD=" + kSecret, kSecret}, 8),
            recorder::Framed("CDeptoRpt::RelatorioDeptos",
                             "[modADO.AbreCn]: [Provedor Provider=SQLNCLI11;Data Source=a;PWD=***;Application=b "
                             "recusada: ***]: Conexão Provider=SQLNCLI11;Data Source=a;PWD=***;Application=b "
                             "recusada: ***"));
}

TEST(Password, IsThreeAsterisksInWhatTheModulesSayAndLog) {
  Machine machine;
  const ReportMethod& dividers = *FindReportMethod(L"CCaixaRpt", L"EtiquetaDivisoria");
  // The making of the connection component.
  EXPECT_EQ(machine.Run(dividers, {L"PWD=" + kSecret, kSecret}, 1),
            (Raised{platform::kErrBase + 8107,
                    "Provedor Provider=SQLNCLI11;Data Source=a;PWD=***;Application=b recusada: ***",
                    "Erro ao gerar dados para o relatório: Conexão Provider=SQLNCLI11;Data Source=a;PWD=***;"
                    "Application=b recusada: ***"}));
  EXPECT_EQ(machine.Logged(),
            "Object2.Call(DebugLog, \"KodraRpt.CCaixaRpt::EtiquetaDivisoria: ----> saindo com o erro -2147467259 em "
            "Provedor Provider=SQLNCLI11;Data Source=a;PWD=***;Application=b recusada: ***: Conexão "
            "Provider=SQLNCLI11;Data Source=a;PWD=***;Application=b recusada: ***\") -> Empty\n");
}

TEST(Password, IsInNoLogLineThatRepeatsAFilter) {
  Machine machine;
  frame::ParameterObject parameters(frame::ParameterClassNamed(L"CCaixaRptObj"));
  parameters.Let(L"Modulo1", L"AB 1;PWD=" + kSecret);
  std::vector<std::string> heard;
  CCaixaRpt report(machine.around);
  report.OnDebugLog([&](const std::wstring& line) { heard.push_back(recorder::Utf8(line)); });
  report.SetStringConexao(L"DSN=a;PWD=" + kSecret);
  recorder::RaisedBy([&] { report.EtiquetaFechamentoSubordinada(&parameters); });
  recorder::RaisedBy([&] { report.AutorizacaoDescarteModuloSubRpt(&parameters); });
  EXPECT_LE(2U, heard.size());
  for (const std::string& line : heard) EXPECT_FALSE(TellsSecret(line));
  EXPECT_FALSE(TellsSecret(machine.Logged()));
}

// The file that SQLite is to read may be named by a piece of the password.
TEST(Password, IsNotTheNameOfAFileThatIsMissing) {
  Machine machine;
  frame::ParameterObject parameters(frame::ParameterClassNamed(L"CDeptoRptObj"));
  EXPECT_EQ(recorder::RaisedBy([&] {
              Departments().call(machine.around, L"Driver={SQLite3};PWD={a;Database=" + kSecret + L"}", &parameters);
            }),
            recorder::Framed("CDeptoRpt::RelatorioDeptos",
                             "[modADO.AbreCn]: [modADO::PreAbreCn]: Banco de dados \"***}\" não encontrado."));
}

}  // namespace
}  // namespace kodra::reports
