// The labels of storage modules.
#include <gtest/gtest.h>

#include "tests/reports/modules/caixa_scenario.h"

namespace kodra::reports {
namespace {

const Parameters kThreeModules = {{L"Modulo1", L"AB001"}, {L"Modulo2", L"AB002"}, {L"Modulo3", L"AB003"}};
const Parameters kThreeSubordinates = {
    {L"Tipo", L"S"}, {L"Modulo1", L"AB00107"}, {L"Modulo2", L"AB00212"}, {L"Modulo3", L"AB003XY"}};

// Opening labels.

const Statements kOpeningLabels = {
    "SELECT c.DESC_CAIXA, c.NUM_CAIXA, c.TIPO_GUARDA, c.ANOS_VENCIMENTO FROM CAIXA c "
    "WHERE c.NUM_CAIXA='AB001' OR c.NUM_CAIXA='AB002' OR c.NUM_CAIXA='AB003' UNION ALL "
    "SELECT c.DESC_CAIXA, c.NUM_CAIXA, c.TIPO_GUARDA, c.ANOS_VENCIMENTO FROM CAIXA c "
    "WHERE c.NUM_CAIXA='AB001' OR c.NUM_CAIXA='AB002' OR c.NUM_CAIXA='AB003' ORDER BY NUM_CAIXA",
    "SELECT c.DESC_CAIXA, c.NUM_CAIXA, c.TIPO_GUARDA, c.ANOS_VENCIMENTO FROM CAIXA c "
    "WHERE c.NUM_CAIXA='AB001' OR c.NUM_CAIXA='AB002' OR c.NUM_CAIXA='AB003'"};

TEST(EtiquetaAberturaTest, ListsEachModuleTwiceInOrderOnAConnectionStringAndOnceOnAClientsConnection) {
  for (const Database& database : Databases())
    CheckResult(database, &CCaixaRpt::EtiquetaAbertura, kThreeModules, Asks::kNothing, kOpeningLabels);
}

TEST(EtiquetaAberturaTest, ListsEachSubordinateTwiceInOrderOnAConnectionStringAndOnceOnAClientsConnection) {
  for (const Database& database : Databases())
    CheckResult(database, &CCaixaRpt::EtiquetaAbertura, kThreeSubordinates, Asks::kSubordinateCode,
                {"SELECT c.DESC_CAIXA, s.COD7 AS NUM_CAIXA, s.TIPO_GUARDA, s.ANOS_VENCIMENTO FROM CAIXA c "
                 "INNER JOIN CAIXA_SUBORDINADA s ON c.NUM_CAIXA = s.NUM_CAIXA "
                 "WHERE (s.NUM_CAIXA='AB001' AND s.NUM_SEQ=7)  OR (s.NUM_CAIXA='AB002' AND s.NUM_SEQ=12)  OR "
                 "(s.NUM_CAIXA='AB003' AND s.NUM_SEQ=0) UNION ALL "
                 "SELECT c.DESC_CAIXA, s.COD7 AS NUM_CAIXA, s.TIPO_GUARDA, s.ANOS_VENCIMENTO FROM CAIXA c "
                 "INNER JOIN CAIXA_SUBORDINADA s ON c.NUM_CAIXA = s.NUM_CAIXA "
                 "WHERE (s.NUM_CAIXA='AB001' AND s.NUM_SEQ=7)  OR (s.NUM_CAIXA='AB002' AND s.NUM_SEQ=12)  OR "
                 "(s.NUM_CAIXA='AB003' AND s.NUM_SEQ=0) ORDER BY NUM_CAIXA",
                 "SELECT c.DESC_CAIXA, s.COD7 AS NUM_CAIXA, s.TIPO_GUARDA, s.ANOS_VENCIMENTO FROM CAIXA c "
                 "INNER JOIN CAIXA_SUBORDINADA s ON c.NUM_CAIXA = s.NUM_CAIXA "
                 "WHERE (s.NUM_CAIXA='AB001' AND s.NUM_SEQ=7)  OR (s.NUM_CAIXA='AB002' AND s.NUM_SEQ=12)  OR "
                 "(s.NUM_CAIXA='AB003' AND s.NUM_SEQ=0)"});
}

TEST(EtiquetaAberturaTest, MatchesNothingForModulesLeftEmpty) {
  CheckResult(DatabaseOf(tbSQLServer), &CCaixaRpt::EtiquetaAbertura, {{L"Modulo1", L"AB001"}}, Asks::kNothing,
              {"SELECT c.DESC_CAIXA, c.NUM_CAIXA, c.TIPO_GUARDA, c.ANOS_VENCIMENTO FROM CAIXA c "
               "WHERE c.NUM_CAIXA='AB001' OR c.NUM_CAIXA='' OR c.NUM_CAIXA='' UNION ALL "
               "SELECT c.DESC_CAIXA, c.NUM_CAIXA, c.TIPO_GUARDA, c.ANOS_VENCIMENTO FROM CAIXA c "
               "WHERE c.NUM_CAIXA='AB001' OR c.NUM_CAIXA='' OR c.NUM_CAIXA='' ORDER BY NUM_CAIXA",
               "SELECT c.DESC_CAIXA, c.NUM_CAIXA, c.TIPO_GUARDA, c.ANOS_VENCIMENTO FROM CAIXA c "
               "WHERE c.NUM_CAIXA='AB001' OR c.NUM_CAIXA='' OR c.NUM_CAIXA=''"});
}

TEST(EtiquetaAberturaTest, MatchesNothingForSubordinatesLeftEmpty) {
  CheckResult(DatabaseOf(tbSQLServer), &CCaixaRpt::EtiquetaAbertura, {{L"Tipo", L"S"}, {L"Modulo1", L"AB00107"}},
              Asks::kSubordinateCode,
              {"SELECT c.DESC_CAIXA, s.COD7 AS NUM_CAIXA, s.TIPO_GUARDA, s.ANOS_VENCIMENTO FROM CAIXA c "
               "INNER JOIN CAIXA_SUBORDINADA s ON c.NUM_CAIXA = s.NUM_CAIXA "
               "WHERE (s.NUM_CAIXA='AB001' AND s.NUM_SEQ=7)  OR (s.NUM_CAIXA='' AND s.NUM_SEQ=0)  OR "
               "(s.NUM_CAIXA='' AND s.NUM_SEQ=0) UNION ALL "
               "SELECT c.DESC_CAIXA, s.COD7 AS NUM_CAIXA, s.TIPO_GUARDA, s.ANOS_VENCIMENTO FROM CAIXA c "
               "INNER JOIN CAIXA_SUBORDINADA s ON c.NUM_CAIXA = s.NUM_CAIXA "
               "WHERE (s.NUM_CAIXA='AB001' AND s.NUM_SEQ=7)  OR (s.NUM_CAIXA='' AND s.NUM_SEQ=0)  OR "
               "(s.NUM_CAIXA='' AND s.NUM_SEQ=0) ORDER BY NUM_CAIXA",
               "SELECT c.DESC_CAIXA, s.COD7 AS NUM_CAIXA, s.TIPO_GUARDA, s.ANOS_VENCIMENTO FROM CAIXA c "
               "INNER JOIN CAIXA_SUBORDINADA s ON c.NUM_CAIXA = s.NUM_CAIXA "
               "WHERE (s.NUM_CAIXA='AB001' AND s.NUM_SEQ=7)  OR (s.NUM_CAIXA='' AND s.NUM_SEQ=0)  OR "
               "(s.NUM_CAIXA='' AND s.NUM_SEQ=0)"});
}

TEST(EtiquetaAberturaTest, InsertsModuleCodesUnchanged) {
  CheckResult(DatabaseOf(tbSQLServer), &CCaixaRpt::EtiquetaAbertura,
              {{L"Modulo1", L" ab1 "}, {L"Modulo2", L"o'x"}, {L"Modulo3", L"AB00107"}}, Asks::kNothing,
              {"SELECT c.DESC_CAIXA, c.NUM_CAIXA, c.TIPO_GUARDA, c.ANOS_VENCIMENTO FROM CAIXA c "
               "WHERE c.NUM_CAIXA=' ab1 ' OR c.NUM_CAIXA='o'x' OR c.NUM_CAIXA='AB00107' UNION ALL "
               "SELECT c.DESC_CAIXA, c.NUM_CAIXA, c.TIPO_GUARDA, c.ANOS_VENCIMENTO FROM CAIXA c "
               "WHERE c.NUM_CAIXA=' ab1 ' OR c.NUM_CAIXA='o'x' OR c.NUM_CAIXA='AB00107' ORDER BY NUM_CAIXA",
               "SELECT c.DESC_CAIXA, c.NUM_CAIXA, c.TIPO_GUARDA, c.ANOS_VENCIMENTO FROM CAIXA c "
               "WHERE c.NUM_CAIXA=' ab1 ' OR c.NUM_CAIXA='o'x' OR c.NUM_CAIXA='AB00107'"});
}

TEST(EtiquetaAberturaTest, SelectsMainModulesForAnythingButAnUpperCaseS) {
  for (const wchar_t* kind : {L"", L"s", L"M", L"SS", L"S ", L" S"}) {
    Parameters parameters = kThreeModules;
    parameters.emplace_back(L"Tipo", kind);
    CaixaScenario scenario(DatabaseOf(tbSQLServer), Path::kClientConnection);
    EXPECT_EQ(scenario.Run(&CCaixaRpt::EtiquetaAbertura, scenario.Foreign(parameters)),
              All({scenario.InitialLines(),
                   {"Parametros.Get(Tipo) -> \"" + recorder::Utf8(kind) + "\"", R"(Parametros.Get(Modulo1) -> "AB001")",
                    R"(Parametros.Get(Modulo2) -> "AB002")", R"(Parametros.Get(Modulo3) -> "AB003")"},
                   scenario.ResultLines(kOpeningLabels.onConnection)}));
  }
}

TEST(EtiquetaAberturaTest, TakesAnyWordWithSFromItsOwnParameterObjectForSubordinates) {
  for (const wchar_t* kind : {L"s", L"S", L"subordinado"}) {
    CaixaScenario scenario(DatabaseOf(tbSQLServer), Path::kClientConnection);
    EXPECT_EQ(scenario.Run(&CCaixaRpt::EtiquetaAbertura, {{L"Tipo", kind}, {L"Modulo1", L"AB00107"}}),
              All({scenario.InitialLines(), scenario.SubordinateCodeLines(2),
                   scenario.ResultLines(
                       "SELECT c.DESC_CAIXA, s.COD7 AS NUM_CAIXA, s.TIPO_GUARDA, s.ANOS_VENCIMENTO FROM CAIXA c "
                       "INNER JOIN CAIXA_SUBORDINADA s ON c.NUM_CAIXA = s.NUM_CAIXA "
                       "WHERE (s.NUM_CAIXA='AB001' AND s.NUM_SEQ=7)  OR (s.NUM_CAIXA='' AND s.NUM_SEQ=0)  OR "
                       "(s.NUM_CAIXA='' AND s.NUM_SEQ=0)")}));
  }
}

// Closing labels.

TEST(EtiquetaFechamentoTest, OpensTheSameStatementOnEitherConnection) {
  const std::string statement =
      "SELECT c.DESC_CAIXA, c.NUM_CAIXA, c.DOC_INICIAL, c.DOC_FINAL, c.DATA_VENCIMENTO, c.TIPO_GUARDA, "
      "p.EMPRESA AS Nome_Empresa FROM CAIXA c INNER JOIN PARAMETRO p ON p.CODIGO = '1' "
      "WHERE (c.NUM_CAIXA='AB001' OR c.NUM_CAIXA='AB002' OR c.NUM_CAIXA='AB003') ORDER BY c.NUM_CAIXA";
  for (const Database& database : Databases())
    CheckResult(database, &CCaixaRpt::EtiquetaFechamento, kThreeModules, Asks::kNothing, {statement, statement});
}

TEST(EtiquetaFechamentoTest, TakesSubordinateCodesForMainModulesWhateverTheKind) {
  const std::string statement =
      "SELECT c.DESC_CAIXA, c.NUM_CAIXA, c.DOC_INICIAL, c.DOC_FINAL, c.DATA_VENCIMENTO, c.TIPO_GUARDA, "
      "p.EMPRESA AS Nome_Empresa FROM CAIXA c INNER JOIN PARAMETRO p ON p.CODIGO = '1' "
      "WHERE (c.NUM_CAIXA='AB00107' OR c.NUM_CAIXA='AB00212' OR c.NUM_CAIXA='AB003XY') ORDER BY c.NUM_CAIXA";
  CheckResult(DatabaseOf(tbSQLServer), &CCaixaRpt::EtiquetaFechamento, kThreeSubordinates, Asks::kNothing,
              {statement, statement});
}

TEST(EtiquetaFechamentoTest, ReadsTheThreeModulesAndNothingElse) {
  CaixaScenario scenario;
  EXPECT_EQ(scenario.Run(&CCaixaRpt::EtiquetaFechamento, scenario.Foreign({{L"Modulo1", L"AB001"}})),
            All({scenario.InitialLines(),
                 {R"(Parametros.Get(Modulo1) -> "AB001")", R"(Parametros.Get(Modulo2) -> "")",
                  R"(Parametros.Get(Modulo3) -> "")"},
                 scenario.ResultLines(
                     "SELECT c.DESC_CAIXA, c.NUM_CAIXA, c.DOC_INICIAL, c.DOC_FINAL, c.DATA_VENCIMENTO, "
                     "c.TIPO_GUARDA, p.EMPRESA AS Nome_Empresa FROM CAIXA c "
                     "INNER JOIN PARAMETRO p ON p.CODIGO = '1' "
                     "WHERE (c.NUM_CAIXA='AB001' OR c.NUM_CAIXA='' OR c.NUM_CAIXA='') ORDER BY c.NUM_CAIXA")}));
}

// Closing labels of subordinates.

constexpr auto kSubordinatesOfAB001 =
    "SELECT c.DESC_CAIXA, s.COD7 AS NUM_CAIXA, s.DOC_INICIAL, s.DOC_FINAL, s.DATA_VENCIMENTO, s.TIPO_GUARDA, "
    "p.EMPRESA AS Nome_Empresa FROM CAIXA c INNER JOIN PARAMETRO p ON p.CODIGO = '1' "
    "INNER JOIN CAIXA_SUBORDINADA s ON c.NUM_CAIXA = s.NUM_CAIXA WHERE s.NUM_CAIXA = 'AB001' ORDER BY NUM_CAIXA";

TEST(EtiquetaFechamentoSubordinadaTest, LabelsEverySubordinateOnceOneIsClosed) {
  for (const Database& database : Databases())
    for (const Path path : kPaths) {
      CaixaScenario scenario(database, path);
      EXPECT_EQ(scenario.Run(&CCaixaRpt::EtiquetaFechamentoSubordinada, {{L"Modulo1", L"AB001"}}),
                All({scenario.InitialLines(),
                     scenario.ClosedSubordinatesLines("AB001", "Subordinados"),
                     {"Subordinados.Get(Count) -> 1"},
                     scenario.SubordinateCodeLines(4),
                     scenario.ResultLines(kSubordinatesOfAB001, CaixaScenario::ClosedSubordinatesEnd())}));
      EXPECT_EQ(scenario.heard, (CallLines{"KodraRpt.CCaixaRpt::ObtemSubordinadosFechados: gerando filtro",
                                           "KodraRpt.CCaixaRpt::ObtemSubordinadosFechados: obtendo dados"}));
    }
}

TEST(EtiquetaFechamentoSubordinadaTest, TellsTheBusinessComponentsWhereToLog) {
  for (const Path path : kPaths) {
    CaixaScenario scenario(DatabaseOf(tbSQLServer), path);
    scenario.report.SetLogFile(L"/var/log/kodra.log");
    EXPECT_EQ(scenario.Run(&CCaixaRpt::EtiquetaFechamentoSubordinada, {{L"Modulo1", L"AB001"}}),
              All({scenario.InitialLines(),
                   scenario.ClosedSubordinatesLines("AB001", "Subordinados"),
                   {"Subordinados.Get(Count) -> 1"},
                   scenario.SubordinateCodeLines(4),
                   scenario.ResultLines(kSubordinatesOfAB001, CaixaScenario::ClosedSubordinatesEnd())}));
  }
}

TEST(EtiquetaFechamentoSubordinadaTest, ReadsTheFirstModuleOnceAndInsertsItWhole) {
  CaixaScenario scenario;
  EXPECT_EQ(scenario.Run(&CCaixaRpt::EtiquetaFechamentoSubordinada, scenario.Foreign({{L"Modulo1", L"AB00107"}})),
            All({scenario.InitialLines(),
                 {R"(Parametros.Get(Modulo1) -> "AB00107")"},
                 scenario.ClosedSubordinatesLines("AB00107", "Subordinados"),
                 {"Subordinados.Get(Count) -> 1"},
                 scenario.SubordinateCodeLines(4),
                 scenario.ResultLines(
                     "SELECT c.DESC_CAIXA, s.COD7 AS NUM_CAIXA, s.DOC_INICIAL, s.DOC_FINAL, s.DATA_VENCIMENTO, "
                     "s.TIPO_GUARDA, p.EMPRESA AS Nome_Empresa FROM CAIXA c "
                     "INNER JOIN PARAMETRO p ON p.CODIGO = '1' "
                     "INNER JOIN CAIXA_SUBORDINADA s ON c.NUM_CAIXA = s.NUM_CAIXA "
                     "WHERE s.NUM_CAIXA = 'AB00107' ORDER BY NUM_CAIXA",
                     CaixaScenario::ClosedSubordinatesEnd())}));
}

TEST(EtiquetaFechamentoSubordinadaTest, FailsForAModuleWithoutClosedSubordinates) {
  for (const Path path : kPaths) {
    CaixaScenario scenario(DatabaseOf(tbSQLServer), path);
    scenario.AnswerSubordinates(scenario.NewSubordinates(0));
    scenario.around.journal.Forget();
    EXPECT_EQ(scenario.RunRaising(&CCaixaRpt::EtiquetaFechamentoSubordinada, {{L"Modulo1", L"AB001"}}),
              Reported("KodraRpt.CCaixaRpt::EtiquetaFechamentoSubordinada",
                       "Não há módulos subordinados fechados associados ao módulo AB001"));
    const std::string line =
        "KodraRpt.CCaixaRpt::EtiquetaFechamentoSubordinada: ----> saindo com o erro -2147221493 em "
        "KodraRpt.CCaixaRpt::EtiquetaFechamentoSubordinada: "
        "Não há módulos subordinados fechados associados ao módulo AB001";
    EXPECT_EQ(scenario.around.journal.Calls(), All({scenario.InitialLines(),
                                                    scenario.ClosedSubordinatesLines("AB001", "Subordinados"),
                                                    {"Subordinados.Get(Count) -> 0"},
                                                    CaixaScenario::ClosedSubordinatesEnd(),
                                                    scenario.LogLines(line)}));
    EXPECT_EQ(scenario.heard, (CallLines{"KodraRpt.CCaixaRpt::ObtemSubordinadosFechados: gerando filtro",
                                         "KodraRpt.CCaixaRpt::ObtemSubordinadosFechados: obtendo dados", line}));
  }
}

TEST(EtiquetaFechamentoSubordinadaTest, FailsWithoutAListOfClosedSubordinates) {
  const std::pair<Value, const char*> kNoLists[] = {{ObjectRef(), "Nothing"}, {Empty{}, "Empty"}, {Null{}, "Null"}};
  for (const auto& [answer, shown] : kNoLists)
    for (const Path path : kPaths) {
      CaixaScenario scenario(DatabaseOf(tbSQLServer), path);
      scenario.AnswerSubordinates(answer);
      scenario.around.journal.Forget();
      EXPECT_EQ(
          scenario.RunRaising(&CCaixaRpt::EtiquetaFechamentoSubordinada, {{L"Modulo1", L"AB001"}}),
          Reported("KodraRpt.CCaixaRpt::EtiquetaFechamentoSubordinada",
                   "Não foi possível obter uma lista dos módulos subordinados fechados associados ao módulo AB001"));
      EXPECT_EQ(scenario.around.journal.Calls(),
                All({scenario.InitialLines(), scenario.ClosedSubordinatesLines("AB001", shown),
                     CaixaScenario::ClosedSubordinatesEnd(),
                     scenario.LogLines(
                         "KodraRpt.CCaixaRpt::EtiquetaFechamentoSubordinada: ----> saindo com o erro -2147221494 em "
                         "KodraRpt.CCaixaRpt::EtiquetaFechamentoSubordinada: Não foi possível obter uma lista dos "
                         "módulos subordinados fechados associados ao módulo AB001")}));
    }
}

TEST(EtiquetaFechamentoSubordinadaTest, RefusesAnAnswerThatIsNotAnObject) {
  CaixaScenario scenario;
  scenario.AnswerSubordinates(L"AB00101");
  EXPECT_EQ(scenario.RunRaising(&CCaixaRpt::EtiquetaFechamentoSubordinada, {{L"Modulo1", L"AB001"}}),
            Reported("KodraRpt.CCaixaRpt::EtiquetaFechamentoSubordinada", "O objeto é obrigatório"));
}

// Divider labels.

TEST(EtiquetaDivisoriaTest, ListsTheDocumentsOfTheModuleOnEitherConnection) {
  const std::string statement = "SELECT d.COD_DOCTO FROM DOCUMENTO d WHERE d.NUM_CAIXA = 'AB001' ORDER BY d.COD_DOCTO";
  for (const Database& database : Databases())
    CheckResult(database, &CCaixaRpt::EtiquetaDivisoria, {{L"Modulo1", L"AB001"}}, Asks::kNothing,
                {statement, statement});
}

TEST(EtiquetaDivisoriaTest, ListsTheDocumentsOfTheParentForASubordinate) {
  CaixaScenario scenario;
  EXPECT_EQ(scenario.Run(&CCaixaRpt::EtiquetaDivisoria, scenario.Foreign({{L"Modulo1", L"AB00107"}})),
            All({scenario.InitialLines(),
                 {R"(Parametros.Get(Modulo1) -> "AB00107")"},
                 scenario.ResultLines(
                     "SELECT d.COD_DOCTO FROM DOCUMENTO d WHERE d.NUM_CAIXA = 'AB001' ORDER BY d.COD_DOCTO")}));
}

TEST(EtiquetaDivisoriaTest, MatchesNothingWithoutAModule) {
  const std::string statement = "SELECT d.COD_DOCTO FROM DOCUMENTO d WHERE d.NUM_CAIXA = '' ORDER BY d.COD_DOCTO";
  CheckResult(DatabaseOf(tbSQLServer), &CCaixaRpt::EtiquetaDivisoria, {}, Asks::kNothing, {statement, statement});
}

}  // namespace
}  // namespace kodra::reports
