// The frame that every report has.
#include "frame/report_call.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <thread>

#include "sql/tradutor_sql.h"
#include "tests/recorder/fake_surroundings.h"
#include "tests/recorder/raised.h"

namespace kodra::frame {
namespace {

using recorder::Failure;
using recorder::FakeSurroundings;
using recorder::Framed;
using recorder::Lines;
using recorder::Raised;
using recorder::RaisedBy;

constexpr auto kName = "CProvaRpt::RelatorioProva";

using Body = std::function<ReportRows(ReportCall&)>;

// An object whose report consists of the frame and what a test adds.
struct ProbeObject : ReportObject {
  explicit ProbeObject(platform::Surroundings& surroundings) : ReportObject(L"CProvaRpt", surroundings) {}
  Body body = [](ReportCall& call) { return call.Open(L"SELECT " + call.Sql().DataAtual()); };
};

struct ProbeCall : ReportCall {
  using Object = ProbeObject;
  ProbeCall(ProbeObject& object, std::wstring_view method, AutomationObject* parameters)
      : ReportCall(object, method, parameters), body(object.body) {}
  Body body;
};

ReportRows RelatorioProva(ProbeCall& call) {
  call.InicializaPS();
  return call.body(call);
}

ReportRows RunProbe(ProbeObject& object, AutomationObject* parameters) {
  return Run(object, L"RelatorioProva", &RelatorioProva, parameters);
}
ReportRows RunProbe(ProbeObject& object, AutomationObject* parameters, Body body) {
  object.body = std::move(body);
  return RunProbe(object, parameters);
}

class ReportCallTest : public testing::Test {
 protected:
  ReportCallTest() { Connect(L"Provider=SQLNCLI11;", sql::tbSQLServer); }

  // Sets the report's connection string, for which the connection component returns that database code.
  void Connect(const std::wstring& connectionString, const Value& tipoBanco) {
    around_.Register(L"KodraConexao.StrCon", {{L"TipoBanco", {tipoBanco}}});
    report_.SetStringConexao(connectionString);
  }
  Raised RaisedByReport() {
    return RaisedBy([&] { RunProbe(report_, parameters_.get()); });
  }
  Raised RaisedByBody(Body body) {
    return RaisedBy([&] { RunProbe(report_, parameters_.get(), std::move(body)); });
  }
  // The errors that InicializaPS raises outside the frame.
  Raised RaisedByInicializaPS(AutomationObject* parameters) {
    ReportCall call(report_, L"RelatorioProva", parameters);
    return RaisedBy([&] { call.InicializaPS(); });
  }
  std::int32_t LearntCode() {
    ReportCall call(report_, L"RelatorioProva", parameters_.get());
    call.InicializaPS();
    return call.Sql().Code();
  }

