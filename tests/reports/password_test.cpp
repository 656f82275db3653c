// No error and no log line of a report contains the password of the connection string, whichever call fails.
#include <gtest/gtest.h>

#include <iostream>
#include <sstream>

#include "console/reports/report_methods.h"
#include "frame/parameter_object.h"
#include "reports/reports.h"
#include "tests/recorder/fake_surroundings.h"
#include "tests/recorder/raised.h"
#include "tests/reports/databases.h"
#include "tests/secret.h"

namespace kodra::reports {
namespace {

using recorder::Raised;
using tests::kSecret;

// The password as connection strings spell its pair.
std::vector<std::wstring> Spellings() {
  return {
      L"PWD=" + kSecret,
      L"pwd = " + kSecret,
      L"Password=" + kSecret,
      L"Jet OLEDB:Database PassWord=" + kSecret,
      L"Password=\"antes;" + kSecret + L"\"",
      L"Password='antes;" + kSecret + L"'",
      L"PWD={antes;" + kSecret + L"}}depois}",
      L"PWD={antes;Database=" + kSecret + L"}",
      L"Extended Properties=\"DSN=a;PWD=\"\"antes;" + kSecret + L"\"\"\"",
  };
}

// A machine on which every report opens its rows and logs.
class Machine {
 public:
  Machine() {
    around.Register(L"KodraConexao.StrCon", {{L"TipoBanco", {tbSQLServer}}});
    around.Register(L"KodraBsnV3.ModulosBsn", {{L"NumCxSubordinadaSQL", {L"s.COD7"}}});
    around.Register(L"KodraBsnV3.ModulosFiltro", {});
    around.Register(L"KodraBsnV3.ObtedorDeModulos",
                    {{L"ObtemSubordinados", {around.NewObject(L"Subordinados", {{L"Count", {1}}})}}});
    around.Register(L"KodraRegEvt.RegEvtFind", {});
    around.Register(L"KodraRegEvt.RegEvtDAO", {{L"Localiza", {ObjectRef()}}});
    around.Register(L"VantLog.FnLog", {{L"DebugLog", {Empty{}}}});
    const Value names = around.NewObject(
        L"Nomes",
        {{L"Grupo", {L"Fundo"}}, {L"Subgrupo", {L"Grupo"}}, {L"Serie", {L"Série"}}, {L"Serie_Plural", {L""}}});
    around.Register(L"KodraParamSist.Obtedor", {{L"Obtem", {around.NewObject(L"Conjunto", {{L"Nomes", {names}}})}}});
    around.journal.Forget();
  }

  // Calls a report whose call of that number fails with an error that repeats the connection string.
  Raised Run(const ReportMethod& method, const std::wstring& password, int failing) {
    const std::wstring connectionString = L"Provider=SQLNCLI11;Data Source=a;" + password + L";Application=b";
    const std::wstring words = connectionString + L" recusada";
    frame::ParameterObject parameters(frame::ParameterClassNamed(method.parameterClass));
    if (method.className == L"CCaixaRpt") parameters.Let(L"Modulo1", L"AB001");
    around.journal.Forget();
    around.journal.FailAt(failing, recorder::Failure(Erro(-2147467259, L"Provedor " + words, L"Conexão " + words)));
    try {
      method.call(around, connectionString, &parameters);
    } catch (const Erro& erro) {
      return Raised(erro);
    }
    return {};
  }

  // The lines that were passed to the log.
  std::string Logged() const {
    std::string logged;
    std::istringstream lines(around.journal.Calls());
    for (std::string line; std::getline(lines, line);)
      if (line.find(".Call(DebugLog, ") != std::string::npos) logged += line + "\n";
    return logged;
  }

