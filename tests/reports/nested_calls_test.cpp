// Reports that run while another one runs on the same thread: called by the parameter object of a client, or by a
// listener to the log of the module reports.
#include <gtest/gtest.h>

#include "reports/reports.h"
#include "tests/recorder/fake_surroundings.h"
#include "tests/recorder/raised.h"
#include "tests/reports/modules/caixa_scenario.h"

namespace kodra::reports {
namespace {

using recorder::Framed;
using recorder::Raised;
using recorder::RaisedBy;
using Action = std::function<void()>;

// A client's parameter object that does something each time a property of it is read.
class BusyParameters final : public AutomationObject {
 public:
  BusyParameters(std::map<std::wstring, Value> properties, Action action)
      : properties_(std::move(properties)), action_(std::move(action)) {}

  Value Get(std::wstring_view member) override {
    action_();
    return properties_.at(std::wstring(member));
  }
  void Let(std::wstring_view, const Value&) override { FAIL() << "a parameter object is only read"; }
  void Set(std::wstring_view, const ObjectRef&) override { FAIL() << "a parameter object is only read"; }
  Value Call(std::wstring_view, std::span<const Value>) override { return {}; }

 private:
  std::map<std::wstring, Value> properties_;
  Action action_;
};

// The statements that the recordsets were opened with, one per line.
std::string OpenedBy(const recorder::FakeSurroundings& around) {
  const std::string calls = around.journal.Calls();
  const std::string before = ".Open(\"SELECT";
  std::string statements;
  for (std::size_t at = calls.find(before); at != std::string::npos; at = calls.find(before, at + 1)) {
    const std::size_t start = at + std::string(".Open(\"").size();
    statements += calls.substr(start, calls.find('"', start) - start) + "\n";
  }
  return statements;
}

// A report on media and its statement, whose condition is in the dialect of the database.
class Media {
 public:
  explicit Media(std::int32_t code) {
    Install(DatabaseOf(code), around_);
    report_.SetStringConexao(recorder::Wide(DatabaseOf(code).connectionString));
  }
  // Asks for the expired media, with that action at each reading of a property.
  std::string Run(Action action) {
    BusyParameters parameters({{L"TipoRpt", L"V"}}, std::move(action));
    around_.journal.Forget();
    frame::Run(report_, L"RelatorioMidias", &CCDRpt::RelatorioMidias, &parameters);
    return OpenedBy(around_);
  }
  void RunAlone() {
    Run([] {});
  }

