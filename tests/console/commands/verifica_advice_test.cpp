// kodrarpt verifica: its advice, and its output for programs.
#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>

#include "tests/console/check/archive.h"
#include "tests/console/check/verifica.h"

namespace kodra::console {
namespace {

using tests::Engine;

class VerificaAdvice : public testing::TestWithParam<Engine> {};

INSTANTIATE_TEST_SUITE_P(, VerificaAdvice, testing::Values(Engine::kSqlite, Engine::kMariaDb), tests::EngineName);

TEST_P(VerificaAdvice, SaysNothingOfTextsThatEveryReportCanShow) {
  const RunResult result = Verifica(NewArchiveOn(GetParam(), {L"ALTER TABLE OPERADOR DROP COLUMN NOME_COMPLETO",
                                                              L"ALTER TABLE OPERADOR ADD NOME_COMPLETO VARCHAR(255)"}));
  EXPECT_EQ(result.code, ExitCode::kOk);
  EXPECT_EQ(result.out.find("NOME_COMPLETO"), std::string::npos) << result.out;
}

constexpr const char* kAdviceForModules =
    "  - DOCUMENTO (NUM_CAIXA), com 10.000 linhas:\n"
    "      CCaixaRpt.ModulosVencidos\n"
    "      CCaixaRpt.AutorizacaoDescarteModuloSubRpt\n"
    "      CCaixaRpt.DocsNoModuloSubRpt\n"
    "      CCaixaRpt.EtiquetaDivisoria\n";

TEST_P(VerificaAdvice, AdvisesTheIndexesThatALargeTableLacks) {
  const RunResult result = Verifica(NewArchiveOn(GetParam(), Documents(10)));
  EXPECT_EQ(result.code, ExitCode::kOk);
  const std::size_t advice = result.out.find("\nÍndices ");
  ASSERT_NE(advice, std::string::npos) << result.out;
  const bool isSqlite = GetParam() == Engine::kSqlite;
  // The primary key is an index on COD_DOCTO. On SQLite no report finds anything in a period.
  const std::string forPeriods = isSqlite ? ""
                                          : "  - DOCUMENTO (DT_ARMAZ), com 10.000 linhas:\n"
                                            "      CDocumentoRpt.RelatorioSintetico\n"
                                            "      CDocumentoRpt.RelatorioAnalitico\n"
                                            "      CDocumentoRpt.RelatorioInventarios\n"
                                            "      CEstatImgRpt.RelatorioEstatisticas\n"
                                            "      CEstatSuporteRpt.RelatorioEstatisticas\n"
                                            "      CEstatSubgrupoRpt.RelatorioEstatisticas\n"
                                            "  - DOCUMENTO (DATA_INDEXACAO), com 10.000 linhas:\n"
                                            "      CEstatIndexRpt.RelatorioEstatisticasPorDocumento\n";
  EXPECT_EQ(result.out.substr(advice), std::string("\nÍndices que deixariam relatórios mais rápidos:\n") +
                                           kAdviceForModules +
                                           "  - DOCUMENTO (COD_DEPTO), com 10.000 linhas:\n"
                                           "      CDocumentoRpt.RelatorioSintetico\n"
                                           "      CDocumentoRpt.RelatorioAnalitico\n"
                                           "      CDocumentoRpt.RelatorioInventarios\n"
                                           "  - DOCUMENTO (COD_ASSUNTO), com 10.000 linhas:\n"
                                           "      CCaixaRpt.DocsNaoIndexadosNosModulos\n" +
                                           forPeriods + "Para criá-los, veja: kodrarpt esquema --banco " +
                                           (isSqlite ? "sqlite" : "mysql") + " --indices\n");
}

TEST_P(VerificaAdvice, AdvisesEveryIndexWhereNoTableHasAKey) {
  std::vector<std::wstring> statements = Documents(10);
  for (const std::wstring& statement : Rows(L"SOLICITACAO", L"COD_SOLICIT", 10)) statements.push_back(statement);
  for (const std::wstring& statement : Rows(L"EVENTO", L"COD_EVENTO", 10)) statements.push_back(statement);
  const RunResult result = Verifica(NewArchiveWithoutKeysOn(GetParam(), statements));
  EXPECT_EQ(result.code, ExitCode::kOk);
  std::vector<std::string> advised;
  std::istringstream lines(result.out);
  for (std::string line; std::getline(lines, line);)
    if (line.ends_with(" linhas:")) advised.push_back(line);
  std::vector<std::string> all = {
      "  - DOCUMENTO (NUM_CAIXA), com 10.000 linhas:",     "  - DOCUMENTO (COD_DOCTO), com 10.000 linhas:",
      "  - DOCUMENTO (COD_DEPTO), com 10.000 linhas:",     "  - DOCUMENTO (COD_ASSUNTO), com 10.000 linhas:",
      "  - DOCUMENTO (DT_ARMAZ), com 10.000 linhas:",      "  - DOCUMENTO (DATA_INDEXACAO), com 10.000 linhas:",
      "  - SOLICITACAO (COD_SOLICIT), com 10.000 linhas:", "  - EVENTO (DATA_INICIAL), com 10.000 linhas:"};
  // On SQLite no report finds anything in a period.
  if (GetParam() == Engine::kSqlite) all.erase(all.begin() + 4, all.begin() + 6);
  EXPECT_EQ(advised, all);
}

TEST_P(VerificaAdvice, AdvisesNoIndexForASmallTable) {
  EXPECT_EQ(Verifica(NewArchiveOn(GetParam(), Documents(9))), Verifica(tests::SampleOn(GetParam())));
}

TEST_P(VerificaAdvice, AcceptsAnIndexThatBeginsWithTheColumn) {
  std::vector<std::wstring> statements = Documents(10);
  statements.emplace_back(L"CREATE INDEX A ON DOCUMENTO (NUM_CAIXA, COD_DEPTO)");
  statements.emplace_back(L"CREATE INDEX B ON DOCUMENTO (COD_SUPORTE, COD_DEPTO)");
  const RunResult result = Verifica(NewArchiveOn(GetParam(), statements));
  EXPECT_EQ(result.out.find("DOCUMENTO (NUM_CAIXA)"), std::string::npos) << result.out;
  EXPECT_NE(result.out.find("DOCUMENTO (COD_DEPTO)"), std::string::npos) << result.out;
}

TEST_P(VerificaAdvice, AdvisesNoMoreIndexesOnceThoseOfEsquemaExist) {
  std::vector<std::wstring> statements = Documents(10);
  const bool isSqlite = GetParam() == Engine::kSqlite;
  std::istringstream lines(RunProgram({"esquema", "--banco", isSqlite ? "sqlite" : "mysql", "--indices"}).out);
  std::size_t indexes = 0;
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("--")) continue;
    statements.push_back(values::FromUtf8(line));
    ++indexes;
  }
  EXPECT_EQ(indexes, isSqlite ? 6U : 8U);
  EXPECT_EQ(Verifica(NewArchiveOn(GetParam(), statements)), Verifica(tests::SampleOn(GetParam())));
}

