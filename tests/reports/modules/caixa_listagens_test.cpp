// The listing of all modules and that of documents without classification.
#include <gtest/gtest.h>

#include "tests/reports/modules/caixa_scenario.h"

namespace kodra::reports {
namespace {

// Documents without classification.

TEST(DocsNaoIndexadosNosModulosTest, CountsThemByModuleOnEitherConnection) {
  const std::string statement =
      "SELECT c.NUM_CAIXA, c.DESC_CAIXA, COUNT(*) AS NaoIndexados FROM DOCUMENTO d "
      "INNER JOIN CAIXA c ON c.NUM_CAIXA = d.NUM_CAIXA WHERE d.COD_ASSUNTO IS NULL AND d.NUM_CAIXA<>'AA000' "
      "GROUP BY c.NUM_CAIXA, c.DESC_CAIXA ORDER BY c.NUM_CAIXA";
  for (const Database& database : Databases())
    for (const wchar_t* code : {L"", L"0", L"abc"})
      CheckResult(database, &CCaixaRpt::DocsNaoIndexadosNosModulos, {{L"CodDepto", code}}, Asks::kNothing,
                  {statement, statement});
}

TEST(DocsNaoIndexadosNosModulosTest, CountsThoseOfADepartment) {
  const std::string statement =
      "SELECT c.NUM_CAIXA, c.DESC_CAIXA, COUNT(*) AS NaoIndexados FROM DOCUMENTO d "
      "INNER JOIN CAIXA c ON c.NUM_CAIXA = d.NUM_CAIXA WHERE d.COD_ASSUNTO IS NULL AND d.NUM_CAIXA<>'AA000' "
      "AND c.COD_DEPTO = '007' GROUP BY c.NUM_CAIXA, c.DESC_CAIXA ORDER BY c.NUM_CAIXA";
  for (const Database& database : Databases())
    CheckResult(database, &CCaixaRpt::DocsNaoIndexadosNosModulos, {{L"CodDepto", L"007"}}, Asks::kNothing,
                {statement, statement});
}

TEST(DocsNaoIndexadosNosModulosTest, ReadsTheDepartmentAndNeverTheBackCatalogue) {
  CaixaScenario scenario;
  EXPECT_EQ(scenario.Run(&CCaixaRpt::DocsNaoIndexadosNosModulos, scenario.Foreign({{L"ModoPregresso", true}})),
            All({scenario.InitialLines(),
                 {R"(Parametros.Get(CodDepto) -> "")"},
                 scenario.ResultLines("SELECT c.NUM_CAIXA, c.DESC_CAIXA, COUNT(*) AS NaoIndexados FROM DOCUMENTO d "
                                      "INNER JOIN CAIXA c ON c.NUM_CAIXA = d.NUM_CAIXA "
                                      "WHERE d.COD_ASSUNTO IS NULL AND d.NUM_CAIXA<>'AA000' "
                                      "GROUP BY c.NUM_CAIXA, c.DESC_CAIXA ORDER BY c.NUM_CAIXA")}));
}

// All modules.

// The conditions of both halves under one setting of the filters.
struct Conditions {
  Parameters parameters;
  std::string main;
  std::string subordinates;
};

const Conditions kConditions[] = {
    {{}, "c.NUM_CAIXA <> 'AA000'", "(1=1)"},
    {{{L"CodDepto", L"007"}}, "c.NUM_CAIXA <> 'AA000' AND c.COD_DEPTO = '007'", "(1=1) AND c.COD_DEPTO = '007'"},
    {{{L"SomenteExistentes", true}},
     "c.NUM_CAIXA <> 'AA000' AND c.TIPO_GUARDA<>'E' AND c.TIPO_GUARDA<>'P'",
     "(1=1) AND s.TIPO_GUARDA<>'E' AND c.TIPO_GUARDA<>'P'"},
    {{{L"ModoPregresso", true}}, "c.NUM_CAIXA <> 'AA000' AND c.DOCS_PREGRESSOS = 1", "(1=1) AND c.DOCS_PREGRESSOS = 1"},
    {{{L"CodDepto", L"7"}, {L"SomenteExistentes", true}},
     "c.NUM_CAIXA <> 'AA000' AND c.COD_DEPTO = '7' AND c.TIPO_GUARDA<>'E' AND c.TIPO_GUARDA<>'P'",
     "(1=1) AND c.COD_DEPTO = '7' AND s.TIPO_GUARDA<>'E' AND c.TIPO_GUARDA<>'P'"},
    {{{L"CodDepto", L"7"}, {L"ModoPregresso", true}},
     "c.NUM_CAIXA <> 'AA000' AND c.COD_DEPTO = '7' AND c.DOCS_PREGRESSOS = 1",
     "(1=1) AND c.COD_DEPTO = '7' AND c.DOCS_PREGRESSOS = 1"},
    {{{L"SomenteExistentes", true}, {L"ModoPregresso", true}},
     "c.NUM_CAIXA <> 'AA000' AND c.TIPO_GUARDA<>'E' AND c.TIPO_GUARDA<>'P' AND c.DOCS_PREGRESSOS = 1",
     "(1=1) AND s.TIPO_GUARDA<>'E' AND c.TIPO_GUARDA<>'P' AND c.DOCS_PREGRESSOS = 1"},
    {{{L"CodDepto", L"7"}, {L"SomenteExistentes", true}, {L"ModoPregresso", true}},
     "c.NUM_CAIXA <> 'AA000' AND c.COD_DEPTO = '7' AND c.TIPO_GUARDA<>'E' AND c.TIPO_GUARDA<>'P' "
     "AND c.DOCS_PREGRESSOS = 1",
     "(1=1) AND c.COD_DEPTO = '7' AND s.TIPO_GUARDA<>'E' AND c.TIPO_GUARDA<>'P' AND c.DOCS_PREGRESSOS = 1"},
};

// The column list of the main modules ends in a blank of its own.
Statements AllModules(const std::string& main, const std::string& subordinates, const std::string& order) {
  const std::string first =
      "SELECT c.NUM_CAIXA, c.DESC_CAIXA, c.DOC_INICIAL, c.DOC_FINAL, c.DATA_VENCIMENTO, c.DATA_FECHAMENTO, "
      "c.COORD_X AS FILEIRA, c.COORD_Y AS ESTANTE, c.COORD_Z AS PRATELEIRA, ct.DESC_CONTAINER AS CONTAINER, "
      "c.TIPO_GUARDA  FROM CAIXA c LEFT JOIN CONTAINER ct ON c.CONTAINER = ct.NUM_CONTAINER WHERE " +
      main;
  return {first +
              " UNION SELECT s.COD7 AS NUM_CAIXA, c.DESC_CAIXA, s.DOC_INICIAL, s.DOC_FINAL, s.DATA_VENCIMENTO, "
              "s.DATA_FECHAMENTO, '' AS FILEIRA, '' AS ESTANTE, '' AS PRATELEIRA, '' AS CONTAINER, s.TIPO_GUARDA "
              "FROM CAIXA_SUBORDINADA s INNER JOIN CAIXA c ON s.NUM_CAIXA = c.NUM_CAIXA WHERE " +
              subordinates + " ORDER BY " + order,
          first};
}

TEST(RelatoriosModulosTest, FiltersBothHalvesOnEveryDatabase) {
  for (const Database& database : Databases())
    for (const Conditions& conditions : kConditions)
      CheckResult(database, &CCaixaRpt::RelatoriosModulos, conditions.parameters, Asks::kSubordinateCode,
                  AllModules(conditions.main, conditions.subordinates, "NUM_CAIXA"));
}

TEST(RelatoriosModulosTest, WritesAStatementOutInFull) {
  CheckResult(DatabaseOf(tbMySQL), &CCaixaRpt::RelatoriosModulos, {{L"SomenteExistentes", true}},
              Asks::kSubordinateCode,
              {"SELECT c.NUM_CAIXA, c.DESC_CAIXA, c.DOC_INICIAL, c.DOC_FINAL, c.DATA_VENCIMENTO, c.DATA_FECHAMENTO, "
               "c.COORD_X AS FILEIRA, c.COORD_Y AS ESTANTE, c.COORD_Z AS PRATELEIRA, ct.DESC_CONTAINER AS CONTAINER, "
               "c.TIPO_GUARDA  FROM CAIXA c LEFT JOIN CONTAINER ct ON c.CONTAINER = ct.NUM_CONTAINER "
               "WHERE c.NUM_CAIXA <> 'AA000' AND c.TIPO_GUARDA<>'E' AND c.TIPO_GUARDA<>'P' UNION "
               "SELECT s.COD7 AS NUM_CAIXA, c.DESC_CAIXA, s.DOC_INICIAL, s.DOC_FINAL, s.DATA_VENCIMENTO, "
               "s.DATA_FECHAMENTO, '' AS FILEIRA, '' AS ESTANTE, '' AS PRATELEIRA, '' AS CONTAINER, s.TIPO_GUARDA "
               "FROM CAIXA_SUBORDINADA s INNER JOIN CAIXA c ON s.NUM_CAIXA = c.NUM_CAIXA "
               "WHERE (1=1) AND s.TIPO_GUARDA<>'E' AND c.TIPO_GUARDA<>'P' ORDER BY NUM_CAIXA",
               "SELECT c.NUM_CAIXA, c.DESC_CAIXA, c.DOC_INICIAL, c.DOC_FINAL, c.DATA_VENCIMENTO, c.DATA_FECHAMENTO, "
               "c.COORD_X AS FILEIRA, c.COORD_Y AS ESTANTE, c.COORD_Z AS PRATELEIRA, ct.DESC_CONTAINER AS CONTAINER, "
               "c.TIPO_GUARDA  FROM CAIXA c LEFT JOIN CONTAINER ct ON c.CONTAINER = ct.NUM_CONTAINER "
               "WHERE c.NUM_CAIXA <> 'AA000' AND c.TIPO_GUARDA<>'E' AND c.TIPO_GUARDA<>'P'"});
}

TEST(RelatoriosModulosTest, OrdersByDescriptionOrElseByNumber) {
  for (const auto& [order, column] :
       {std::pair(L"D", "DESC_CAIXA"), std::pair(L"d", "DESC_CAIXA"), std::pair(L"descrição", "DESC_CAIXA"),
        std::pair(L"N", "NUM_CAIXA"), std::pair(L"", "NUM_CAIXA"), std::pair(L"X", "NUM_CAIXA")})
    for (const Conditions& conditions : kConditions) {
      Parameters parameters = conditions.parameters;
      parameters.emplace_back(L"Ordenacao", order);
      CheckResult(DatabaseOf(tbSQLServer), &CCaixaRpt::RelatoriosModulos, parameters, Asks::kSubordinateCode,
                  AllModules(conditions.main, conditions.subordinates, column));
    }
}

TEST(RelatoriosModulosTest, OrdersByNumberForAnythingButAnUpperCaseDFromAnotherObject) {
  for (const wchar_t* order : {L"d", L"DD", L"D ", L" D", L""}) {
    CaixaScenario scenario;
    const CallLines filters = {R"(Parametros.Get(CodDepto) -> "")", "Parametros.Get(SomenteExistentes) -> False",
                               "Parametros.Get(ModoPregresso) -> False"};
    EXPECT_EQ(scenario.Run(&CCaixaRpt::RelatoriosModulos, scenario.Foreign({{L"Ordenacao", order}})),
              All({scenario.InitialLines(),
                   filters,
                   scenario.SubordinateCodeLines(2),
                   filters,
                   {"Parametros.Get(Ordenacao) -> \"" + recorder::Utf8(order) + "\""},
                   scenario.ResultLines(AllModules("c.NUM_CAIXA <> 'AA000'", "(1=1)", "NUM_CAIXA").onString)}));
  }
}

TEST(RelatoriosModulosTest, TakesNoDepartmentFromACodeThatIsNotAboveZero) {
  for (const wchar_t* code : {L"", L"0", L"abc", L"-7"})
    CheckResult(DatabaseOf(tbSQLServer), &CCaixaRpt::RelatoriosModulos, {{L"CodDepto", code}}, Asks::kSubordinateCode,
                AllModules("c.NUM_CAIXA <> 'AA000'", "(1=1)", "NUM_CAIXA"));
}

}  // namespace
}  // namespace kodra::reports