 private:
  recorder::FakeSurroundings around_;
  frame::ReportObject report_{L"CCDRpt", around_};
};

std::string Expired(const std::string& condition) {
  return "SELECT NUM_CD, DOC_INICIAL, DOC_FINAL, DATA_GRAVACAO, 'Mídias Vencidas' AS RELATORIO  FROM CD "
         "INNER JOIN TIPO_MIDIA t ON CD.COD_MIDIA=t.COD_MIDIA WHERE " +
         condition + " ORDER BY NUM_CD\n";
}
const std::string kOnOracle = Expired("ADD_MONTHS(DATA_GRAVACAO, t.VALIDADE_MIDIA * 12) <= TRUNC(SYSDATE)");
const std::string kOnSQLite = Expired("date('DATA_GRAVACAO', '+t.VALIDADE_MIDIA years') <= date('now')");

// The operators of an archive on a database, or the error of reading them.
Raised Operators(std::int32_t code, bool failing) {
  recorder::FakeSurroundings around;
  around.Register(L"KodraConexao.StrCon", {{L"TipoBanco", {code}}});
  around.ado.results = {
      {{L"DESCR_OPERADOR", L"NOME_COMPLETO", L"TIPO", L"DESCR_DEPTO", L"CHAPA", L"RAMAL", L"ATIVO", L"DESCR_GRUPO_OP"},
       {}}};
  if (failing) around.journal.FailOn(L"Recordset1.Open", recorder::Failure(Erro(-2147220000, L"Fonte", L"Falha")));
  frame::ReportObject report(L"COperadorRpt", around);
  report.SetStringConexao(L"Provider=SQLNCLI11;");
  const ObjectRef parameters = around.NewObject(L"Parametros", {});
  return RaisedBy(
      [&] { frame::Run(report, L"RelatorioOperadores", &COperadorRpt::RelatorioOperadores, parameters.get()); });
}

TEST(NestedCallsTest, OfReportsOfOtherDatabasesLeaveTheOuterStatementInItsDialect) {
  EXPECT_EQ(Media(tbOracle).Run([] { Media(tbSQLite).RunAlone(); }), kOnOracle);
  EXPECT_EQ(Media(tbOracle).Run([] { EXPECT_EQ(Operators(tbSQLServer, false).number, 0); }), kOnOracle);
  EXPECT_EQ(Media(tbOracle).Run([] {
    CaixaScenario modules(DatabaseOf(tbMySQL));
    modules.Run(&CCaixaRpt::ModulosVencidos, Parameters());
  }),
            kOnOracle);
  EXPECT_EQ(Media(tbSQLite).Run([] { Media(tbOracle).RunAlone(); }), kOnSQLite);
}

TEST(NestedCallsTest, ThatFailLeaveTheOuterStatementInItsDialect) {
  EXPECT_EQ(Media(tbOracle).Run([] {
    EXPECT_EQ(RaisedBy([] { Media(tbOther4).RunAlone(); }),
              Framed("CCDRpt::RelatorioMidias", "Não há entrada para o banco tipo 4"));
  }),
            kOnOracle);
  EXPECT_EQ(Media(tbOracle).Run([] {
    EXPECT_EQ(Operators(tbSQLServer, true), (Raised{frame::kReportError, "KodraRpt.COperadorRpt::RelatorioOperadores",
                                                    "Erro ao obter dados do SGBD: [Fonte]: Falha"}));
  }),
            kOnOracle);
  EXPECT_EQ(Media(tbOracle).Run([] {
    CaixaScenario modules(DatabaseOf(tbOther4));
    EXPECT_EQ(modules.RunRaising(&CCaixaRpt::ModulosVencidos, Parameters()),
              Reported("TradutorSQL.SQLToInt", "Não há entrada para o banco tipo 4"));
  }),
            kOnOracle);
}

TEST(NestedCallsTest, TwoDeepKeepEachStatementInItsDialect) {
  std::string inner;
  EXPECT_EQ(Media(tbOracle).Run([&] { inner = Media(tbSQLite).Run([] { Media(tbSQLServer).RunAlone(); }); }),
            kOnOracle);
  EXPECT_EQ(inner, kOnSQLite);
}

TEST(NestedCallsTest, OfALogListenerLeaveTheOuterStatementInItsDialect) {
  std::vector<std::string> heard;
  EXPECT_EQ(Media(tbOracle).Run([&] {
    CaixaScenario modules;
    modules.report.OnDebugLog([&](const std::wstring& line) {
      heard.push_back(recorder::Utf8(line));
      Media(tbSQLite).RunAlone();
    });
    modules.Run(&CCaixaRpt::EtiquetaFechamentoSubordinada, {{L"Modulo1", L"AB001"}});
  }),
            kOnOracle);
  EXPECT_EQ(heard.size(), 4U);  // two lines for each of the two readings
}

TEST(NestedCallsTest, OfTheSameModuleReportLeaveItsDatabaseCodeToTheOuterOne) {
  CaixaScenario scenario;
  scenario.report.OnDebugLog([&](const std::wstring&) {
    scenario.around.Register(L"KodraConexao.StrCon", {{L"TipoBanco", {tbSQLite}}});
    EXPECT_NE(RunModule(scenario.report, &CCaixaRpt::EtiquetaDivisoria, CaixaScenario::Own({}).get()), nullptr);
  });
  const std::string calls = scenario.Run(&CCaixaRpt::EtiquetaFechamentoSubordinada, {{L"Modulo1", L"AB001"}});
  EXPECT_NE(calls.find(".Get(TipoBanco) -> 7\n"), std::string::npos) << calls;
  EXPECT_NE(calls.find(".Call(NumCxSubordinadaSQL, ByRef 2, \"s\") -> \"s.COD7\"\n"), std::string::npos) << calls;
}

TEST(NestedCallsTest, OfTheSameModuleReportLeaveItsStatementInItsDialect) {
  CaixaScenario alone;
  alone.Run(&CCaixaRpt::ModulosVencidos, Parameters());
  CaixaScenario scenario;
  BusyParameters parameters({{L"CodDepto", L""}, {L"ModoPregresso", false}}, [&] {
    scenario.around.Register(L"KodraConexao.StrCon", {{L"TipoBanco", {tbSQLite}}});
    EXPECT_NE(RunModule(scenario.report, &CCaixaRpt::ModulosVencidos, CaixaScenario::Own({}).get()), nullptr);
    scenario.around.journal.Forget();
  });
  EXPECT_NE(RunModule(scenario.report, &CCaixaRpt::ModulosVencidos, &parameters), nullptr);
  EXPECT_EQ(OpenedBy(scenario.around), OpenedBy(alone.around));
}

TEST(NestedCallsTest, OfAListenerToAFailureLeaveTheErrorOfTheFailedCall) {
  CaixaScenario scenario;
  scenario.AnswerSubordinates(scenario.NewSubordinates(0));
  scenario.report.OnDebugLog([](const std::wstring&) { Media(tbSQLite).RunAlone(); });
  EXPECT_EQ(scenario.RunRaising(&CCaixaRpt::EtiquetaFechamentoSubordinada, {{L"Modulo1", L"AB001"}}),
            Reported("KodraRpt.CCaixaRpt::EtiquetaFechamentoSubordinada",
                     "Não há módulos subordinados fechados associados ao módulo AB001"));
}

}  // namespace
}  // namespace kodra::reports