  recorder::FakeSurroundings around;
};

bool TellsSecret(const std::wstring& text) { return text.find(kSecret) != std::wstring::npos; }

TEST(Password, OfTheConnectionStringIsInNoErrorAndNoLogLineOfAnyReport) {
  int failures = 0;
  for (const ReportMethod& method : ReportMethods())
    for (const std::wstring& password : Spellings()) {
      Machine machine;
      for (int failing = 1; !testing::Test::HasFailure(); ++failing) {
        const Raised raised = machine.Run(method, password, failing);
        if (machine.around.journal.FailedCall().empty()) break;
        ++failures;
        SCOPED_TRACE(recorder::Utf8(method.method) + " at call " + std::to_string(failing));
        EXPECT_FALSE(TellsSecret(raised.source));
        EXPECT_FALSE(TellsSecret(raised.description));
        EXPECT_FALSE(TellsSecret(recorder::Wide(machine.Logged())));
      }
    }
  std::cout << "[   NOTE   ] " << failures << " errors that repeat a password" << std::endl;
  EXPECT_LT(39 * 5 * 10, failures);
}

const ReportMethod& Departments() { return *FindReportMethod(L"CDeptoRpt", L"RelatorioDeptos"); }

TEST(Password, IsThreeAsterisksInTheErrorOfAConnectionThatFails) {
  Machine machine;
  // The opening of the connection.
  EXPECT_EQ(machine.Run(Departments(), L"PWD=" + kSecret, 8),
            recorder::Framed("CDeptoRpt::RelatorioDeptos",
                             "[modADO.AbreCn]: [Provedor Provider=SQLNCLI11;Data Source=a;PWD=***;Application=b "
                             "recusada]: Conexão Provider=SQLNCLI11;Data Source=a;PWD=***;Application=b "
                             "recusada"));
}

TEST(Password, IsThreeAsterisksInWhatTheModulesSayAndLog) {
  Machine machine;
  const ReportMethod& dividers = *FindReportMethod(L"CCaixaRpt", L"EtiquetaDivisoria");
  // The creation of the connection component.
  EXPECT_EQ(machine.Run(dividers, L"PWD=" + kSecret, 1),
            (Raised{frame::kReportError, "Provedor Provider=SQLNCLI11;Data Source=a;PWD=***;Application=b recusada",
                    "Erro ao gerar dados para o relatório: Conexão Provider=SQLNCLI11;Data Source=a;PWD=***;"
                    "Application=b recusada"}));
  EXPECT_EQ(
      machine.Logged(),
      "Object2.Call(DebugLog, ByRef \"KodraRpt.CCaixaRpt::EtiquetaDivisoria: ----> saindo com o erro -2147467259 em "
      "Provedor Provider=SQLNCLI11;Data Source=a;PWD=***;Application=b recusada: Conexão "
      "Provider=SQLNCLI11;Data Source=a;PWD=***;Application=b recusada\") -> Empty\n");
}

// The component's own words are unchanged even if they contain what looks like the pair of the password.
TEST(Password, IsHiddenInNoModuleCodeOfALogLine) {
  Machine machine;
  frame::ParameterObject parameters(frame::ParameterClassNamed(L"CCaixaRptObj"));
  parameters.Let(L"Modulo1", L"AB 1;PWD=banco");
  std::vector<std::string> heard;
  ModuleObject report(L"CCaixaRpt", machine.around);
  report.OnDebugLog([&](const std::wstring& line) { heard.push_back(recorder::Utf8(line)); });
  report.SetStringConexao(L"DSN=a;PWD=banco");
  frame::Run(report, L"AutorizacaoDescarteModuloSubRpt", &CCaixaRpt::AutorizacaoDescarteModuloSubRpt, &parameters);
  EXPECT_EQ(heard, (std::vector<std::string>{
                       "KodraRpt.CCaixaRpt::AutorizacaoDescarteModuloSubRpt: executando query para o módulo "
                       "<AB 1;PWD=banco>",
                       "KodraRpt.CCaixaRpt::AutorizacaoDescarteModuloSubRpt: query vazia, usando query com dados em "
                       "branco"}));
}

TEST(Password, IsThreeAsterisksInALineThatTheLogWritesBack) {
  Machine machine;
  machine.around.RegisterMaker(L"VantLog.FnLog", L"Log", [&](const std::wstring& name) {
    auto log = std::make_shared<recorder::FakeObject>(machine.around.journal, name,
                                                      recorder::Answers{{L"DebugLog", {Empty{}}}});
    log->Leave(L"DebugLog", L"conectado a DSN=a;PWD=segredo");
    return log;
  });
  frame::ParameterObject parameters(frame::ParameterClassNamed(L"CCaixaRptObj"));
  std::vector<std::string> heard;
  ModuleObject report(L"CCaixaRpt", machine.around);
  report.OnDebugLog([&](const std::wstring& line) { heard.push_back(recorder::Utf8(line)); });
  report.SetStringConexao(L"DSN=a;PWD=segredo");
  frame::Run(report, L"AutorizacaoDescarteModuloSubRpt", &CCaixaRpt::AutorizacaoDescarteModuloSubRpt, &parameters);
  EXPECT_EQ(heard, (std::vector<std::string>{"conectado a DSN=a;PWD=***", "conectado a DSN=a;PWD=***"}));
}

TEST(Password, IsHiddenInNoModuleCodeOfAnError) {
  Machine machine;
  machine.around.Register(L"KodraBsnV3.ObtedorDeModulos", {{L"ObtemSubordinados", {ObjectRef()}}});
  frame::ParameterObject parameters(frame::ParameterClassNamed(L"CCaixaRptObj"));
  parameters.Let(L"Modulo1", L"AB 1;PWD=banco");
  ModuleObject report(L"CCaixaRpt", machine.around);
  report.SetStringConexao(L"DSN=a;PWD=banco");
  EXPECT_EQ(recorder::RaisedBy([&] {
              frame::Run(report, L"EtiquetaFechamentoSubordinada", &CCaixaRpt::EtiquetaFechamentoSubordinada,
                         &parameters);
            }),
            recorder::Framed("CCaixaRpt::EtiquetaFechamentoSubordinada",
                             "Não foi possível obter uma lista dos módulos subordinados fechados associados ao módulo "
                             "AB 1;PWD=banco"));
}

TEST(Password, IsHiddenInNoDatabaseCode) {
  Machine machine;
  machine.around.Register(L"KodraConexao.StrCon", {{L"TipoBanco", {tbOther4}}});
  const ReportMethod& vencidos = *FindReportMethod(L"CCaixaRpt", L"ModulosVencidos");
  frame::ParameterObject modules(frame::ParameterClassNamed(L"CCaixaRptObj"));
  EXPECT_EQ(recorder::RaisedBy([&] { vencidos.call(machine.around, L"Provider=x;Password=banco", &modules); }),
            (Raised{frame::kReportError, "TradutorSQL.SQLToInt",
                    "Erro ao gerar dados para o relatório: Não há entrada para o banco tipo 4"}));
}

TEST(Password, IsHiddenInNoSource) {
  Machine machine;
  const ReportMethod& dividers = *FindReportMethod(L"CCaixaRpt", L"EtiquetaDivisoria");
  frame::ParameterObject parameters(frame::ParameterClassNamed(L"CCaixaRptObj"));
  machine.around.journal.FailOn(L"CreateObject", std::make_exception_ptr(MakeRuntimeError(RuntimeError::kOverflow)));
  EXPECT_EQ(recorder::RaisedBy([&] { dividers.call(machine.around, L"DSN=a;Password=Kodra", &parameters); }),
            recorder::Framed("CCaixaRpt::EtiquetaDivisoria", "Estouro"));
}

TEST(Password, IsHiddenInNoNativeCode) {
  Machine machine;
  machine.around.ado.nativeErrors = {1017};
  machine.around.journal.FailOn(L"Recordset1.Open",
                                recorder::Failure(Erro(-2147217843, L"Provedor", L"ORA-01017: negado")));
  frame::ParameterObject parameters(frame::ParameterClassNamed(L"CDeptoRptObj"));
  EXPECT_EQ(recorder::RaisedBy([&] { Departments().call(machine.around, L"DSN=a;PWD=1017", &parameters); }),
            recorder::Framed("CDeptoRpt::RelatorioDeptos", "[Provedor]: ORA-01017: negado [N:1017]"));
}

// The path of the SQLite file may be a part of the password.
TEST(Password, IsHiddenInNoPathOfAFile) {
  Machine machine;
  frame::ParameterObject parameters(frame::ParameterClassNamed(L"CDeptoRptObj"));
  EXPECT_EQ(recorder::RaisedBy([&] {
              Departments().call(machine.around, L"Driver={SQLite3};PWD={a;Database=/acervo/banco}", &parameters);
            }),
            recorder::Framed("CDeptoRpt::RelatorioDeptos",
                             "[modADO.AbreCn]: [modADO::PreAbreCn]: Banco de dados "
                             "\"/acervo/banco}\" não encontrado."));
}

}  // namespace
}  // namespace kodra::reports