  FakeSurroundings around_;
  ObjectRef parameters_ = around_.NewObject(L"Parametros", {});
  ProbeObject report_{around_};
};

TEST_F(ReportCallTest, StartsWithoutAConnectionString) { EXPECT_EQ(ProbeObject(around_).StringConexao(), L""); }

TEST_F(ReportCallTest, KeepsTheConnectionStringUnchanged) {
  for (const wchar_t* text : {L" Provider=x ;; ", L"", L" "}) {
    report_.SetStringConexao(text);
    EXPECT_EQ(report_.StringConexao(), text);
  }
  EXPECT_EQ(around_.journal.Calls(), "");
}

TEST_F(ReportCallTest, InitialisesStepByStepAndReleasesTheConnectionComponent) {
  EXPECT_EQ(LearntCode(), sql::tbSQLServer);
  EXPECT_EQ(around_.journal.Calls(), Lines({
                                         R"(CreateObject("KodraConexao.StrCon") -> Object1)",
                                         R"(Object1.Let(StrCon, "Provider=SQLNCLI11;"))",
                                         "Object1.Get(TipoBanco) -> 2",
                                         "~Object1",
                                     }));
}

TEST_F(ReportCallTest, OpensItsRowsAfterTheInitialisationAndKeepsNothingButThem) {
  const ReportRows rows = RunProbe(report_, parameters_.get());
  EXPECT_NE(rows, nullptr);
  EXPECT_EQ(around_.journal.Calls(),
            Lines({
                R"(CreateObject("KodraConexao.StrCon") -> Object1)",
                R"(Object1.Let(StrCon, "Provider=SQLNCLI11;"))",
                "Object1.Get(TipoBanco) -> 2",
                "~Object1",
                "NewConnection() -> Connection1",
                R"(Connection1.SetConnectionString("Provider=SQLNCLI11;Persist Security Info=True;"))",
                "Connection1.SetCursorLocation(2)",
                "Connection1.SetIsolationLevel(4096)",
                R"(Connection1.Open("", "", -1))",
                "NewRecordset() -> Recordset1",
                "Recordset1.SetCursorLocation(2)",
                "Recordset1.SetCacheSize(100)",
                "Recordset1.Open(\"SELECT DATEADD(dd, 0, DATEDIFF(dd, 0, GETDATE()))\", Connection1, 0, 1, 1)",
                "~Connection1",
            }));
  EXPECT_EQ(around_.journal.LiveObjects(), 2);  // the rows and the parameters
  EXPECT_EQ(report_.StringConexao(), L"Provider=SQLNCLI11;");
}

TEST_F(ReportCallTest, AsksForTheConnectionStringFirst) {
  report_.SetStringConexao(L"");
  EXPECT_EQ(RaisedByReport(), Framed(kName, R"(É preciso definir a propriedade "StringConexao".)"));
  parameters_.reset();
  around_.journal.Forget();
  EXPECT_EQ(RaisedByReport(), Framed(kName, R"(É preciso definir a propriedade "StringConexao".)"));
  EXPECT_EQ(around_.journal.Calls(), "");
}

TEST_F(ReportCallTest, AsksForTheParameterObjectSecond) {
  EXPECT_EQ(RaisedBy([&] { RunProbe(report_, nullptr); }), Framed(kName, "Objeto não definido."));
  EXPECT_EQ(around_.journal.Calls(), "");
}

TEST_F(ReportCallTest, RaisesItsOwnNumbersAndSourceInsideTheFrame) {
  EXPECT_EQ(RaisedByInicializaPS(nullptr),
            (Raised{-2147211505, "KodraRpt.CProvaRpt::InicializaPS", "Objeto não definido."}));
  report_.SetStringConexao(L"");
  EXPECT_EQ(RaisedByInicializaPS(nullptr), (Raised{-2147211506, "KodraRpt.CProvaRpt::InicializaPS",
                                                   R"(É preciso definir a propriedade "StringConexao".)"}));
}

TEST_F(ReportCallTest, RaisesTheFramesNumber) { EXPECT_EQ(kReportError, -2147213397); }

TEST_F(ReportCallTest, AcceptsAConnectionStringOfOneBlank) {
  Connect(L" ", sql::tbSQLServer);
  EXPECT_NE(RunProbe(report_, parameters_.get()), nullptr);
  EXPECT_TRUE(around_.journal.Calls().starts_with(Lines({
      R"(CreateObject("KodraConexao.StrCon") -> Object1)",
      R"(Object1.Let(StrCon, " "))",
  })));
}

TEST_F(ReportCallTest, FramesAConnectionStringThatTheConnectionComponentRefuses) {
  Connect(L" ", sql::tbSQLServer);
  around_.journal.FailOn(L"Object1.Let", Failure(Erro(-2147220991, L"KodraConexao", L"String inválida")));
  EXPECT_EQ(RaisedByReport(), Framed(kName, "String inválida"));
}

TEST_F(ReportCallTest, FramesAConnectionComponentThatIsNotInstalled) {
  FakeSurroundings bare;
  ProbeObject report(bare);
  report.SetStringConexao(L"x");
  EXPECT_EQ(RaisedBy([&] { RunProbe(report, parameters_.get()); }),
            Framed(kName, "O componente ActiveX não pode criar o objeto"));
}

TEST_F(ReportCallTest, ConvertsTheDatabaseCodeToANumber) {
  Connect(L"x", L"7");
  EXPECT_EQ(LearntCode(), sql::tbSQLite);
  Connect(L"x", 2.0);
  EXPECT_EQ(LearntCode(), sql::tbSQLServer);
}

TEST_F(ReportCallTest, FramesADatabaseCodeThatIsNoNumber) {
  const std::pair<Value, const char*> kCodes[] = {
      {L"Oracle", "Tipos incompatíveis"}, {Null{}, "Uso de 'Null' inválido"}, {3e9, "Estouro"}};
  for (const auto& [code, cause] : kCodes) {
    Connect(L"x", code);
    EXPECT_EQ(RaisedByReport(), Framed(kName, cause));
  }
}

TEST_F(ReportCallTest, UsesTheDialectOfTheDatabaseAndSetsTheCodeOfTheThread) {
  const std::pair<std::int32_t, const wchar_t*> kToday[] = {
      {sql::tbOracle, L"TRUNC(SYSDATE)"}, {sql::tbSQLServer, L"DATEADD(dd, 0, DATEDIFF(dd, 0, GETDATE()))"},
      {sql::tbMySQL, L"CURDATE()"},       {sql::tbOracleAlt, L"TRUNC(SYSDATE)"},
      {sql::tbDB2, L"CURRENT DATE"},      {sql::tbSQLite, L"date('now')"},
  };
  for (const auto& [code, today] : kToday) {
    Connect(L"x", code);
    RunProbe(report_, parameters_.get(), [&, today = today, code = code](ReportCall& call) {
      EXPECT_EQ(call.Sql().DataAtual(), today) << code;
      EXPECT_EQ(call.Sql().Code(), code);
      return nullptr;
    });
    EXPECT_EQ(sql::SQLDataAtual(), today) << code;
  }
}

TEST_F(ReportCallTest, FramesTheTranslatorsRefusalOfADatabaseWithoutDialect) {
  for (const std::int32_t code : {sql::tbOther4, 0, -1, 8}) {
    Connect(L"x", code);
    EXPECT_EQ(RaisedByReport(), Framed(kName, "Não há entrada para o banco tipo " + std::to_string(code)));
  }
}

TEST_F(ReportCallTest, SeparatesObjectsOfDifferentDatabasesOnOneThread) {
  FakeSurroundings oracle;
  FakeSurroundings sqlite;
  oracle.Register(L"KodraConexao.StrCon", {{L"TipoBanco", {sql::tbOracle}}});
  sqlite.Register(L"KodraConexao.StrCon", {{L"TipoBanco", {sql::tbSQLite}}});
  ProbeObject oracleReport(oracle);
  ProbeObject sqliteReport(sqlite);
  oracleReport.SetStringConexao(L"um");
  sqliteReport.SetStringConexao(L"dois");
  const auto opened = [&](ProbeObject& report, FakeSurroundings& around) {
    around.journal.Forget();
    RunProbe(report, parameters_.get());
    const std::string calls = around.journal.Calls();
    const std::size_t start = calls.find("Recordset1.Open(");
    return calls.substr(start, calls.find('\n', start) - start);
  };
  for (int round = 0; round < 3; ++round) {
    EXPECT_EQ(opened(oracleReport, oracle), "Recordset1.Open(\"SELECT TRUNC(SYSDATE)\", Connection1, 0, 1, 1)");
    EXPECT_EQ(opened(sqliteReport, sqlite), "Recordset1.Open(\"SELECT date('now')\", Connection1, 0, 1, 1)");
  }
}

TEST_F(ReportCallTest, SeparatesTheDatabasesOfDifferentThreads) {
  Connect(L"x", sql::tbOracle);
  RunProbe(report_, parameters_.get(), [&](ReportCall& here) {
    std::thread([] {
      FakeSurroundings around;
      around.Register(L"KodraConexao.StrCon", {{L"TipoBanco", {sql::tbSQLite}}});
      ProbeObject report(around);
      report.SetStringConexao(L"y");
      const ObjectRef parameters = around.NewObject(L"Parametros", {});
      ReportCall there(report, L"RelatorioProva", parameters.get());
      there.InicializaPS();
      EXPECT_EQ(there.Sql().DataAtual(), L"date('now')");
      EXPECT_EQ(sql::SQLDataAtual(), L"date('now')");
    }).join();
    EXPECT_EQ(here.Sql().DataAtual(), L"TRUNC(SYSDATE)");
    EXPECT_EQ(sql::SQLDataAtual(), L"TRUNC(SYSDATE)");
    return nullptr;
  });
}

constexpr auto kOracle = L"TRUNC(SYSDATE)";
constexpr auto kSQLServer = L"DATEADD(dd, 0, DATEDIFF(dd, 0, GETDATE()))";
constexpr auto kSQLite = L"date('now')";

// A report object of another database.
struct OtherReport {
  explicit OtherReport(std::int32_t code) {
    around.Register(L"KodraConexao.StrCon", {{L"TipoBanco", {code}}});
    report.SetStringConexao(L"outra");
  }
  void Run(Body body) { RunProbe(report, parameters.get(), std::move(body)); }

