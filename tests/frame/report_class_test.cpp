// The frame that every report class has.
#include "frame/report_class.h"

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

// A report with nothing in it but the frame and what a test puts there.
class ProbeReport : public ReportClass {
 public:
  explicit ProbeReport(platform::Surroundings& surroundings) : ReportClass(L"CProvaRpt", surroundings) {}

  using ReportClass::InicializaPS;
  using ReportClass::NewBuilder;
  using ReportClass::Open;
  using ReportClass::TipoBanco;

  ReportRows RelatorioProva(AutomationObject* obj, const std::function<ReportRows()>& body) {
    return Report(L"RelatorioProva", [&] {
      InicializaPS(obj);
      return body();
    });
  }
  ReportRows RelatorioProva(AutomationObject* obj) {
    return RelatorioProva(obj, [this] { return Open(L"SELECT " + ToString(sql::SQLDataAtual())); });
  }
};

class ReportClassTest : public testing::Test {
 protected:
  ReportClassTest() { Connect(L"Provider=SQLNCLI11;", 2); }

  // Gives the report a connection string, which the connection component takes for a database code.
  void Connect(const std::wstring& connectionString, const Value& tipoBanco) {
    around_.Register(L"KodraConexao.StrCon", {{L"TipoBanco", {tipoBanco}}});
    report_.SetStringConexao(connectionString);
  }
  Raised RaisedByReport() {
    return RaisedBy([&] { report_.RelatorioProva(parameters_.get()); });
  }
  Raised RaisedByBody(const std::function<ReportRows()>& body) {
    return RaisedBy([&] { report_.RelatorioProva(parameters_.get(), body); });
  }

  FakeSurroundings around_;
  ObjectRef parameters_ = around_.NewObject(L"Parametros", {});
  ProbeReport report_{around_};
};

TEST_F(ReportClassTest, StartsWithoutAConnectionString) { EXPECT_EQ(ProbeReport(around_).StringConexao(), L""); }

TEST_F(ReportClassTest, KeepsTheConnectionStringAsGiven) {
  for (const wchar_t* text : {L" Provider=x ;; ", L"", L" "}) {
    report_.SetStringConexao(text);
    EXPECT_EQ(report_.StringConexao(), text);
  }
  EXPECT_EQ(around_.journal.Calls(), "");
}

TEST_F(ReportClassTest, InitialisesStepByStepAndReleasesTheConnectionComponent) {
  report_.InicializaPS(parameters_.get());
  EXPECT_EQ(around_.journal.Calls(), Lines({
                                         R"(CreateObject("KodraConexao.StrCon") -> Object1)",
                                         R"(Object1.Let(StrCon, "Provider=SQLNCLI11;"))",
                                         "Object1.Get(TipoBanco) -> 2",
                                         "~Object1",
                                     }));
  EXPECT_EQ(report_.TipoBanco(), 2);
}