using Json = nlohmann::json;

Json JsonOf(const std::wstring& connectionString) {
  const RunResult result = RunProgram({"verifica", "--json", "--conexao", values::ToUtf8(connectionString)});
  EXPECT_EQ(std::ranges::count(result.out, '\n'), 1);
  return Json::parse(result.out);
}

Json ReportIn(const Json& findings, const std::string& name) {
  for (const Json& report : findings["relatorios"])
    if (report["nome"] == name) return report;
  return {};
}

TEST(VerificaJson, ContainsTheRequiredOddities) {
  const Json findings = JsonOf(tests::SampleOn(Engine::kSqlite));
  EXPECT_EQ(findings["banco"], "sqlite");
  EXPECT_EQ(findings["tipo"], 7);
  EXPECT_EQ(findings["pronto"], true);
  EXPECT_EQ(findings["relatorios"].size(), 39U);
  const Json alwaysFails = {
      {"nome", "CSolicitacaoRpt.RelatorioDevolucaoOriginal"},
      {"situacao", "não funciona neste banco"},
      {"problemas", Json::array()},
      {"recusas", Json::array()},
      {"ressalvas", {"sempre dá erro de sintaxe, porque o relatório não sabe escrever uma data como texto no SQLite"}}};
  EXPECT_EQ(ReportIn(findings, "CSolicitacaoRpt.RelatorioDevolucaoOriginal"), alwaysFails);
  const Json longText = {{"coluna", "OPERADOR.NOME_COMPLETO"}, {"aceita", 300}, {"limite", 255}};
  EXPECT_EQ(findings["textos_longos"], Json::array({longText}));
  EXPECT_EQ(findings["respostas"], Json::object());
  EXPECT_EQ(findings["indices"], Json::array());
  EXPECT_EQ(findings["nao_conferido"], Json::array());
}

TEST(VerificaJson, ContainsProblemsAndIndexes) {
  std::vector<std::wstring> statements = Documents(10);
  statements.emplace_back(L"DROP TABLE EVENTO");
  const Json findings = JsonOf(NewArchiveOn(Engine::kSqlite, statements));
  EXPECT_EQ(findings["pronto"], false);
  const Json missing = {{"defeito", "falta"}, {"item", "tabela EVENTO"}};
  const Json log = {{"nome", "CLogRpt.RelatorioLog"},
                    {"situacao", "com problemas"},
                    {"problemas", Json::array({missing})},
                    {"recusas", Json::array()},
                    {"ressalvas", Json::array()}};
  EXPECT_EQ(ReportIn(findings, "CLogRpt.RelatorioLog"), log);
  const Json answers = {{"tabela EVENTO", "[SQLite]no such table: EVENTO (1)"}};
  EXPECT_EQ(findings["respostas"], answers);
  const Json index = {{"indice", "DOCUMENTO (NUM_CAIXA)"},
                      {"linhas", 10000},
                      {"relatorios",
                       {"CCaixaRpt.ModulosVencidos", "CCaixaRpt.AutorizacaoDescarteModuloSubRpt",
                        "CCaixaRpt.DocsNoModuloSubRpt", "CCaixaRpt.EtiquetaDivisoria"}},
                      {"instrucao", "CREATE INDEX IX_DOCUMENTO_NUM_CAIXA ON DOCUMENTO (NUM_CAIXA)"}};
  EXPECT_EQ(findings["indices"][0], index);
}

}  // namespace
}  // namespace kodra::console
