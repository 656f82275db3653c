// What the methods of CCaixaRpt have in common: how they find the database, and the first checks of a call.
#include "reports/reports.h"

#include <gtest/gtest.h>

#include "tests/reports/modules/caixa_scenario.h"

namespace kodra::reports {
namespace {

using recorder::Raised;

const CaixaMethod kDivisoria = &CCaixaRpt::EtiquetaDivisoria;
constexpr auto kNoModule = "SELECT d.COD_DOCTO FROM DOCUMENTO d WHERE d.NUM_CAIXA = '' ORDER BY d.COD_DOCTO";

// The error of a call with that parameter object.
Raised RaisedByCall(CaixaScenario& scenario, CaixaMethod method, const ObjectRef& parameters) {
  scenario.around.journal.Forget();
  return scenario.RunRaising(method, parameters);
}

// The properties.

TEST(CCaixaRptTest, StartsWithoutConnectionAndLogFile) {
  recorder::FakeSurroundings around;
  const ModuleObject report(L"CCaixaRpt", around);
  EXPECT_EQ(report.StringConexao(), L"");
  EXPECT_FALSE(report.Conexao());
  EXPECT_EQ(report.LogFile(), L"");
}

TEST(CCaixaRptTest, KeepsItsPropertiesUnchanged) {
  CaixaScenario scenario(DatabaseOf(tbSQLServer), Path::kClientConnection);
  const std::shared_ptr<platform::Connection> connection = scenario.report.Conexao().connection;
  scenario.report.SetStringConexao(L" Provider=x ;; ");
  scenario.report.SetLogFile(L" /var/log/kodra.log ");
  EXPECT_EQ(scenario.report.StringConexao(), L" Provider=x ;; ");
  EXPECT_EQ(scenario.report.LogFile(), L" /var/log/kodra.log ");
  EXPECT_EQ(scenario.report.Conexao().connection, connection);
  EXPECT_EQ(scenario.around.journal.Calls(), "");
  scenario.report.SetConexao({});
  EXPECT_FALSE(scenario.report.Conexao());
}

// Where the database is.

TEST(CCaixaRptTest, AsksForAConnectionOrAConnectionStringBeforeAnythingElse) {
  for (const auto& [name, method] : FramedMethods())
    for (const ObjectRef& parameters : {CaixaScenario::Own({}), ObjectRef()}) {
      CaixaScenario scenario;
      scenario.report.SetStringConexao(L"");
      EXPECT_EQ(RaisedByCall(scenario, method, parameters),
                Reported("KodraRpt.CCaixaRpt::InicializaPS",
                         R"(Uma das propriedades "Conexao" ou "StringConexao" precisam ser informadas.)"));
      const std::string line = "KodraRpt.CCaixaRpt::" + name +
                               ": ----> saindo com o erro -2147211506 em KodraRpt.CCaixaRpt::InicializaPS: "
                               R"(Uma das propriedades "Conexao" ou "StringConexao" precisam ser informadas.)";
      EXPECT_EQ(scenario.around.journal.Calls(), All({scenario.FirstLogLines(line)}));
      EXPECT_EQ(scenario.heard, CallLines{line});
    }
}

TEST(CCaixaRptTest, AsksForTheParameterObjectSecond) {
  for (const auto& [name, method] : FramedMethods()) {
    const std::string line = "KodraRpt.CCaixaRpt::" + name +
                             ": ----> saindo com o erro -2147211505 em KodraRpt.CCaixaRpt::InicializaPS: "
                             "Objeto não definido.";
    CaixaScenario onString;
    EXPECT_EQ(RaisedByCall(onString, method, nullptr),
              Reported("KodraRpt.CCaixaRpt::InicializaPS", "Objeto não definido."));
    EXPECT_EQ(onString.around.journal.Calls(), All({onString.FirstLogLines(line)}));
    EXPECT_EQ(onString.heard, CallLines{line});

    CaixaScenario onClients(DatabaseOf(tbSQLServer), Path::kClientConnection);
    EXPECT_EQ(RaisedByCall(onClients, method, nullptr),
              Reported("KodraRpt.CCaixaRpt::InicializaPS", "Objeto não definido."));
    EXPECT_EQ(onClients.around.journal.Calls(),
              All({{R"(ConexaoDoCliente.ConnectionString() -> "Provider=SQLNCLI11;Data Source=arquivo;")"},
                   onClients.FirstLogLines(line)}));
    EXPECT_EQ(onClients.report.StringConexao(), L"Provider=SQLNCLI11;Data Source=arquivo;");
  }
}

TEST(CCaixaRptTest, PrefersTheClientsConnectionAndKeepsItsString) {
  for (const auto& [name, method] : FramedMethods()) {
    SCOPED_TRACE(name);
    CaixaScenario scenario(DatabaseOf(tbSQLServer), Path::kClientConnection);
    const std::string undisturbed = scenario.Run(method, Parameters());
    CaixaScenario both(DatabaseOf(tbSQLServer), Path::kClientConnection);
    both.report.SetStringConexao(L"Provider=OraOLEDB.Oracle;Data Source=ARQ");
    EXPECT_EQ(both.Run(method, Parameters()), undisturbed);
    EXPECT_EQ(both.report.StringConexao(), L"Provider=SQLNCLI11;Data Source=arquivo;");
  }
}

TEST(CCaixaRptTest, NeverOpensClosesOrChangesTheClientsConnection) {
  for (const auto& [name, method] : FramedMethods()) {
    CaixaScenario scenario(DatabaseOf(tbOracle), Path::kClientConnection);
    const std::string calls = scenario.Run(method, Parameters());
    const std::string read =
        "ConexaoDoCliente.ConnectionString() -> \"Provider=OraOLEDB.Oracle;Data Source=ARQ;User ID=kodra\"\n";
    EXPECT_TRUE(calls.starts_with(read)) << calls;
    EXPECT_EQ(calls.find("ConexaoDoCliente.", read.size()), std::string::npos) << calls;
    EXPECT_EQ(calls.find("NewConnection"), std::string::npos) << calls;
  }
}

TEST(CCaixaRptTest, ReadsTheClientsConnectionAgainInEachCall) {
  CaixaScenario scenario(DatabaseOf(tbSQLServer), Path::kClientConnection);
  scenario.Run(kDivisoria, Parameters());
  scenario.SetClientConnection("Driver={MySQL ODBC 8.0 Unicode Driver};Server=arquivo");
  CaixaScenario other(DatabaseOf(tbMySQL), Path::kClientConnection);
  scenario.around.Register(L"KodraConexao.StrCon", {{L"TipoBanco", {tbMySQL}}});
  EXPECT_EQ(scenario.Run(kDivisoria, Parameters()), other.Run(kDivisoria, Parameters()));
  EXPECT_EQ(scenario.report.StringConexao(), L"Driver={MySQL ODBC 8.0 Unicode Driver};Server=arquivo");
}

TEST(CCaixaRptTest, FindsOutTheDatabaseAgainInEachCall) {
  CaixaScenario scenario;
  scenario.Run(&CCaixaRpt::ModulosVencidos, Parameters());
  scenario.around.Register(L"KodraConexao.StrCon", {{L"TipoBanco", {tbDB2}}});
  scenario.report.SetStringConexao(L"Provider=IBMDADB2;Data Source=arquivo;");
  CaixaScenario other(DatabaseOf(tbDB2));
  EXPECT_EQ(scenario.Run(&CCaixaRpt::ModulosVencidos, Parameters()),
            other.Run(&CCaixaRpt::ModulosVencidos, Parameters()));
}

TEST(CCaixaRptTest, ReturnsToTheConnectionStringWithoutTheClientsConnection) {
  CaixaScenario scenario(DatabaseOf(tbSQLServer), Path::kClientConnection);
  scenario.report.SetConexao({});
  scenario.report.SetStringConexao(L"Provider=SQLNCLI11;Data Source=arquivo;");
  CaixaScenario other;
  EXPECT_EQ(scenario.Run(kDivisoria, Parameters()), other.Run(kDivisoria, Parameters()));
}

TEST(CCaixaRptTest, AcceptsAConnectionStringOfOneBlank) {
  CaixaScenario scenario;
  scenario.report.SetStringConexao(L" ");
  EXPECT_EQ(scenario.Run(kDivisoria, Parameters()),
            All({{
                R"(CreateObject("KodraConexao.StrCon") -> Object1)",
                R"(Object1.Let(StrCon, " "))",
                "Object1.Get(TipoBanco) -> 2",
                "~Object1",
                "NewConnection() -> Connection1",
                R"(Connection1.SetConnectionString(" ;Persist Security Info=True;"))",
                "Connection1.SetCursorLocation(2)",
                "Connection1.SetIsolationLevel(4096)",
                R"(Connection1.Open("", "", -1))",
                "NewRecordset() -> Recordset1",
                "Recordset1.SetCursorLocation(2)",
                "Recordset1.SetCacheSize(100)",
                "Recordset1.Open(\"" + std::string(kNoModule) + "\", Connection1, 0, 1, 1)",
                "~Connection1",
                "~Recordset1",
            }}));
}

TEST(CCaixaRptTest, PassesTheClientsConnectionOnToTheBusinessComponents) {
  const std::string statement =
      "SELECT c.DESC_CAIXA, s.COD7 AS NUM_CAIXA, s.TIPO_GUARDA, s.ANOS_VENCIMENTO "
      "FROM CAIXA c INNER JOIN CAIXA_SUBORDINADA s ON c.NUM_CAIXA = s.NUM_CAIXA "
      "WHERE (s.NUM_CAIXA='' AND s.NUM_SEQ=0)  OR (s.NUM_CAIXA='' AND s.NUM_SEQ=0)  OR "
      "(s.NUM_CAIXA='' AND s.NUM_SEQ=0)";
  CaixaScenario scenario(DatabaseOf(tbSQLServer), Path::kClientConnection);
  scenario.report.SetLogFile(L"/var/log/kodra.log");
  scenario.report.SetStringConexao(L"outra");
  EXPECT_EQ(scenario.Run(&CCaixaRpt::EtiquetaAbertura, {{L"Tipo", L"S"}}),
            All({{
                R"(ConexaoDoCliente.ConnectionString() -> "Provider=SQLNCLI11;Data Source=arquivo;")",
                R"(CreateObject("KodraConexao.StrCon") -> Object1)",
                R"(Object1.Let(StrCon, "Provider=SQLNCLI11;Data Source=arquivo;"))",
                "Object1.Get(TipoBanco) -> 2",
                "~Object1",
                R"(CreateObject("KodraBsnV3.ModulosBsn") -> Object2)",
                R"(Object2.Let(StringConexao, "Provider=SQLNCLI11;Data Source=arquivo;"))",
                R"(Object2.Let(LogFile, "/var/log/kodra.log"))",
                "Object2.Set(Conexao, ObjetoConexao)",
                R"(Object2.Call(NumCxSubordinadaSQL, ByRef 2, "s") -> "s.COD7")",
                "~Object2",
                "NewRecordset() -> Recordset1",
                "Recordset1.SetCursorLocation(3)",
                "Recordset1.Open(\"" + statement + "\", ConexaoDoCliente, -1, -1, -1)",
                "~Recordset1",
            }}));
}

TEST(CCaixaRptTest, ReturnsRowsThatOutliveTheReport) {
  for (const Path path : kPaths) {
    CaixaScenario scenario(DatabaseOf(tbSQLServer), path);
    frame::ReportRows rows;
    {
      ModuleObject report(L"CCaixaRpt", scenario.around);
      report.SetStringConexao(scenario.report.StringConexao());
      report.SetConexao(scenario.report.Conexao());
      rows = frame::Run(report, L"EtiquetaDivisoria", &CCaixaRpt::EtiquetaDivisoria, CaixaScenario::Own({}).get());
    }
    EXPECT_EQ(rows->State(), platform::ad::kStateOpen);
  }
}

}  // namespace
}  // namespace kodra::reports
