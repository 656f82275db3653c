// What CCaixaRpt logs, and the frame of its errors.
#include <gtest/gtest.h>

#include "tests/reports/modules/caixa_stage.h"

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
Raised RaisedByDividers(CaixaStage& stage) { return stage.RunRaising(kDivisoria, Parameters()); }

// The error of dividers that meet the mishap at once.
Raised RaisedByMishap(CaixaStage& stage) {
  stage.around.journal.Forget();
  stage.around.journal.FailOn(L"CreateObject(\"KodraConexao.StrCon\")", Failure(kMishap));
  return RaisedByDividers(stage);
}

// The log.

// Expects that the mishap's line makes the log object, sets these properties and is announced.
void CheckFirstLine(const std::wstring& logFile, const std::string& setLogFile, const std::string& setAtivar) {
  CaixaStage stage;
  stage.report.SetLogFile(logFile);
  RaisedByMishap(stage);
  EXPECT_EQ(stage.around.journal.Calls(),
            All({{R"(CreateObject("KodraConexao.StrCon") raises)", R"(CreateObject("VantLog.FnLog") -> Log)",
                  setLogFile, setAtivar, kMishapLogged}}));
  EXPECT_EQ(stage.heard, CallLines{kMishapLine});
}

TEST(CCaixaRptLogTest, AnnouncesItsLinesWithoutALogFileToo) {
  CheckFirstLine(L"", R"(Log.Let(LogFile, ""))", "Log.Let(Ativar, False)");
}

TEST(CCaixaRptLogTest, SwitchesTheLogOnWithALogFile) {
  CheckFirstLine(L"/var/log/kodra.log", R"(Log.Let(LogFile, "/var/log/kodra.log"))", "Log.Let(Ativar, True)");
}

TEST(CCaixaRptLogTest, KeepsItsLogObjectAndFollowsTheLogFileFromLineToLine) {
  CaixaStage stage;
  RaisedByMishap(stage);
  for (const auto& [path, logFile, ativar] :
       {std::tuple(L"/um.log", R"(Log.Let(LogFile, "/um.log"))", "Log.Let(Ativar, True)"),
        std::tuple(L"/dois.log", R"(Log.Let(LogFile, "/dois.log"))", "Log.Let(Ativar, True)"),
        std::tuple(L"", R"(Log.Let(LogFile, ""))", "Log.Let(Ativar, False)")}) {
    stage.report.SetLogFile(path);
    RaisedByMishap(stage);
    EXPECT_EQ(stage.around.journal.Calls(),
              All({{R"(CreateObject("KodraConexao.StrCon") raises)", logFile, ativar, kMishapLogged}}));
  }
  EXPECT_EQ(stage.heard, CallLines(4, kMishapLine));
}

TEST(CCaixaRptLogTest, FollowsALogFileThatItsListenerChanges) {
  CaixaStage stage;
  stage.report.OnDebugLog([&](const std::wstring&) { stage.report.SetLogFile(L"/novo.log"); });
  stage.around.ado.results = {{{L"COD_DOCTO"}, {{L" "}}}};
  const std::string calls = stage.Run(&CCaixaRpt::AutorizacaoDescarteModuloSubRpt, Parameters());
  EXPECT_TRUE(calls.ends_with(recorder::Lines({
      R"(Log.Let(LogFile, "/novo.log"))",
      "Log.Let(Ativar, True)",
      "Log.Call(DebugLog, ByRef \"KodraRpt.CCaixaRpt::AutorizacaoDescarteModuloSubRpt: "
      "retorno da função é a query original\") -> Empty",
      "~Recordset1",
  }))) << calls;
}

// Makes the log leave a value in the place of each line.
void LetTheLogLeave(CaixaStage& stage, const Value& left) {
  stage.around.RegisterMaker(L"VantLog.FnLog", L"Log", [&stage, left](const std::wstring& name) {
    auto log =
        std::make_shared<recorder::FakeObject>(stage.around.journal, name, recorder::Answers{{L"DebugLog", {Empty{}}}});
    log->Leave(L"DebugLog", left);
    return log;
  });
}