TEST_F(ReportClassTest, OpensItsRowsAfterTheInitialisationAndKeepsNothingButThem) {
  const ReportRows rows = report_.RelatorioProva(parameters_.get());
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

TEST_F(ReportClassTest, HandsTheBuilderTheDatabaseCode) {
  Connect(L"x", 6);
  report_.InicializaPS(parameters_.get());
  EXPECT_EQ(report_.NewBuilder().TipoBanco(), 6);
}

TEST_F(ReportClassTest, AsksForTheConnectionStringFirst) {
  report_.SetStringConexao(L"");
  EXPECT_EQ(RaisedByReport(),
            Framed("CProvaRpt::RelatorioProva", R"(É preciso definir a propriedade "StringConexao".)"));
  parameters_.reset();
  around_.journal.Forget();
  EXPECT_EQ(RaisedByReport(),
            Framed("CProvaRpt::RelatorioProva", R"(É preciso definir a propriedade "StringConexao".)"));
  EXPECT_EQ(around_.journal.Calls(), "");
}

TEST_F(ReportClassTest, AsksForTheParameterObjectSecond) {
  EXPECT_EQ(RaisedBy([&] { report_.RelatorioProva(nullptr); }),
            Framed("CProvaRpt::RelatorioProva", "Objeto não definido."));
  EXPECT_EQ(around_.journal.Calls(), "");
}

TEST_F(ReportClassTest, RaisesItsOwnNumbersAndSourceInsideTheFrame) {
  EXPECT_EQ(RaisedBy([&] { report_.InicializaPS(nullptr); }),
            (Raised{-2147211505, "KodraRpt.CProvaRpt::InicializaPS", "Objeto não definido."}));
  report_.SetStringConexao(L"");
  EXPECT_EQ(
      RaisedBy([&] { report_.InicializaPS(nullptr); }),
      (Raised{-2147211506, "KodraRpt.CProvaRpt::InicializaPS", R"(É preciso definir a propriedade "StringConexao".)"}));
}

TEST_F(ReportClassTest, RaisesTheFramesNumber) { EXPECT_EQ(Framed("", "").number, -2147213397); }

TEST_F(ReportClassTest, LetsAConnectionStringOfOneBlankThrough) {
  Connect(L" ", 2);
  EXPECT_NE(report_.RelatorioProva(parameters_.get()), nullptr);
  EXPECT_TRUE(around_.journal.Calls().starts_with(Lines({
      R"(CreateObject("KodraConexao.StrCon") -> Object1)",
      R"(Object1.Let(StrCon, " "))",
  })));
}

TEST_F(ReportClassTest, FramesAConnectionStringThatTheConnectionComponentRefuses) {
  Connect(L" ", 2);
  around_.journal.FailOn(L"Object1.Let", Failure(Erro(-2147220991, L"KodraConexao", L"String inválida")));
  EXPECT_EQ(RaisedByReport(), Framed("CProvaRpt::RelatorioProva", "String inválida"));
}

TEST_F(ReportClassTest, FramesAConnectionComponentThatIsNotInstalled) {
  FakeSurroundings bare;
  ProbeReport report(bare);
  report.SetStringConexao(L"x");
  EXPECT_EQ(RaisedBy([&] { report.RelatorioProva(parameters_.get()); }),
            Framed("CProvaRpt::RelatorioProva", "O componente ActiveX não pode criar o objeto"));
}

TEST_F(ReportClassTest, ConvertsTheDatabaseCodeToANumber) {
  Connect(L"x", L"7");
  report_.InicializaPS(parameters_.get());
  EXPECT_EQ(report_.TipoBanco(), 7);
  Connect(L"x", 2.0);
  report_.InicializaPS(parameters_.get());
  EXPECT_EQ(report_.TipoBanco(), 2);
}

TEST_F(ReportClassTest, FramesADatabaseCodeThatIsNoNumber) {
  Connect(L"x", L"Oracle");
  EXPECT_EQ(RaisedByReport(), Framed("CProvaRpt::RelatorioProva", "Tipos incompatíveis"));
  Connect(L"x", Null{});
  EXPECT_EQ(RaisedByReport(), Framed("CProvaRpt::RelatorioProva", "Uso de 'Null' inválido"));
  Connect(L"x", 3e9);
  EXPECT_EQ(RaisedByReport(), Framed("CProvaRpt::RelatorioProva", "Estouro"));
}

TEST_F(ReportClassTest, SetsTheTranslatorsCodeAtEveryCall) {
  const std::pair<std::int32_t, const wchar_t*> kToday[] = {
      {1, L"TRUNC(SYSDATE)"}, {2, L"DATEADD(dd, 0, DATEDIFF(dd, 0, GETDATE()))"},
      {3, L"CURDATE()"},      {5, L"TRUNC(SYSDATE)"},
      {6, L"CURRENT DATE"},   {7, L"date('now')"},
  };
  for (const auto& [code, today] : kToday) {
    Connect(L"x", code);
    std::wstring built;
    report_.RelatorioProva(parameters_.get(), [&] {
      built = ToString(sql::SQLDataAtual());
      return nullptr;
    });
    EXPECT_EQ(built, today) << code;
    EXPECT_EQ(report_.TipoBanco(), code);
  }
}

TEST_F(ReportClassTest, FramesTheTranslatorsRefusalOfADatabaseWithoutDialect) {
  for (const std::int32_t code : {4, 0, -1, 8}) {
    Connect(L"x", code);
    EXPECT_EQ(RaisedByReport(),
              Framed("CProvaRpt::RelatorioProva", "Não há entrada para o banco tipo " + std::to_string(code)));
  }
}

TEST_F(ReportClassTest, KeepsObjectsOfDifferentDatabasesApartOnOneThread) {
  FakeSurroundings oracle;
  FakeSurroundings sqlite;
  oracle.Register(L"KodraConexao.StrCon", {{L"TipoBanco", {1}}});
  sqlite.Register(L"KodraConexao.StrCon", {{L"TipoBanco", {7}}});
  ProbeReport oracleReport(oracle);
  ProbeReport sqliteReport(sqlite);
  oracleReport.SetStringConexao(L"um");
  sqliteReport.SetStringConexao(L"dois");
  const auto opened = [&](ProbeReport& report, FakeSurroundings& around) {
    around.journal.Forget();
    report.RelatorioProva(parameters_.get());
    const std::string calls = around.journal.Calls();
    const std::size_t start = calls.find("Recordset1.Open(");
    return calls.substr(start, calls.find('\n', start) - start);
  };
  for (int round = 0; round < 3; ++round) {
    EXPECT_EQ(opened(oracleReport, oracle), "Recordset1.Open(\"SELECT TRUNC(SYSDATE)\", Connection1, 0, 1, 1)");
    EXPECT_EQ(opened(sqliteReport, sqlite), "Recordset1.Open(\"SELECT date('now')\", Connection1, 0, 1, 1)");
  }
}

TEST_F(ReportClassTest, KeepsTheDatabasesOfDifferentThreadsApart) {
  Connect(L"x", 1);
  std::wstring builtHere;
  std::wstring builtThere;
  report_.RelatorioProva(parameters_.get(), [&] {
    std::thread([&] {
      FakeSurroundings around;
      around.Register(L"KodraConexao.StrCon", {{L"TipoBanco", {7}}});
      ProbeReport report(around);
      report.SetStringConexao(L"y");
      report.InicializaPS(around.NewObject(L"Parametros", {}).get());
      builtThere = ToString(sql::SQLDataAtual());
    }).join();
    builtHere = ToString(sql::SQLDataAtual());
    return nullptr;
  });
  EXPECT_EQ(builtThere, L"date('now')");
  EXPECT_EQ(builtHere, L"TRUNC(SYSDATE)");
}

// The database whose code the translator has, by its word for today.
std::wstring Today() { return ToString(sql::SQLDataAtual()); }

constexpr auto kOracle = L"TRUNC(SYSDATE)";
constexpr auto kSQLServer = L"DATEADD(dd, 0, DATEDIFF(dd, 0, GETDATE()))";
constexpr auto kSQLite = L"date('now')";

// A report object of another database.
struct OtherReport {
  explicit OtherReport(std::int32_t code) {
    around.Register(L"KodraConexao.StrCon", {{L"TipoBanco", {code}}});
    report.SetStringConexao(L"outra");
  }
  void Run(const std::function<ReportRows()>& body) { report.RelatorioProva(parameters.get(), body); }

  FakeSurroundings around;
  ObjectRef parameters = around.NewObject(L"Parametros", {});
  ProbeReport report{around};
};

TEST_F(ReportClassTest, KeepsItsDatabaseWhileReportsOfOthersRunInsideIt) {
  OtherReport sqlite(7);
  OtherReport sqlServer(2);
  Connect(L"x", 1);
  report_.RelatorioProva(parameters_.get(), [&] {
    sqlite.Run([&] {
      EXPECT_EQ(Today(), kSQLite);
      sqlServer.Run([] {
        EXPECT_EQ(Today(), kSQLServer);
        return nullptr;
      });
      EXPECT_EQ(Today(), kSQLite);
      EXPECT_EQ(sqlite.report.NewBuilder().TipoBanco(), 7);
      return nullptr;
    });
    EXPECT_EQ(Today(), kOracle);
    EXPECT_EQ(report_.NewBuilder().TipoBanco(), 1);
    return nullptr;
  });
}

TEST_F(ReportClassTest, KeepsItsDatabaseWhenAReportInsideItFails) {
  Connect(L"x", 1);
  OtherReport sqlite(7);
  OtherReport other4(4);
  report_.RelatorioProva(parameters_.get(), [&] {
    EXPECT_EQ(RaisedBy([&] { sqlite.Run([]() -> ReportRows { throw Erro(-2147220000, L"Prova.Fonte", L"Falha"); }); }),
              Framed("CProvaRpt::RelatorioProva", "Falha"));
    EXPECT_EQ(Today(), kOracle);
    EXPECT_EQ(RaisedBy([&] { other4.report.RelatorioProva(other4.parameters.get()); }),
              Framed("CProvaRpt::RelatorioProva", "Não há entrada para o banco tipo 4"));
    EXPECT_EQ(Today(), kOracle);
    EXPECT_EQ(RaisedBy([&] { sqlite.report.RelatorioProva(nullptr); }),
              Framed("CProvaRpt::RelatorioProva", "Objeto não definido."));
    EXPECT_EQ(Today(), kOracle);
    return nullptr;
  });
}

TEST_F(ReportClassTest, KeepsItsDatabaseButNotItsConnectionStringWhenItIsCalledInsideItself) {
  Connect(L"x", 1);
  report_.RelatorioProva(parameters_.get(), [&] {
    Connect(L"y", 7);
    report_.RelatorioProva(parameters_.get(), [&] {
      EXPECT_EQ(report_.TipoBanco(), 7);
      EXPECT_EQ(Today(), kSQLite);
      return nullptr;
    });
    EXPECT_EQ(report_.TipoBanco(), 1);
    EXPECT_EQ(report_.NewBuilder().TipoBanco(), 1);
    EXPECT_EQ(Today(), kOracle);
    EXPECT_EQ(report_.StringConexao(), L"y");  // the client changed it, and every use reads it anew
    return nullptr;
  });
}

TEST_F(ReportClassTest, LeavesTheTranslatorsCodeOfTheOutermostCall) {
  OtherReport sqlite(7);
  Connect(L"x", 1);
  const auto body = [&] {
    sqlite.Run([] { return nullptr; });
    return nullptr;
  };
  report_.RelatorioProva(parameters_.get(), body);
  EXPECT_EQ(sql::TipoBancoAtual(), 1);
  sqlite.Run([] { return nullptr; });
  EXPECT_EQ(sql::TipoBancoAtual(), 7);
  Connect(L"x", 2);
  EXPECT_EQ(RaisedByBody([&]() -> ReportRows { throw Erro(5, L"", L"Falha"); }),
            Framed("CProvaRpt::RelatorioProva", "Falha"));
  EXPECT_EQ(sql::TipoBancoAtual(), 2);
}

TEST_F(ReportClassTest, KeepsOnlyTheDescriptionOfAnError) {
  EXPECT_EQ(RaisedByBody([]() -> ReportRows { throw Erro(-2147220000, L"Outro.Modulo", L"Falha qualquer"); }),
            Framed("CProvaRpt::RelatorioProva", "Falha qualquer"));
  EXPECT_EQ(RaisedByBody([]() -> ReportRows { throw Erro(1, L"", L""); }), Framed("CProvaRpt::RelatorioProva", ""));
}

TEST_F(ReportClassTest, FramesExhaustedMemoryAndForeignExceptions) {
  EXPECT_EQ(RaisedByBody([]() -> ReportRows { throw std::bad_alloc(); }),
            Framed("CProvaRpt::RelatorioProva", "Memória insuficiente"));
  EXPECT_EQ(RaisedByBody([]() -> ReportRows { throw std::runtime_error("unexpected"); }),
            Framed("CProvaRpt::RelatorioProva", "Erro interno"));
  EXPECT_EQ(RaisedByBody([]() -> ReportRows { throw 5; }), Framed("CProvaRpt::RelatorioProva", "Erro interno"));
}

TEST_F(ReportClassTest, FramesAProvidersErrorWithItsLayerAndNativeCode) {
  around_.ado.nativeErrors = {208};
  around_.journal.FailOn(L"Recordset1.Open", Failure(Erro(-2147217865, L"SQLNCLI11", L"Objeto inválido")));
  EXPECT_EQ(RaisedByReport(), Framed("CProvaRpt::RelatorioProva", "[SQLNCLI11]: Objeto inválido [N:208]"));
  EXPECT_EQ(around_.journal.LiveObjects(), 1);  // the parameters
}

TEST_F(ReportClassTest, WorksAgainAfterAFailure) {
  EXPECT_NE(RaisedBy([&] { report_.RelatorioProva(nullptr); }).number, 0);
  EXPECT_NE(report_.RelatorioProva(parameters_.get()), nullptr);
}

}  // namespace
}  // namespace kodra::frame
