// What CCaixaRpt logs, and the frame of its errors.
#include <gtest/gtest.h>

#include "tests/reports/modules/caixa_scenario.h"

namespace kodra::reports {
namespace {

using recorder::Failure;
using recorder::Raised;
using recorder::RaisedBy;

const CaixaMethod kDivisoria = &CCaixaRpt::EtiquetaDivisoria;
constexpr auto kNoModule = "SELECT d.COD_DOCTO FROM DOCUMENTO d WHERE d.NUM_CAIXA = '' ORDER BY d.COD_DOCTO";

const Erro kMishap(-2147220000, L"Prova.Fonte", L"Falha provocada");
constexpr auto kMishapLine =
    "KodraRpt.CCaixaRpt::EtiquetaDivisoria: ----> saindo com o erro -2147220000 em Prova.Fonte: Falha provocada";

const std::string kMishapLogged = "Log.Call(DebugLog, ByRef " + Quoted(kMishapLine) + ") -> Empty";

// The error of dividers.
Raised RaisedByDividers(CaixaScenario& scenario) { return scenario.RunRaising(kDivisoria, Parameters()); }

// The error of dividers whose first call fails as injected.
Raised RaisedByMishap(CaixaScenario& scenario) {
  scenario.around.journal.Forget();
  scenario.around.journal.FailOn(L"CreateObject(\"KodraConexao.StrCon\")", Failure(kMishap));
  return RaisedByDividers(scenario);
}

// The log.

// Expects that the line about the injected failure creates the log object, sets these properties and is announced.
void CheckFirstLine(const std::wstring& logFile, const std::string& setLogFile, const std::string& setAtivar) {
  CaixaScenario scenario;
  scenario.report.SetLogFile(logFile);
  RaisedByMishap(scenario);
  EXPECT_EQ(scenario.around.journal.Calls(),
            All({{R"(CreateObject("KodraConexao.StrCon") raises)", R"(CreateObject("VantLog.FnLog") -> Log)",
                  setLogFile, setAtivar, kMishapLogged}}));
  EXPECT_EQ(scenario.heard, CallLines{kMishapLine});
}

TEST(CCaixaRptLogTest, AnnouncesItsLinesWithoutALogFileToo) {
  CheckFirstLine(L"", R"(Log.Let(LogFile, ""))", "Log.Let(Ativar, False)");
}

TEST(CCaixaRptLogTest, SwitchesTheLogOnWithALogFile) {
  CheckFirstLine(L"/var/log/kodra.log", R"(Log.Let(LogFile, "/var/log/kodra.log"))", "Log.Let(Ativar, True)");
}

TEST(CCaixaRptLogTest, KeepsItsLogObjectAndFollowsTheLogFileFromLineToLine) {
  CaixaScenario scenario;
  RaisedByMishap(scenario);
  for (const auto& [path, logFile, ativar] :
       {std::tuple(L"/um.log", R"(Log.Let(LogFile, "/um.log"))", "Log.Let(Ativar, True)"),
        std::tuple(L"/dois.log", R"(Log.Let(LogFile, "/dois.log"))", "Log.Let(Ativar, True)"),
        std::tuple(L"", R"(Log.Let(LogFile, ""))", "Log.Let(Ativar, False)")}) {
    scenario.report.SetLogFile(path);
    RaisedByMishap(scenario);
    EXPECT_EQ(scenario.around.journal.Calls(),
              All({{R"(CreateObject("KodraConexao.StrCon") raises)", logFile, ativar, kMishapLogged}}));
  }
  EXPECT_EQ(scenario.heard, CallLines(4, kMishapLine));
}

TEST(CCaixaRptLogTest, FollowsALogFileThatItsListenerChanges) {
  CaixaScenario scenario;
  scenario.report.OnDebugLog([&](const std::wstring&) { scenario.report.SetLogFile(L"/novo.log"); });
  scenario.around.ado.results = {{{L"COD_DOCTO"}, {{L" "}}}};
  const std::string calls = scenario.Run(&CCaixaRpt::AutorizacaoDescarteModuloSubRpt, Parameters());
  EXPECT_TRUE(calls.ends_with(recorder::Lines({
      R"(Log.Let(LogFile, "/novo.log"))",
      "Log.Let(Ativar, True)",
      "Log.Call(DebugLog, ByRef \"KodraRpt.CCaixaRpt::AutorizacaoDescarteModuloSubRpt: "
      "retorno da função é a query original\") -> Empty",
      "~Recordset1",
  }))) << calls;
}

// Makes the log replace each line by a value.
void LetTheLogLeave(CaixaScenario& scenario, const Value& left) {
  scenario.around.RegisterMaker(L"VantLog.FnLog", L"Log", [&scenario, left](const std::wstring& name) {
    auto log = std::make_shared<recorder::FakeObject>(scenario.around.journal, name,
                                                      recorder::Answers{{L"DebugLog", {Empty{}}}});
    log->Leave(L"DebugLog", left);
    return log;
  });
}

TEST(CCaixaRptLogTest, AnnouncesALineAsTheLogLeavesIt) {
  const std::pair<Value, std::string> kLeft[] = {
      {L"mudada pelo log", "mudada pelo log"}, {L"", ""}, {5, "5"}, {Empty{}, ""}};
  for (const auto& [left, announced] : kLeft) {
    CaixaScenario scenario;
    LetTheLogLeave(scenario, left);
    EXPECT_EQ(RaisedByMishap(scenario), Reported("Prova.Fonte", "Falha provocada"));
    EXPECT_EQ(scenario.heard, CallLines{announced});
    scenario.heard.clear();
    scenario.Run(&CCaixaRpt::EtiquetaFechamentoSubordinada, Parameters());
    EXPECT_EQ(scenario.heard, (CallLines{announced, announced}));
  }
}

TEST(CCaixaRptLogTest, FailsWhereTheLogLeavesNoText) {
  CaixaScenario scenario;
  LetTheLogLeave(scenario, Null{});
  const std::string source = "KodraRpt.CCaixaRpt::EtiquetaFechamentoSubordinada";
  EXPECT_EQ(scenario.RunRaising(&CCaixaRpt::EtiquetaFechamentoSubordinada, Parameters()),
            Reported(source, "Uso de 'Null' inválido"));
  // The log fails again for the line about that failure, which is announced unchanged.
  EXPECT_EQ(scenario.heard,
            CallLines{source + ": ----> saindo com o erro 94 em " + source + ": Uso de 'Null' inválido"});
}

TEST(CCaixaRptLogTest, LogsNothingWhenNothingHappens) {
  for (const Path path : kPaths) {
    CaixaScenario scenario(DatabaseOf(tbSQLServer), path);
    scenario.report.SetLogFile(L"/var/log/kodra.log");
    EXPECT_EQ(scenario.Run(kDivisoria, Parameters()), All({scenario.InitialLines(), scenario.ResultLines(kNoModule)}));
    EXPECT_EQ(scenario.heard, CallLines());
  }
}

TEST(CCaixaRptLogTest, ReleasesTheLogObjectAtItsEnd) {
  CaixaScenario scenario;
  {
    ModuleObject report(L"CCaixaRpt", scenario.around);
    EXPECT_EQ(
        RaisedBy([&] { frame::Run(report, L"EtiquetaDivisoria", &CCaixaRpt::EtiquetaDivisoria, nullptr); }).source,
        L"KodraRpt.CCaixaRpt::InicializaPS");
    scenario.around.journal.Forget();
  }
  EXPECT_EQ(scenario.around.journal.Calls(), "~Log\n");
}

TEST(CCaixaRptLogTest, NeedsNoListener) {
  CaixaScenario scenario;
  scenario.report.OnDebugLog(nullptr);
  EXPECT_EQ(RaisedByMishap(scenario), Reported("Prova.Fonte", "Falha provocada"));
  EXPECT_EQ(scenario.heard, CallLines());
}

TEST(CCaixaRptLogTest, AnnouncesTheLineBeforeTheErrorReachesTheClient) {
  CaixaScenario scenario;
  std::vector<std::string> order;
  scenario.report.OnDebugLog([&](const std::wstring&) { order.emplace_back("line"); });
  RaisedByMishap(scenario);
  order.emplace_back("error");
  EXPECT_EQ(order, (std::vector<std::string>{"line", "error"}));
}

// The frame.

TEST(CCaixaRptLogTest, KeepsTheSourceOfAnotherComponentsError) {
  const std::pair<const wchar_t*, std::string> kSources[] = {
      {L"Prova.Fonte",
       "KodraRpt.CCaixaRpt::EtiquetaDivisoria: ----> saindo com o erro 5 em Prova.Fonte: Falha provocada"},
      {L"", "KodraRpt.CCaixaRpt::EtiquetaDivisoria: ----> saindo com o erro 5 em : Falha provocada"},
      {L"kodrarpt", "KodraRpt.CCaixaRpt::EtiquetaDivisoria: ----> saindo com o erro 5 em kodrarpt: Falha provocada"},
      {L"KodraRpt ", "KodraRpt.CCaixaRpt::EtiquetaDivisoria: ----> saindo com o erro 5 em KodraRpt : Falha provocada"},
      {L"KodraRpt.CAlgo",
       "KodraRpt.CCaixaRpt::EtiquetaDivisoria: ----> saindo com o erro 5 em KodraRpt.CAlgo: Falha provocada"},
  };
  for (const auto& [source, line] : kSources) {
    CaixaScenario scenario;
    scenario.around.journal.FailOn(L"Object1.Get(TipoBanco)", Failure(Erro(5, source, L"Falha provocada")));
    EXPECT_EQ(RaisedByDividers(scenario), Reported(recorder::Utf8(source), "Falha provocada"));
    EXPECT_EQ(scenario.heard, CallLines{line});
  }
}

TEST(CCaixaRptLogTest, PutsTheMethodInPlaceOfTheApplicationAsTheSource) {
  for (const auto& [name, method] : FramedMethods()) {
    const std::string source = "KodraRpt.CCaixaRpt::" + name;
    CaixaScenario scenario;
    scenario.around.journal.FailOn(L"Object1.Get(TipoBanco)", Failure(Erro(5, L"KodraRpt", L"Falha provocada")));
    const ObjectRef parameters = CaixaScenario::Own({});
    const CaixaMethod called = method;
    EXPECT_EQ(scenario.RunRaising(called, parameters), Reported(source, "Falha provocada"));
    std::string line = source;
    line.append(": ----> saindo com o erro 5 em ").append(source).append(": Falha provocada");
    EXPECT_EQ(scenario.heard, CallLines{line});
  }
}

TEST(CCaixaRptLogTest, NamesAPropertyThatAnotherObjectDoesNotHave) {
  CaixaScenario scenario;
  const ObjectRef other = scenario.around.NewObject(L"Outro", {{L"Owner", {L"Arquivo"}}});
  EXPECT_EQ(
      scenario.RunRaising(&CCaixaRpt::EtiquetaDivisoria, other),
      Reported("KodraRpt.CCaixaRpt::EtiquetaDivisoria", R"(O objeto de parâmetros não tem a propriedade "Modulo1".)"));
}

TEST(CCaixaRptLogTest, RefusesANullParameter) {
  CaixaScenario scenario;
  EXPECT_EQ(scenario.RunRaising(&CCaixaRpt::EtiquetaDivisoria, scenario.Foreign({{L"Modulo1", Null{}}})),
            Reported("KodraRpt.CCaixaRpt::EtiquetaDivisoria", "Uso de 'Null' inválido"));
}

TEST(CCaixaRptLogTest, NamesThePathOfAMissingFile) {
  CaixaScenario scenario(DatabaseOf(tbSQLite));
  scenario.around.files.clear();
  EXPECT_EQ(RaisedByDividers(scenario),
            Reported("modADO.AbreFirehoseRs",
                     R"([modADO.AbreCn]: [modADO::PreAbreCn]: Banco de dados "/dados/arquivo.db" não encontrado.)"));
}

// Each call of the log that may fail in the frame.

TEST(CCaixaRptLogTest, AnnouncesAndReportsTheErrorOnceWhenTheLogFailsInTheFrame) {
  for (const wchar_t* call :
       {L"CreateObject(\"VantLog.FnLog\")", L"Log.Let(LogFile", L"Log.Let(Ativar", L"Log.Call(DebugLog"})
    for (const std::exception_ptr& failure :
         {Failure(Erro(-2147024891, L"VantLog", L"Acesso negado")), Failure(std::bad_alloc())}) {
      CaixaScenario scenario;
      scenario.around.journal.FailOn(L"CreateObject(\"KodraConexao.StrCon\")", Failure(kMishap));
      scenario.around.journal.FailOn(call, failure);
      EXPECT_EQ(RaisedByDividers(scenario), Reported("Prova.Fonte", "Falha provocada"));
      EXPECT_EQ(scenario.heard, CallLines{kMishapLine});
      // The log works again for the next error.
      EXPECT_EQ(RaisedByMishap(scenario), Reported("Prova.Fonte", "Falha provocada"));
      EXPECT_EQ(scenario.heard, (CallLines{kMishapLine, kMishapLine}));
    }
}

TEST(CCaixaRptLogTest, FailsOnceWhenTheLogFailsBeforeTheFrameAndInIt) {
  const std::string source = "KodraRpt.CCaixaRpt::EtiquetaFechamentoSubordinada";
  for (const wchar_t* call :
       {L"CreateObject(\"VantLog.FnLog\")", L"Log.Let(LogFile", L"Log.Let(Ativar", L"Log.Call(DebugLog"}) {
    CaixaScenario scenario;
    for (int time = 0; time < 2; ++time)
      scenario.around.journal.FailOn(call, Failure(Erro(-2147024891, L"VantLog", L"Acesso negado")));
    EXPECT_EQ(scenario.RunRaising(&CCaixaRpt::EtiquetaFechamentoSubordinada, Parameters()),
              Reported("VantLog", "Acesso negado"));
    EXPECT_EQ(scenario.heard, CallLines{source + ": ----> saindo com o erro -2147024891 em VantLog: Acesso negado"});
  }
}

TEST(CCaixaRptLogTest, ReportsTheErrorWhenTheListenerFails) {
  CaixaScenario scenario;
  scenario.report.OnDebugLog([](const std::wstring&) { throw Erro(5, L"Cliente", L"O cliente falhou"); });
  EXPECT_EQ(RaisedByMishap(scenario), Reported("Prova.Fonte", "Falha provocada"));
}

TEST(CCaixaRptLogTest, FailsWithoutTheComponentsThatItNeeds) {
  struct Need {
    const wchar_t* progId;
    std::string name;
    CaixaMethod method;
  };
  const Need kNeeds[] = {
      {L"KodraConexao.StrCon", "EtiquetaDivisoria", &CCaixaRpt::EtiquetaDivisoria},
      {L"KodraBsnV3.ModulosBsn", "ModulosExcluidos", &CCaixaRpt::ModulosExcluidos},
      {L"KodraBsnV3.ModulosFiltro", "EtiquetaFechamentoSubordinada", &CCaixaRpt::EtiquetaFechamentoSubordinada},
      {L"KodraBsnV3.ObtedorDeModulos", "EtiquetaFechamentoSubordinada", &CCaixaRpt::EtiquetaFechamentoSubordinada},
      {L"VantLog.FnLog", "EtiquetaFechamentoSubordinada", &CCaixaRpt::EtiquetaFechamentoSubordinada},
      {L"VantLog.FnLog", "AutorizacaoDescarteModuloSubRpt", &CCaixaRpt::AutorizacaoDescarteModuloSubRpt},
  };
  for (const Need& need : kNeeds) {
    CaixaScenario scenario;
    scenario.around.journal.FailOn(L"CreateObject(\"" + std::wstring(need.progId) + L"\")",
                                   Failure(MakeRuntimeError(RuntimeError::kCannotCreateObject)));
    EXPECT_EQ(scenario.RunRaising(need.method, Parameters()),
              Reported("KodraRpt.CCaixaRpt::" + need.name, "O componente ActiveX não pode criar o objeto"));
    EXPECT_EQ(scenario.heard.back(), "KodraRpt.CCaixaRpt::" + need.name +
                                         ": ----> saindo com o erro 429 em KodraRpt.CCaixaRpt::" + need.name +
                                         ": O componente ActiveX não pode criar o objeto");
  }
}

}  // namespace
}  // namespace kodra::reports
