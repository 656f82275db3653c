// The listings of discarded modules and of modules due for discard.
#include <gtest/gtest.h>

#include "tests/reports/modules/caixa_scenario.h"

namespace kodra::reports {
namespace {

// A listing of main and subordinate modules under one setting of the filters.
struct Listing {
  Parameters parameters;
  std::string main;
  std::string subordinates;
};

// On a client's connection only main modules are listed.
Statements Union(const std::string& main, const std::string& subordinates) {
  return {main + " UNION " + subordinates, main};
}

// Discarded modules. A department filters both halves; the back catalogue the first one twice, the second one never.

const Listing kExcluidos[] = {
    {{},
     "SELECT c.NUM_CAIXA, c.DESC_CAIXA, c.DOC_INICIAL, c.DOC_FINAL, c.DATA_VENCIMENTO, c.DATA_FECHAMENTO, "
     "c.TIPO_GUARDA FROM CAIXA c WHERE c.TIPO_GUARDA = 'E'",
     "SELECT s.COD7, c.DESC_CAIXA, s.DOC_INICIAL, s.DOC_FINAL, s.DATA_VENCIMENTO, s.DATA_FECHAMENTO, s.TIPO_GUARDA "
     "FROM CAIXA_SUBORDINADA s INNER JOIN CAIXA c ON s.NUM_CAIXA = c.NUM_CAIXA WHERE s.TIPO_GUARDA = 'E' "
     "ORDER BY DATA_VENCIMENTO, NUM_CAIXA"},
    {{{L"CodDepto", L"007"}},
     "SELECT c.NUM_CAIXA, c.DESC_CAIXA, c.DOC_INICIAL, c.DOC_FINAL, c.DATA_VENCIMENTO, c.DATA_FECHAMENTO, "
     "c.TIPO_GUARDA FROM CAIXA c WHERE c.TIPO_GUARDA = 'E' AND c.COD_DEPTO = '007'",
     "SELECT s.COD7, c.DESC_CAIXA, s.DOC_INICIAL, s.DOC_FINAL, s.DATA_VENCIMENTO, s.DATA_FECHAMENTO, s.TIPO_GUARDA "
     "FROM CAIXA_SUBORDINADA s INNER JOIN CAIXA c ON s.NUM_CAIXA = c.NUM_CAIXA WHERE s.TIPO_GUARDA = 'E' "
     "AND c.COD_DEPTO = '007' ORDER BY DATA_VENCIMENTO, NUM_CAIXA"},
    {{{L"ModoPregresso", true}},
     "SELECT c.NUM_CAIXA, c.DESC_CAIXA, c.DOC_INICIAL, c.DOC_FINAL, c.DATA_VENCIMENTO, c.DATA_FECHAMENTO, "
     "c.TIPO_GUARDA FROM CAIXA c WHERE c.TIPO_GUARDA = 'E' AND c.DOCS_PREGRESSOS = 1 AND c.DOCS_PREGRESSOS = 1",
     "SELECT s.COD7, c.DESC_CAIXA, s.DOC_INICIAL, s.DOC_FINAL, s.DATA_VENCIMENTO, s.DATA_FECHAMENTO, s.TIPO_GUARDA "
     "FROM CAIXA_SUBORDINADA s INNER JOIN CAIXA c ON s.NUM_CAIXA = c.NUM_CAIXA WHERE s.TIPO_GUARDA = 'E' "
     "ORDER BY DATA_VENCIMENTO, NUM_CAIXA"},
    {{{L"CodDepto", L"7"}, {L"ModoPregresso", true}},
     "SELECT c.NUM_CAIXA, c.DESC_CAIXA, c.DOC_INICIAL, c.DOC_FINAL, c.DATA_VENCIMENTO, c.DATA_FECHAMENTO, "
     "c.TIPO_GUARDA FROM CAIXA c WHERE c.TIPO_GUARDA = 'E' AND c.COD_DEPTO = '7' AND c.DOCS_PREGRESSOS = 1 "
     "AND c.DOCS_PREGRESSOS = 1",
     "SELECT s.COD7, c.DESC_CAIXA, s.DOC_INICIAL, s.DOC_FINAL, s.DATA_VENCIMENTO, s.DATA_FECHAMENTO, s.TIPO_GUARDA "
     "FROM CAIXA_SUBORDINADA s INNER JOIN CAIXA c ON s.NUM_CAIXA = c.NUM_CAIXA WHERE s.TIPO_GUARDA = 'E' "
     "AND c.COD_DEPTO = '7' ORDER BY DATA_VENCIMENTO, NUM_CAIXA"},
};

TEST(ModulosExcluidosTest, FiltersEachHalfInItsOwnWayOnEveryDatabase) {
  for (const Database& database : Databases())
    for (const Listing& listing : kExcluidos)
      CheckResult(database, &CCaixaRpt::ModulosExcluidos, listing.parameters, Asks::kSubordinateCode,
                  Union(listing.main, listing.subordinates));
}

TEST(ModulosExcluidosTest, TakesNoDepartmentFromACodeThatIsNotAboveZero) {
  for (const wchar_t* code : {L"", L"0", L"abc", L"-7"})
    CheckResult(DatabaseOf(tbSQLServer), &CCaixaRpt::ModulosExcluidos, {{L"CodDepto", code}}, Asks::kSubordinateCode,
                Union(kExcluidos[0].main, kExcluidos[0].subordinates));
}

TEST(ModulosExcluidosTest, ReadsEachFilterAsOftenAsItApplies) {
  CaixaScenario scenario;
  EXPECT_EQ(scenario.Run(&CCaixaRpt::ModulosExcluidos, scenario.Foreign({{L"CodDepto", L"007"}})),
            All({scenario.InitialLines(),
                 {R"(Parametros.Get(CodDepto) -> "007")", "Parametros.Get(ModoPregresso) -> False"},
                 scenario.SubordinateCodeLines(2),
                 {R"(Parametros.Get(CodDepto) -> "007")", "Parametros.Get(ModoPregresso) -> False"},
                 scenario.ResultLines(Union(kExcluidos[1].main, kExcluidos[1].subordinates).onString)}));
}

// Modules due for discard. A department filters the first half once, the second one twice; the back catalogue the first
// one twice, the second one never. {PAGES} and {TODAY} are expressions of the dialect.

const Listing kVencidos[] = {
    {{},
     "SELECT d.DESCR_DEPTO, c.NUM_CAIXA, c.DESC_CAIXA, c.DOC_INICIAL, c.DOC_FINAL, c.DATA_VENCIMENTO, "
     "c.DATA_FECHAMENTO, c.TIPO_GUARDA, c.ANOS_VENCIMENTO, "
     "(SELECT SUM({PAGES}) FROM DOCUMENTO doc WHERE doc.NUM_CAIXA=c.NUM_CAIXA) AS NUM_PAGINAS, "
     "(SELECT COUNT(*) FROM DOCUMENTO doc WHERE doc.NUM_CAIXA=c.NUM_CAIXA) AS NUM_DOCS "
     "FROM CAIXA c LEFT JOIN DEPTO d ON c.COD_DEPTO = d.COD_DEPTO "
     "WHERE ((c.TIPO_GUARDA = 'T' AND c.DATA_VENCIMENTO <= {TODAY}) "
     "OR (c.TIPO_GUARDA = 'D' AND c.DATA_FECHAMENTO IS NOT NULL)) AND c.NUM_CAIXA <> 'AA000'",
     "SELECT d.DESCR_DEPTO, s.COD7, c.DESC_CAIXA, s.DOC_INICIAL, s.DOC_FINAL, s.DATA_VENCIMENTO, s.DATA_FECHAMENTO, "
     "s.TIPO_GUARDA, s.ANOS_VENCIMENTO, "
     "(SELECT SUM({PAGES}) FROM DOCUMENTO doc WHERE doc.NUM_CAIXA=c.NUM_CAIXA) AS NUM_PAGINAS, "
     "(SELECT COUNT(*) FROM DOCUMENTO doc WHERE doc.NUM_CAIXA=c.NUM_CAIXA) AS NUM_DOCS "
     "FROM CAIXA_SUBORDINADA s INNER JOIN CAIXA c ON s.NUM_CAIXA = c.NUM_CAIXA "
     "LEFT JOIN DEPTO d ON c.COD_DEPTO = d.COD_DEPTO "
     "WHERE ((s.TIPO_GUARDA = 'T' AND s.DATA_VENCIMENTO <= {TODAY})  "
     "OR (s.TIPO_GUARDA = 'D' AND s.DATA_FECHAMENTO IS NOT NULL)) ORDER BY DATA_VENCIMENTO, NUM_CAIXA"},
    {{{L"CodDepto", L"007"}},
     "SELECT d.DESCR_DEPTO, c.NUM_CAIXA, c.DESC_CAIXA, c.DOC_INICIAL, c.DOC_FINAL, c.DATA_VENCIMENTO, "
     "c.DATA_FECHAMENTO, c.TIPO_GUARDA, c.ANOS_VENCIMENTO, "
     "(SELECT SUM({PAGES}) FROM DOCUMENTO doc WHERE doc.NUM_CAIXA=c.NUM_CAIXA) AS NUM_PAGINAS, "
     "(SELECT COUNT(*) FROM DOCUMENTO doc WHERE doc.NUM_CAIXA=c.NUM_CAIXA) AS NUM_DOCS "
     "FROM CAIXA c LEFT JOIN DEPTO d ON c.COD_DEPTO = d.COD_DEPTO "
     "WHERE ((c.TIPO_GUARDA = 'T' AND c.DATA_VENCIMENTO <= {TODAY}) "
     "OR (c.TIPO_GUARDA = 'D' AND c.DATA_FECHAMENTO IS NOT NULL)) AND c.NUM_CAIXA <> 'AA000' AND c.COD_DEPTO = '007'",
     "SELECT d.DESCR_DEPTO, s.COD7, c.DESC_CAIXA, s.DOC_INICIAL, s.DOC_FINAL, s.DATA_VENCIMENTO, s.DATA_FECHAMENTO, "
     "s.TIPO_GUARDA, s.ANOS_VENCIMENTO, "
     "(SELECT SUM({PAGES}) FROM DOCUMENTO doc WHERE doc.NUM_CAIXA=c.NUM_CAIXA) AS NUM_PAGINAS, "
     "(SELECT COUNT(*) FROM DOCUMENTO doc WHERE doc.NUM_CAIXA=c.NUM_CAIXA) AS NUM_DOCS "
     "FROM CAIXA_SUBORDINADA s INNER JOIN CAIXA c ON s.NUM_CAIXA = c.NUM_CAIXA "
     "LEFT JOIN DEPTO d ON c.COD_DEPTO = d.COD_DEPTO "
     "WHERE ((s.TIPO_GUARDA = 'T' AND s.DATA_VENCIMENTO <= {TODAY})  "
     "OR (s.TIPO_GUARDA = 'D' AND s.DATA_FECHAMENTO IS NOT NULL)) "
     "AND c.COD_DEPTO = '007' AND c.COD_DEPTO = '007' ORDER BY DATA_VENCIMENTO, NUM_CAIXA"},
    {{{L"ModoPregresso", true}},
     "SELECT d.DESCR_DEPTO, c.NUM_CAIXA, c.DESC_CAIXA, c.DOC_INICIAL, c.DOC_FINAL, c.DATA_VENCIMENTO, "
     "c.DATA_FECHAMENTO, c.TIPO_GUARDA, c.ANOS_VENCIMENTO, "
     "(SELECT SUM({PAGES}) FROM DOCUMENTO doc WHERE doc.NUM_CAIXA=c.NUM_CAIXA) AS NUM_PAGINAS, "
     "(SELECT COUNT(*) FROM DOCUMENTO doc WHERE doc.NUM_CAIXA=c.NUM_CAIXA) AS NUM_DOCS "
     "FROM CAIXA c LEFT JOIN DEPTO d ON c.COD_DEPTO = d.COD_DEPTO "
     "WHERE ((c.TIPO_GUARDA = 'T' AND c.DATA_VENCIMENTO <= {TODAY}) "
     "OR (c.TIPO_GUARDA = 'D' AND c.DATA_FECHAMENTO IS NOT NULL)) AND c.NUM_CAIXA <> 'AA000' "
     "AND c.DOCS_PREGRESSOS = 1 AND c.DOCS_PREGRESSOS = 1",
     "SELECT d.DESCR_DEPTO, s.COD7, c.DESC_CAIXA, s.DOC_INICIAL, s.DOC_FINAL, s.DATA_VENCIMENTO, s.DATA_FECHAMENTO, "
     "s.TIPO_GUARDA, s.ANOS_VENCIMENTO, "
     "(SELECT SUM({PAGES}) FROM DOCUMENTO doc WHERE doc.NUM_CAIXA=c.NUM_CAIXA) AS NUM_PAGINAS, "
     "(SELECT COUNT(*) FROM DOCUMENTO doc WHERE doc.NUM_CAIXA=c.NUM_CAIXA) AS NUM_DOCS "
     "FROM CAIXA_SUBORDINADA s INNER JOIN CAIXA c ON s.NUM_CAIXA = c.NUM_CAIXA "
     "LEFT JOIN DEPTO d ON c.COD_DEPTO = d.COD_DEPTO "
     "WHERE ((s.TIPO_GUARDA = 'T' AND s.DATA_VENCIMENTO <= {TODAY})  "
     "OR (s.TIPO_GUARDA = 'D' AND s.DATA_FECHAMENTO IS NOT NULL)) ORDER BY DATA_VENCIMENTO, NUM_CAIXA"},
    {{{L"CodDepto", L"7"}, {L"ModoPregresso", true}},
     "SELECT d.DESCR_DEPTO, c.NUM_CAIXA, c.DESC_CAIXA, c.DOC_INICIAL, c.DOC_FINAL, c.DATA_VENCIMENTO, "
     "c.DATA_FECHAMENTO, c.TIPO_GUARDA, c.ANOS_VENCIMENTO, "
     "(SELECT SUM({PAGES}) FROM DOCUMENTO doc WHERE doc.NUM_CAIXA=c.NUM_CAIXA) AS NUM_PAGINAS, "
     "(SELECT COUNT(*) FROM DOCUMENTO doc WHERE doc.NUM_CAIXA=c.NUM_CAIXA) AS NUM_DOCS "
     "FROM CAIXA c LEFT JOIN DEPTO d ON c.COD_DEPTO = d.COD_DEPTO "
     "WHERE ((c.TIPO_GUARDA = 'T' AND c.DATA_VENCIMENTO <= {TODAY}) "
     "OR (c.TIPO_GUARDA = 'D' AND c.DATA_FECHAMENTO IS NOT NULL)) AND c.NUM_CAIXA <> 'AA000' "
     "AND c.COD_DEPTO = '7' AND c.DOCS_PREGRESSOS = 1 AND c.DOCS_PREGRESSOS = 1",
     "SELECT d.DESCR_DEPTO, s.COD7, c.DESC_CAIXA, s.DOC_INICIAL, s.DOC_FINAL, s.DATA_VENCIMENTO, s.DATA_FECHAMENTO, "
     "s.TIPO_GUARDA, s.ANOS_VENCIMENTO, "
     "(SELECT SUM({PAGES}) FROM DOCUMENTO doc WHERE doc.NUM_CAIXA=c.NUM_CAIXA) AS NUM_PAGINAS, "
     "(SELECT COUNT(*) FROM DOCUMENTO doc WHERE doc.NUM_CAIXA=c.NUM_CAIXA) AS NUM_DOCS "
     "FROM CAIXA_SUBORDINADA s INNER JOIN CAIXA c ON s.NUM_CAIXA = c.NUM_CAIXA "
     "LEFT JOIN DEPTO d ON c.COD_DEPTO = d.COD_DEPTO "
     "WHERE ((s.TIPO_GUARDA = 'T' AND s.DATA_VENCIMENTO <= {TODAY})  "
     "OR (s.TIPO_GUARDA = 'D' AND s.DATA_FECHAMENTO IS NOT NULL)) "
     "AND c.COD_DEPTO = '7' AND c.COD_DEPTO = '7' ORDER BY DATA_VENCIMENTO, NUM_CAIXA"},
};

struct Words {
  std::int32_t code;
  std::string pages;
  std::string today;
};

const Words kWords[] = {
    {tbOracle, "TO_NUMBER(doc.FRENTE)", "TRUNC(SYSDATE)"},
    {tbSQLServer, "CAST(doc.FRENTE AS INT)", "DATEADD(dd, 0, DATEDIFF(dd, 0, GETDATE()))"},
    {tbMySQL, "CAST(doc.FRENTE AS UNSIGNED)", "CURDATE()"},
    {tbOracleAlt, "TO_NUMBER(doc.FRENTE)", "TRUNC(SYSDATE)"},
    {tbDB2, "CAST(doc.FRENTE AS INT)", "CURRENT DATE"},
    {tbSQLite, "CAST(doc.FRENTE AS INT)", "date('now')"},
};

std::string In(const Words& words, const std::string& statement) {
  return Replaced(Replaced(statement, "{PAGES}", words.pages), "{TODAY}", words.today);
}

TEST(ModulosVencidosTest, FiltersEachHalfInItsOwnWayInTheDialectOfEachDatabase) {
  for (const Words& words : kWords)
    for (const Listing& listing : kVencidos)
      CheckResult(DatabaseOf(words.code), &CCaixaRpt::ModulosVencidos, listing.parameters, Asks::kSubordinateCode,
                  Union(In(words, listing.main), In(words, listing.subordinates)));
}

TEST(ModulosVencidosTest, WritesOneDatabasesStatementOutInFull) {
  CheckResult(DatabaseOf(tbSQLite), &CCaixaRpt::ModulosVencidos, {}, Asks::kSubordinateCode,
              {"SELECT d.DESCR_DEPTO, c.NUM_CAIXA, c.DESC_CAIXA, c.DOC_INICIAL, c.DOC_FINAL, c.DATA_VENCIMENTO, "
               "c.DATA_FECHAMENTO, c.TIPO_GUARDA, c.ANOS_VENCIMENTO, "
               "(SELECT SUM(CAST(doc.FRENTE AS INT)) FROM DOCUMENTO doc WHERE doc.NUM_CAIXA=c.NUM_CAIXA) "
               "AS NUM_PAGINAS, (SELECT COUNT(*) FROM DOCUMENTO doc WHERE doc.NUM_CAIXA=c.NUM_CAIXA) AS NUM_DOCS "
               "FROM CAIXA c LEFT JOIN DEPTO d ON c.COD_DEPTO = d.COD_DEPTO "
               "WHERE ((c.TIPO_GUARDA = 'T' AND c.DATA_VENCIMENTO <= date('now')) "
               "OR (c.TIPO_GUARDA = 'D' AND c.DATA_FECHAMENTO IS NOT NULL)) AND c.NUM_CAIXA <> 'AA000' UNION "
               "SELECT d.DESCR_DEPTO, s.COD7, c.DESC_CAIXA, s.DOC_INICIAL, s.DOC_FINAL, s.DATA_VENCIMENTO, "
               "s.DATA_FECHAMENTO, s.TIPO_GUARDA, s.ANOS_VENCIMENTO, "
               "(SELECT SUM(CAST(doc.FRENTE AS INT)) FROM DOCUMENTO doc WHERE doc.NUM_CAIXA=c.NUM_CAIXA) "
               "AS NUM_PAGINAS, (SELECT COUNT(*) FROM DOCUMENTO doc WHERE doc.NUM_CAIXA=c.NUM_CAIXA) AS NUM_DOCS "
               "FROM CAIXA_SUBORDINADA s INNER JOIN CAIXA c ON s.NUM_CAIXA = c.NUM_CAIXA "
               "LEFT JOIN DEPTO d ON c.COD_DEPTO = d.COD_DEPTO "
               "WHERE ((s.TIPO_GUARDA = 'T' AND s.DATA_VENCIMENTO <= date('now'))  "
               "OR (s.TIPO_GUARDA = 'D' AND s.DATA_FECHAMENTO IS NOT NULL)) ORDER BY DATA_VENCIMENTO, NUM_CAIXA",
               "SELECT d.DESCR_DEPTO, c.NUM_CAIXA, c.DESC_CAIXA, c.DOC_INICIAL, c.DOC_FINAL, c.DATA_VENCIMENTO, "
               "c.DATA_FECHAMENTO, c.TIPO_GUARDA, c.ANOS_VENCIMENTO, "
               "(SELECT SUM(CAST(doc.FRENTE AS INT)) FROM DOCUMENTO doc WHERE doc.NUM_CAIXA=c.NUM_CAIXA) "
               "AS NUM_PAGINAS, (SELECT COUNT(*) FROM DOCUMENTO doc WHERE doc.NUM_CAIXA=c.NUM_CAIXA) AS NUM_DOCS "
               "FROM CAIXA c LEFT JOIN DEPTO d ON c.COD_DEPTO = d.COD_DEPTO "
               "WHERE ((c.TIPO_GUARDA = 'T' AND c.DATA_VENCIMENTO <= date('now')) "
               "OR (c.TIPO_GUARDA = 'D' AND c.DATA_FECHAMENTO IS NOT NULL)) AND c.NUM_CAIXA <> 'AA000'"});
}

TEST(ModulosVencidosTest, ReadsEachFilterAsOftenAsItApplies) {
  CaixaScenario scenario(DatabaseOf(tbSQLServer), Path::kClientConnection);
  EXPECT_EQ(scenario.Run(&CCaixaRpt::ModulosVencidos, scenario.Foreign({{L"CodDepto", L"007"}})),
            All({scenario.InitialLines(),
                 {R"(Parametros.Get(CodDepto) -> "007")", "Parametros.Get(ModoPregresso) -> False"},
                 scenario.SubordinateCodeLines(2),
                 {R"(Parametros.Get(CodDepto) -> "007")", R"(Parametros.Get(CodDepto) -> "007")",
                  "Parametros.Get(ModoPregresso) -> False"},
                 scenario.ResultLines(In(kWords[1], kVencidos[1].main))}));
}

TEST(ModulosVencidosTest, UsesTheDialectOfEachCallsDatabase) {
  CaixaScenario scenario(DatabaseOf(tbSQLServer), Path::kClientConnection);
  scenario.Run(&CCaixaRpt::ModulosVencidos, Parameters());
  CaixaScenario other(DatabaseOf(tbSQLite), Path::kClientConnection);
  EXPECT_EQ(
      other.Run(&CCaixaRpt::ModulosVencidos, Parameters()),
      All({other.InitialLines(), other.SubordinateCodeLines(2), other.ResultLines(In(kWords[5], kVencidos[0].main))}));
  EXPECT_EQ(scenario.Run(&CCaixaRpt::ModulosVencidos, Parameters()),
            All({scenario.InitialLines(), scenario.SubordinateCodeLines(2),
                 scenario.ResultLines(In(kWords[1], kVencidos[0].main))}));
}

TEST(ModulosVencidosTest, RefusesADatabaseWithoutDialectUnderTheTranslatorsSource) {
  for (const Path path : kPaths) {
    CaixaScenario scenario(DatabaseOf(tbOther4), path);
    EXPECT_EQ(scenario.RunRaising(&CCaixaRpt::ModulosVencidos, Parameters()),
              Reported("TradutorSQL.SQLToInt", "Não há entrada para o banco tipo 4"));
    EXPECT_EQ(scenario.around.journal.Calls(),
              All({scenario.InitialLines(),
                   scenario.FirstLogLines("KodraRpt.CCaixaRpt::ModulosVencidos: ----> saindo com o erro -2147221503 em "
                                          "TradutorSQL.SQLToInt: Não há entrada para o banco tipo 4")}));
  }
}

}  // namespace
}  // namespace kodra::reports