TEST(CCaixaRptLogTest, AnnouncesALineAsTheLogLeavesIt) {
  const std::pair<Value, std::string> kLeft[] = {
      {L"mudada pelo log", "mudada pelo log"}, {L"", ""}, {5, "5"}, {Empty{}, ""}};
  for (const auto& [left, announced] : kLeft) {
    CaixaStage stage;
    LetTheLogLeave(stage, left);
    EXPECT_EQ(RaisedByMishap(stage), Reported("Prova.Fonte", "Falha provocada"));
    EXPECT_EQ(stage.heard, CallLines{announced});
    stage.heard.clear();
    stage.Run(&CCaixaRpt::EtiquetaFechamentoSubordinada, Parameters());
    EXPECT_EQ(stage.heard, (CallLines{announced, announced}));
  }
}

TEST(CCaixaRptLogTest, FailsWhereTheLogLeavesNoText) {
  CaixaStage stage;
  LetTheLogLeave(stage, Null{});
  const std::string source = "KodraRpt.CCaixaRpt::EtiquetaFechamentoSubordinada";
  EXPECT_EQ(stage.RunRaising(&CCaixaRpt::EtiquetaFechamentoSubordinada, Parameters()),
            Reported(source, "Uso de 'Null' inválido"));
  // The line of that failure has the log fail once more, and is announced as it was written.
  EXPECT_EQ(stage.heard, CallLines{source + ": ----> saindo com o erro 94 em " + source + ": Uso de 'Null' inválido"});
}

TEST(CCaixaRptLogTest, LogsNothingWhenNothingHappens) {
  for (const Path path : kPaths) {
    CaixaStage stage(DatabaseOf(tbSQLServer), path);
    stage.report.SetLogFile(L"/var/log/kodra.log");
    EXPECT_EQ(stage.Run(kDivisoria, Parameters()), All({stage.InitialLines(), stage.ResultLines(kNoModule)}));
    EXPECT_EQ(stage.heard, CallLines());
  }
}

TEST(CCaixaRptLogTest, ReleasesTheLogObjectAtItsEnd) {
  CaixaStage stage;
  {
    ModuleObject report(L"CCaixaRpt", stage.around);
    EXPECT_EQ(
        RaisedBy([&] { frame::Run(report, L"EtiquetaDivisoria", &CCaixaRpt::EtiquetaDivisoria, nullptr); }).source,
        L"KodraRpt.CCaixaRpt::InicializaPS");
    stage.around.journal.Forget();
  }
  EXPECT_EQ(stage.around.journal.Calls(), "~Log\n");
}

TEST(CCaixaRptLogTest, NeedsNoListener) {
  CaixaStage stage;
  stage.report.OnDebugLog(nullptr);
  EXPECT_EQ(RaisedByMishap(stage), Reported("Prova.Fonte", "Falha provocada"));
  EXPECT_EQ(stage.heard, CallLines());
}

TEST(CCaixaRptLogTest, AnnouncesTheLineBeforeTheErrorReachesTheClient) {
  CaixaStage stage;
  std::vector<std::string> order;
  stage.report.OnDebugLog([&](const std::wstring&) { order.emplace_back("line"); });
  RaisedByMishap(stage);
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
    CaixaStage stage;
    stage.around.journal.FailOn(L"Object1.Get(TipoBanco)", Failure(Erro(5, source, L"Falha provocada")));
    EXPECT_EQ(RaisedByDividers(stage), Reported(recorder::Utf8(source), "Falha provocada"));
    EXPECT_EQ(stage.heard, CallLines{line});
  }
}

TEST(CCaixaRptLogTest, PutsTheMethodInPlaceOfTheApplicationAsTheSource) {
  for (const auto& [name, method] : FramedMethods()) {
    const std::string source = "KodraRpt.CCaixaRpt::" + name;
    CaixaStage stage;
    stage.around.journal.FailOn(L"Object1.Get(TipoBanco)", Failure(Erro(5, L"KodraRpt", L"Falha provocada")));
    const ObjectRef parameters = CaixaStage::Own({});
    const CaixaMethod called = method;
    EXPECT_EQ(stage.RunRaising(called, parameters), Reported(source, "Falha provocada"));
    std::string line = source;
    line.append(": ----> saindo com o erro 5 em ").append(source).append(": Falha provocada");
    EXPECT_EQ(stage.heard, CallLines{line});
  }
}

TEST(CCaixaRptLogTest, NamesAPropertyThatAnotherObjectDoesNotHave) {
  CaixaStage stage;
  const ObjectRef other = stage.around.NewObject(L"Outro", {{L"Owner", {L"Arquivo"}}});
  EXPECT_EQ(
      stage.RunRaising(&CCaixaRpt::EtiquetaDivisoria, other),
      Reported("KodraRpt.CCaixaRpt::EtiquetaDivisoria", R"(O objeto de parâmetros não tem a propriedade "Modulo1".)"));
}

