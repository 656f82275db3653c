// The header and the documents of one module.
#include <gtest/gtest.h>

#include "tests/reports/modules/caixa_scenario.h"

namespace kodra::reports {
namespace {

using recorder::kObjectNotSet;
using recorder::Raised;

// The header of a module. {NVL} is the function of the dialect for a default in place of null.

constexpr auto kHeaderOfMain =
    "SELECT {NVL}(c.NUM_CAIXA, '') AS NUM_CAIXA, {NVL}(c.DESC_CAIXA, '') AS DESC_CAIXA, "
    "{NVL}(c.OBS_CAIXA, '') AS OBS_CAIXA, {NVL}(c.DOC_INICIAL, '') AS DOC_INICIAL, "
    "{NVL}(c.DOC_FINAL, '') AS DOC_FINAL, c.DATA_VENCIMENTO, c.DATA_FECHAMENTO, {NVL}(c.COORD_X, '') AS FILEIRA, "
    "{NVL}(c.COORD_Y, '') AS ESTANTE, {NVL}(c.COORD_Z, '') AS PRATELEIRA, "
    "{NVL}(ct.DESC_CONTAINER, '') AS CONTAINER, {NVL}(dp.NOME, '') AS DEPOSITO, {NVL}(dp.ENDERECO, '') AS ENDERECO, "
    "{NVL}(dp.CIDADE, '') AS CIDADE, {NVL}(dp.ESTADO, '') AS ESTADO, {NVL}(dp.TELEFONE, '') AS TELEFONE, "
    "{NVL}(dp.CONTATO, '') AS CONTATO FROM CAIXA c LEFT JOIN CONTAINER ct ON c.CONTAINER = ct.NUM_CONTAINER "
    "LEFT JOIN DEPOSITO dp ON c.COD_DEPOSITO = dp.COD_DEPOSITO WHERE c.NUM_CAIXA = 'AB001'";
constexpr auto kHeaderOfSubordinate =
    "SELECT s.COD7 AS NUM_CAIXA, {NVL}(c.DESC_CAIXA, '') AS DESC_CAIXA, '' AS OBS_CAIXA, "
    "{NVL}(s.DOC_INICIAL, '') AS DOC_INICIAL, {NVL}(s.DOC_FINAL, '') AS DOC_FINAL, c.DATA_VENCIMENTO, "
    "c.DATA_FECHAMENTO, '' AS FILEIRA, '' AS ESTANTE, '' AS PRATELEIRA, '' AS CONTAINER, "
    "{NVL}(dp.NOME, '') AS DEPOSITO, {NVL}(dp.ENDERECO, '') AS ENDERECO, {NVL}(dp.CIDADE, '') AS CIDADE, "
    "{NVL}(dp.ESTADO, '') AS ESTADO, {NVL}(dp.TELEFONE, '') AS TELEFONE, {NVL}(dp.CONTATO, '') AS CONTATO "
    "FROM CAIXA_SUBORDINADA s INNER JOIN CAIXA c ON s.NUM_CAIXA = c.NUM_CAIXA  "
    "LEFT JOIN CONTAINER ct ON c.CONTAINER = ct.NUM_CONTAINER "
    "LEFT JOIN DEPOSITO dp ON c.COD_DEPOSITO = dp.COD_DEPOSITO WHERE s.NUM_CAIXA = 'AB001' AND s.NUM_SEQ=7";

const std::pair<std::int32_t, const char*> kUnlessNull[] = {
    {tbOracle, "NVL"},    {tbSQLServer, "ISNULL"}, {tbMySQL, "IFNULL"},
    {tbOracleAlt, "NVL"}, {tbDB2, "COALESCE"},     {tbSQLite, "IFNULL"},
};

TEST(DocsNoModuloTest, DescribesAMainModuleInTheDialectOfEachDatabase) {
  for (const auto& [code, word] : kUnlessNull)
    CheckStatic(DatabaseOf(code), &CCaixaRpt::DocsNoModulo, {{L"Modulo1", L"AB001"}}, Asks::kNothing,
                Replaced(kHeaderOfMain, "{NVL}", word));
}

TEST(DocsNoModuloTest, DescribesASubordinateWithItsParentsDatesInTheDialectOfEachDatabase) {
  for (const auto& [code, word] : kUnlessNull)
    CheckStatic(DatabaseOf(code), &CCaixaRpt::DocsNoModulo, {{L"Modulo1", L"AB00107"}}, Asks::kSubordinateCode,
                Replaced(kHeaderOfSubordinate, "{NVL}", word));
}

TEST(DocsNoModuloTest, KeepsToTheDepartment) {
  CheckStatic(DatabaseOf(tbMySQL), &CCaixaRpt::DocsNoModulo, {{L"Modulo1", L"AB001"}, {L"CodDepto", L"007"}},
              Asks::kNothing, Replaced(kHeaderOfMain, "{NVL}", "IFNULL") + " AND c.COD_DEPTO = '007'");
  CheckStatic(DatabaseOf(tbMySQL), &CCaixaRpt::DocsNoModulo, {{L"Modulo1", L"AB00107"}, {L"CodDepto", L"007"}},
              Asks::kSubordinateCode, Replaced(kHeaderOfSubordinate, "{NVL}", "IFNULL") + " AND c.COD_DEPTO = '007'");
  for (const wchar_t* code : {L"", L"0", L"abc"})
    CheckStatic(DatabaseOf(tbMySQL), &CCaixaRpt::DocsNoModulo, {{L"Modulo1", L"AB001"}, {L"CodDepto", code}},
                Asks::kNothing, Replaced(kHeaderOfMain, "{NVL}", "IFNULL"));
}

TEST(DocsNoModuloTest, TakesACodeOfAnyOtherLengthForASubordinate) {
  const std::pair<const wchar_t*, const char*> kCodes[] = {
      {L"", "WHERE s.NUM_CAIXA = '' AND s.NUM_SEQ=0"},
      {L"AB00", "WHERE s.NUM_CAIXA = 'AB00' AND s.NUM_SEQ=0"},
      {L"AB0012", "WHERE s.NUM_CAIXA = 'AB001' AND s.NUM_SEQ=12"},
      {L"AB00199", "WHERE s.NUM_CAIXA = 'AB001' AND s.NUM_SEQ=99"},
      {L"AB001XY", "WHERE s.NUM_CAIXA = 'AB001' AND s.NUM_SEQ=0"},
  };
  for (const auto& [code, condition] : kCodes)
    CheckStatic(DatabaseOf(tbMySQL), &CCaixaRpt::DocsNoModulo, {{L"Modulo1", code}}, Asks::kSubordinateCode,
                Replaced(Replaced(kHeaderOfSubordinate, "{NVL}", "IFNULL"),
                         "WHERE s.NUM_CAIXA = 'AB001' AND s.NUM_SEQ=7", condition));
}

TEST(DocsNoModuloTest, ReadsTheModuleThenTheDepartment) {
  CaixaScenario scenario(DatabaseOf(tbOracle), Path::kClientConnection);
  EXPECT_EQ(scenario.Run(&CCaixaRpt::DocsNoModulo, scenario.Foreign({{L"Modulo1", L"AB00107"}})),
            All({scenario.InitialLines(),
                 {R"(Parametros.Get(Modulo1) -> "AB00107")"},
                 scenario.SubordinateCodeLines(2),
                 {R"(Parametros.Get(CodDepto) -> "")"},
                 CaixaScenario::StaticLines(),
                 scenario.StaticOpenLines(Replaced(kHeaderOfSubordinate, "{NVL}", "NVL")),
                 {"~Recordset1"}}));
}

TEST(DocsNoModuloTest, RefusesADatabaseWithoutDialectUnderTheTranslatorsSource) {
  CaixaScenario scenario(DatabaseOf(tbOther4));
  EXPECT_EQ(scenario.RunRaising(&CCaixaRpt::DocsNoModulo, {{L"Modulo1", L"AB001"}}),
            Reported("TradutorSQL.SQLNVL", "Não há entrada para o banco tipo 4"));
  EXPECT_EQ(scenario.heard, CallLines{"KodraRpt.CCaixaRpt::DocsNoModulo: ----> saindo com o erro -2147221503 em "
                                      "TradutorSQL.SQLNVL: Não há entrada para o banco tipo 4"});
}

// The documents of a module, for a layout within another.

constexpr auto kDocuments = "SELECT COD_DOCTO FROM DOCUMENTO WHERE NUM_CAIXA = 'AB001' ORDER BY COD_DOCTO";

TEST(DocsNoModuloSubRptTest, OpensTheDocumentsWithoutAnyInitialisation) {
  for (const Database& database : Databases())
    for (const Path path : kPaths)
      for (const wchar_t* code : {L"AB001", L"AB00107"}) {
        CaixaScenario scenario(database, path);
        EXPECT_EQ(scenario.Run(&CCaixaRpt::DocsNoModuloSubRpt, {{L"Modulo1", code}}),
                  All({scenario.ResultLines(kDocuments)}));
      }
}

TEST(DocsNoModuloSubRptTest, ReadsTheFirstModuleOnly) {
  CaixaScenario scenario(DatabaseOf(tbSQLServer), Path::kClientConnection);
  EXPECT_EQ(scenario.Run(&CCaixaRpt::DocsNoModuloSubRpt, scenario.Foreign({{L"Modulo1", L"AB001"}})),
            All({{R"(Parametros.Get(Modulo1) -> "AB001")"}, scenario.ResultLines(kDocuments)}));
}

TEST(DocsNoModuloSubRptTest, UsesTheConnectionStringThatAnEarlierCallTookFromTheClientsConnection) {
  CaixaScenario scenario(DatabaseOf(tbSQLServer), Path::kClientConnection);
  scenario.Run(&CCaixaRpt::DocsNoModulo, {{L"Modulo1", L"AB001"}});
  scenario.report.SetConexao({});
  EXPECT_EQ(scenario.Run(&CCaixaRpt::DocsNoModuloSubRpt, {{L"Modulo1", L"AB001"}}),
            All({CaixaScenario().ResultLines(kDocuments)}));
}

TEST(DocsNoModuloSubRptTest, PassesOnErrorsUnchangedAndLogsNothing) {
  const std::pair<Path, Raised> kErrors[] = {
      {Path::kConnectionString, {-2147217865, "modADO.AbreFirehoseRs", "[OraOLEDB]: A tabela não existe [N:942]"}},
      {Path::kClientConnection, {-2147217865, "OraOLEDB", "A tabela não existe"}},
  };
  for (const auto& [path, expected] : kErrors) {
    CaixaScenario scenario(DatabaseOf(tbOracle), path);
    scenario.around.ado.nativeErrors = {942};
    scenario.around.journal.FailOn(L"Recordset1.Open",
                                   recorder::Failure(Erro(-2147217865, L"OraOLEDB", L"A tabela não existe")));
    EXPECT_EQ(scenario.RunRaising(&CCaixaRpt::DocsNoModuloSubRpt, Parameters()), expected);
    EXPECT_EQ(scenario.heard, CallLines());
  }
}

TEST(DocsNoModuloSubRptTest, RaisesTheRuntimesErrorWithoutAParameterObject) {
  for (const Path path : kPaths) {
    CaixaScenario scenario(DatabaseOf(tbSQLServer), path);
    EXPECT_EQ(scenario.RunRaising(&CCaixaRpt::DocsNoModuloSubRpt, ObjectRef()), kObjectNotSet);
    EXPECT_EQ(scenario.around.journal.Calls(), "");
    EXPECT_EQ(scenario.heard, CallLines());
  }
}

TEST(DocsNoModuloSubRptTest, LeavesItToTheProviderWhenNoDatabaseWasNamed) {
  CaixaScenario scenario;
  scenario.report.SetStringConexao(L"");
  EXPECT_EQ(scenario.Run(&CCaixaRpt::DocsNoModuloSubRpt, {{L"Modulo1", L"AB001"}}),
            All({{
                "NewRecordset() -> Recordset1",
                "Recordset1.SetCursorLocation(2)",
                "Recordset1.SetCacheSize(100)",
                "Recordset1.Open(\"" + std::string(kDocuments) + "\", Nothing, 0, 1, 1)",
                "~Recordset1",
            }}));
}

// The documents of a discard authorisation. {PAGES} is the sum of a document's pages in the dialect.

const std::string kAuthorised =
    "SELECT d.COD_DOCTO, (SELECT COUNT(*) FROM DOCUMENTO dd WHERE dd.NUM_CAIXA = d.NUM_CAIXA) AS TOTAL_DOCS, "
    "(SELECT SUM({PAGES}) FROM DOCUMENTO ddd WHERE ddd.NUM_CAIXA = d.NUM_CAIXA) AS TOTAL_PAGINAS  "
    "FROM DOCUMENTO d WHERE d.NUM_CAIXA = 'AB001' ORDER BY d.COD_DOCTO";

struct Dialect {
  std::int32_t code;
  std::string pages;
  std::string blankRow;
};

// Oracle's second code has Oracle's dialect, but selects the blank row from no table.
const Dialect kDialects[] = {
    {tbOracle, "TO_NUMBER(ddd.FRENTE)+TO_NUMBER(ddd.VERSO)",
     "SELECT ' ' AS COD_DOCTO, 0 AS TOTAL_DOCS, 0 AS TOTAL_PAGINAS FROM SYS.DUAL "},
    {tbSQLServer, "CAST(ddd.FRENTE AS INT)+CAST(ddd.VERSO AS INT)",
     "SELECT ' ' AS COD_DOCTO, 0 AS TOTAL_DOCS, 0 AS TOTAL_PAGINAS"},
    {tbMySQL, "CAST(ddd.FRENTE AS UNSIGNED)+CAST(ddd.VERSO AS UNSIGNED)",
     "SELECT ' ' AS COD_DOCTO, 0 AS TOTAL_DOCS, 0 AS TOTAL_PAGINAS"},
    {tbOracleAlt, "TO_NUMBER(ddd.FRENTE)+TO_NUMBER(ddd.VERSO)",
     "SELECT ' ' AS COD_DOCTO, 0 AS TOTAL_DOCS, 0 AS TOTAL_PAGINAS"},
    {tbDB2, "CAST(ddd.FRENTE AS INT)+CAST(ddd.VERSO AS INT)",
     "SELECT ' ' AS COD_DOCTO, 0 AS TOTAL_DOCS, 0 AS TOTAL_PAGINAS FROM SYSIBM.SYSDUMMY1 "},
    {tbSQLite, "CAST(ddd.FRENTE AS INT)+CAST(ddd.VERSO AS INT)",
     "SELECT ' ' AS COD_DOCTO, 0 AS TOTAL_DOCS, 0 AS TOTAL_PAGINAS"},
};

std::string Source(const std::string& line) { return "KodraRpt.CCaixaRpt::AutorizacaoDescarteModuloSubRpt: " + line; }

TEST(AutorizacaoDescarteModuloSubRptTest, ReturnsTheDocumentsOfAMainModule) {
  for (const Dialect& dialect : kDialects)
    for (const Path path : kPaths) {
      CaixaScenario scenario(DatabaseOf(dialect.code), path);
      scenario.around.ado.results = {{{L"COD_DOCTO"}, {{L"D1"}, {L"D2"}}}};
      EXPECT_EQ(scenario.Run(&CCaixaRpt::AutorizacaoDescarteModuloSubRpt, {{L"Modulo1", L"AB001"}}),
                All({scenario.InitialLines(),
                     scenario.FirstLogLines(Source("executando query para o módulo <AB001>")),
                     CaixaScenario::StaticLines(),
                     scenario.StaticOpenLines(Replaced(kAuthorised, "{PAGES}", dialect.pages)),
                     {"Recordset1.Eof() -> False"},
                     scenario.LogLines(Source("retorno da função é a query original")),
                     {"~Recordset1"}}));
      EXPECT_EQ(scenario.heard, (CallLines{Source("executando query para o módulo <AB001>"),
                                           Source("retorno da função é a query original")}));
    }
}

TEST(AutorizacaoDescarteModuloSubRptTest, OpensTheBlankRowInPlaceOfAModuleWithoutDocuments) {
  for (const Dialect& dialect : kDialects)
    for (const Path path : kPaths) {
      CaixaScenario scenario(DatabaseOf(dialect.code), path);
      scenario.around.ado.results = {{{L"COD_DOCTO"}, {}}, {{L"COD_DOCTO"}, {{L" "}}}};
      EXPECT_EQ(scenario.Run(&CCaixaRpt::AutorizacaoDescarteModuloSubRpt, {{L"Modulo1", L"AB001"}}),
                All({scenario.InitialLines(),
                     scenario.FirstLogLines(Source("executando query para o módulo <AB001>")),
                     CaixaScenario::StaticLines(),
                     scenario.StaticOpenLines(Replaced(kAuthorised, "{PAGES}", dialect.pages)),
                     {"Recordset1.Eof() -> True"},
                     scenario.LogLines(Source("query vazia, usando query com dados em branco")),
                     {"Recordset1.Close()"},
                     scenario.StaticOpenLines(dialect.blankRow),
                     {"~Recordset1"}}));
      EXPECT_EQ(scenario.heard, (CallLines{Source("executando query para o módulo <AB001>"),
                                           Source("query vazia, usando query com dados em branco")}));
    }
}

TEST(AutorizacaoDescarteModuloSubRptTest, ReturnsTheReopenedRecordsetOnItsBlankRow) {
  CaixaScenario scenario(DatabaseOf(tbOracle));
  scenario.around.ado.results = {{{L"COD_DOCTO"}, {}}, {{L"COD_DOCTO"}, {{L" "}}}};
  const frame::ReportRows rows = RunModule(scenario.report, &CCaixaRpt::AutorizacaoDescarteModuloSubRpt,
                                           CaixaScenario::Own({{L"Modulo1", L"AB001"}}).get());
  EXPECT_EQ(rows->State(), platform::ad::kStateOpen);
  EXPECT_FALSE(rows->Eof());
  EXPECT_EQ(rows->FieldByName(L"COD_DOCTO")->Get(), Value(L" "));
}

TEST(AutorizacaoDescarteModuloSubRptTest, ReturnsTheBlankRowForACodeOfAnyOtherLength) {
  for (const Dialect& dialect : kDialects)
    for (const Path path : kPaths)
      for (const wchar_t* code : {L"AB00107", L"", L"AB00", L"AB0010"}) {
        CaixaScenario scenario(DatabaseOf(dialect.code), path);
        scenario.around.ado.results = {{{L"COD_DOCTO"}, {{L" "}}}};
        EXPECT_EQ(scenario.Run(&CCaixaRpt::AutorizacaoDescarteModuloSubRpt, {{L"Modulo1", code}}),
                  All({scenario.InitialLines(),
                       scenario.FirstLogLines(Source("executando query para o módulo <" + recorder::Utf8(code) + ">")),
                       CaixaScenario::StaticLines(),
                       scenario.StaticOpenLines(dialect.blankRow),
                       {"Recordset1.Eof() -> False"},
                       scenario.LogLines(Source("retorno da função é a query original")),
                       {"~Recordset1"}}));
      }
}

TEST(AutorizacaoDescarteModuloSubRptTest, ReadsTheFirstModuleOnce) {
  CaixaScenario scenario;
  scenario.around.ado.results = {{{L"COD_DOCTO"}, {{L" "}}}};
  EXPECT_EQ(scenario.Run(&CCaixaRpt::AutorizacaoDescarteModuloSubRpt, scenario.Foreign({{L"Modulo1", L"AB00107"}})),
            All({scenario.InitialLines(),
                 {R"(Parametros.Get(Modulo1) -> "AB00107")"},
                 scenario.FirstLogLines(Source("executando query para o módulo <AB00107>")),
                 CaixaScenario::StaticLines(),
                 scenario.StaticOpenLines("SELECT ' ' AS COD_DOCTO, 0 AS TOTAL_DOCS, 0 AS TOTAL_PAGINAS"),
                 {"Recordset1.Eof() -> False"},
                 scenario.LogLines(Source("retorno da função é a query original")),
                 {"~Recordset1"}}));
}

TEST(AutorizacaoDescarteModuloSubRptTest, RefusesAMainModuleOnADatabaseWithoutDialect) {
  CaixaScenario scenario(DatabaseOf(tbOther4));
  EXPECT_EQ(scenario.RunRaising(&CCaixaRpt::AutorizacaoDescarteModuloSubRpt, {{L"Modulo1", L"AB001"}}),
            Reported("TradutorSQL.SQLToInt", "Não há entrada para o banco tipo 4"));
  EXPECT_EQ(scenario.heard, CallLines{Source("----> saindo com o erro -2147221503 em TradutorSQL.SQLToInt: "
                                             "Não há entrada para o banco tipo 4")});
}

TEST(AutorizacaoDescarteModuloSubRptTest, ReturnsASubordinatesBlankRowOnADatabaseWithoutDialect) {
  CaixaScenario scenario(DatabaseOf(tbOther4));
  scenario.around.ado.results = {{{L"COD_DOCTO"}, {{L" "}}}};
  EXPECT_EQ(scenario.Run(&CCaixaRpt::AutorizacaoDescarteModuloSubRpt, {{L"Modulo1", L"AB00107"}}),
            All({scenario.InitialLines(),
                 scenario.FirstLogLines(Source("executando query para o módulo <AB00107>")),
                 CaixaScenario::StaticLines(),
                 scenario.StaticOpenLines("SELECT ' ' AS COD_DOCTO, 0 AS TOTAL_DOCS, 0 AS TOTAL_PAGINAS"),
                 {"Recordset1.Eof() -> False"},
                 scenario.LogLines(Source("retorno da função é a query original")),
                 {"~Recordset1"}}));
}

}  // namespace
}  // namespace kodra::reports