  FakeSurroundings around;
  ObjectRef parameters = around.NewObject(L"Parametros", {});
  ProbeObject report{around};
};

TEST_F(ReportCallTest, KeepsItsDatabaseWhileReportsOfOthersRunInsideIt) {
  OtherReport sqlite(sql::tbSQLite);
  OtherReport sqlServer(sql::tbSQLServer);
  Connect(L"x", sql::tbOracle);
  RunProbe(report_, parameters_.get(), [&](ReportCall& outer) {
    sqlite.Run([&](ReportCall& inner) {
      EXPECT_EQ(inner.Sql().DataAtual(), kSQLite);
      sqlServer.Run([](ReportCall& innermost) {
        EXPECT_EQ(innermost.Sql().DataAtual(), kSQLServer);
        return nullptr;
      });
      EXPECT_EQ(inner.Sql().DataAtual(), kSQLite);
      return nullptr;
    });
    EXPECT_EQ(outer.Sql().DataAtual(), kOracle);
    return nullptr;
  });
}

TEST_F(ReportCallTest, KeepsItsDatabaseWhenAReportInsideItFails) {
  Connect(L"x", sql::tbOracle);
  OtherReport sqlite(sql::tbSQLite);
  OtherReport other4(sql::tbOther4);
  RunProbe(report_, parameters_.get(), [&](ReportCall& outer) {
    EXPECT_EQ(RaisedBy([&] {
                sqlite.Run([](ReportCall&) -> ReportRows { throw Erro(-2147220000, L"Prova.Fonte", L"Falha"); });
              }),
              Framed(kName, "Falha"));
    EXPECT_EQ(outer.Sql().DataAtual(), kOracle);
    EXPECT_EQ(RaisedBy([&] { RunProbe(other4.report, other4.parameters.get()); }),
              Framed(kName, "Não há entrada para o banco tipo 4"));
    EXPECT_EQ(outer.Sql().DataAtual(), kOracle);
    EXPECT_EQ(RaisedBy([&] { RunProbe(sqlite.report, nullptr); }), Framed(kName, "Objeto não definido."));
    EXPECT_EQ(outer.Sql().DataAtual(), kOracle);
    return nullptr;
  });
}

TEST_F(ReportCallTest, KeepsItsDatabaseButNotItsConnectionStringWhenItsObjectIsCalledInsideIt) {
  Connect(L"x", sql::tbOracle);
  RunProbe(report_, parameters_.get(), [&](ReportCall& outer) {
    Connect(L"y", sql::tbSQLite);
    RunProbe(report_, parameters_.get(), [&](ReportCall& inner) {
      EXPECT_EQ(inner.Sql().DataAtual(), kSQLite);
      return nullptr;
    });
    EXPECT_EQ(outer.Sql().DataAtual(), kOracle);
    EXPECT_EQ(outer.StringConexao(), L"y");  // the client changed it, and every use reads it again
    return nullptr;
  });
}

TEST_F(ReportCallTest, KeepsOnlyTheDescriptionOfAnError) {
  EXPECT_EQ(
      RaisedByBody([](ReportCall&) -> ReportRows { throw Erro(-2147220000, L"Outro.Modulo", L"Falha qualquer"); }),
      Framed(kName, "Falha qualquer"));
  EXPECT_EQ(RaisedByBody([](ReportCall&) -> ReportRows { throw Erro(1, L"", L""); }), Framed(kName, ""));
}

TEST_F(ReportCallTest, FramesExhaustedMemoryAndForeignExceptions) {
  EXPECT_EQ(RaisedByBody([](ReportCall&) -> ReportRows { throw std::bad_alloc(); }),
            Framed(kName, "Memória insuficiente"));
  EXPECT_EQ(RaisedByBody([](ReportCall&) -> ReportRows { throw std::runtime_error("unexpected"); }),
            Framed(kName, "Erro interno"));
  EXPECT_EQ(RaisedByBody([](ReportCall&) -> ReportRows { throw 5; }), Framed(kName, "Erro interno"));
}

TEST_F(ReportCallTest, FramesAProvidersErrorWithItsLayerAndNativeCode) {
  around_.ado.nativeErrors = {208};
  around_.journal.FailOn(L"Recordset1.Open", Failure(Erro(-2147217865, L"SQLNCLI11", L"Objeto inválido")));
  EXPECT_EQ(RaisedByReport(), Framed(kName, "[SQLNCLI11]: Objeto inválido [N:208]"));
  EXPECT_EQ(around_.journal.LiveObjects(), 1);  // the parameters
}

TEST_F(ReportCallTest, WorksAgainAfterAFailure) {
  EXPECT_EQ(RaisedBy([&] { RunProbe(report_, nullptr); }), Framed(kName, "Objeto não definido."));
  EXPECT_NE(RunProbe(report_, parameters_.get()), nullptr);
}

}  // namespace
}  // namespace kodra::frame