TEST(CCaixaRptLogTest, RefusesANullParameter) {
  CaixaStage stage;
  EXPECT_EQ(stage.RunRaising(&CCaixaRpt::EtiquetaDivisoria, stage.Foreign({{L"Modulo1", Null{}}})),
            Reported("KodraRpt.CCaixaRpt::EtiquetaDivisoria", "Uso de 'Null' inválido"));
}

TEST(CCaixaRptLogTest, NamesThePathOfAMissingFile) {
  CaixaStage stage(DatabaseOf(tbSQLite));
  stage.around.files.clear();
  EXPECT_EQ(RaisedByDividers(stage),
            Reported("modADO.AbreFirehoseRs",
                     R"([modADO.AbreCn]: [modADO::PreAbreCn]: Banco de dados "/dados/arquivo.db" não encontrado.)"));
}

// Each call of the log that may fail in the frame.

TEST(CCaixaRptLogTest, AnnouncesAndReportsTheErrorOnceWhenTheLogFailsInTheFrame) {
  for (const wchar_t* call :
       {L"CreateObject(\"VantLog.FnLog\")", L"Log.Let(LogFile", L"Log.Let(Ativar", L"Log.Call(DebugLog"})
    for (const std::exception_ptr& failure :
         {Failure(Erro(-2147024891, L"VantLog", L"Acesso negado")), Failure(std::bad_alloc())}) {
      CaixaStage stage;
      stage.around.journal.FailOn(L"CreateObject(\"KodraConexao.StrCon\")", Failure(kMishap));
      stage.around.journal.FailOn(call, failure);
      EXPECT_EQ(RaisedByDividers(stage), Reported("Prova.Fonte", "Falha provocada"));
      EXPECT_EQ(stage.heard, CallLines{kMishapLine});
      // The next error finds the log again.
      EXPECT_EQ(RaisedByMishap(stage), Reported("Prova.Fonte", "Falha provocada"));
      EXPECT_EQ(stage.heard, (CallLines{kMishapLine, kMishapLine}));
    }
}

TEST(CCaixaRptLogTest, FailsOnceWhenTheLogFailsBeforeTheFrameAndInIt) {
  const std::string source = "KodraRpt.CCaixaRpt::EtiquetaFechamentoSubordinada";
  for (const wchar_t* call :
       {L"CreateObject(\"VantLog.FnLog\")", L"Log.Let(LogFile", L"Log.Let(Ativar", L"Log.Call(DebugLog"}) {
    CaixaStage stage;
    for (int time = 0; time < 2; ++time)
      stage.around.journal.FailOn(call, Failure(Erro(-2147024891, L"VantLog", L"Acesso negado")));
    EXPECT_EQ(stage.RunRaising(&CCaixaRpt::EtiquetaFechamentoSubordinada, Parameters()),
              Reported("VantLog", "Acesso negado"));
    EXPECT_EQ(stage.heard, CallLines{source + ": ----> saindo com o erro -2147024891 em VantLog: Acesso negado"});
  }
}

TEST(CCaixaRptLogTest, ReportsTheErrorWhenTheListenerFails) {
  CaixaStage stage;
  stage.report.OnDebugLog([](const std::wstring&) { throw Erro(5, L"Cliente", L"O cliente falhou"); });
  EXPECT_EQ(RaisedByMishap(stage), Reported("Prova.Fonte", "Falha provocada"));
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
    CaixaStage stage;
    stage.around.journal.FailOn(L"CreateObject(\"" + std::wstring(need.progId) + L"\")",
                                Failure(MakeRuntimeError(RuntimeError::kCannotCreateObject)));
    EXPECT_EQ(stage.RunRaising(need.method, Parameters()),
              Reported("KodraRpt.CCaixaRpt::" + need.name, "O componente ActiveX não pode criar o objeto"));
    EXPECT_EQ(stage.heard.back(), "KodraRpt.CCaixaRpt::" + need.name +
                                      ": ----> saindo com o erro 429 em KodraRpt.CCaixaRpt::" + need.name +
                                      ": O componente ActiveX não pode criar o objeto");
  }
}

}  // namespace
}  // namespace kodra::reports
