// kodrarpt verifica on both databases.
#include <gtest/gtest.h>

#include "tests/console/run.h"
#include "tests/db/mariadb.h"
#include "tests/db/sample.h"
#include "tests/db/sqlite_file.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

using tests::Engine;
using values::ToUtf8;

// What follows the name of each report in the output.
std::map<std::string, std::string> Findings(const std::string& out) {
  std::map<std::string, std::string> findings;
  std::istringstream lines(out);
  for (std::string line; std::getline(lines, line);) {
    const std::size_t end = line.find(' ');
    if (line.empty() || line[0] != 'C' || line.find('.') > end) continue;
    findings[line.substr(0, end)] = line.substr(line.find_first_not_of(' ', end));
  }
  return findings;
}

class Verifica : public testing::TestWithParam<Engine> {};

INSTANTIATE_TEST_SUITE_P(, Verifica, testing::Values(Engine::kSqlite, Engine::kMariaDb), tests::EngineName);

TEST_P(Verifica, FindsEveryReportReadyOnTheSampleArchive) {
  const RunResult result = RunProgram({"verifica", "--conexao", ToUtf8(tests::SampleOn(GetParam()))});
  EXPECT_EQ(result.code, ExitCode::kOk);
  const std::string first =
      GetParam() == Engine::kSqlite ? "Banco de dados: SQLite (tipo 7)\n\n" : "Banco de dados: MySQL (tipo 3)\n\n";
  EXPECT_EQ(result.out.substr(0, first.size()), first);
  const std::string last = "\n39 de 39 relatórios prontos\n";
  EXPECT_TRUE(result.out.ends_with(last)) << result.out;
  for (const auto& [report, finding] : Findings(result.out)) EXPECT_EQ(finding, "pronto") << report;
  EXPECT_EQ(Findings(result.out).size(), 39U);
}

TEST_P(Verifica, FindsTheSameInAnArchiveWithoutRows) {
  EXPECT_EQ(RunProgram({"verifica", "--conexao", ToUtf8(tests::EmptyOn(GetParam()))}).code, ExitCode::kOk);
}

TEST(VerificaMissing, NamesTablesAndColumnsOfEachReport) {
  tests::SqliteFile file;
  file.Run(L"CREATE TABLE DEPTO (COD_DEPTO TEXT, DESCR_DEPTO TEXT, ENDERECO TEXT, CIDADE TEXT, ESTADO TEXT)");
  file.Run(L"CREATE TABLE SUPORTE (COD_SUPORTE TEXT, DESCR_SUPORTE TEXT)");
  const RunResult result = RunProgram({"verifica", "--conexao", ToUtf8(file.ConnectionString())});
  EXPECT_EQ(result.code, ExitCode::kMismatch);
  const std::map<std::string, std::string> findings = Findings(result.out);
  ASSERT_EQ(findings.size(), 39U) << result.out;
  EXPECT_EQ(findings.at("CSuporteRpt.RelatorioSuportes"), "pronto");
  EXPECT_EQ(findings.at("CDeptoRpt.RelatorioDeptos"), "falta: coluna DEPTO.CEP, coluna DEPTO.END_EMAIL");
  EXPECT_EQ(findings.at("CDocumentoRpt.RelatorioSintetico"), "falta: tabela DOCUMENTO");
  EXPECT_EQ(findings.at("COperadorRpt.RelatorioOperadores"), "falta: tabela OPERADOR, tabela GRUPOS_OPERADORES");
  EXPECT_EQ(findings.at("CLogRpt.RelatorioLog"), "falta: tabela EVENTO");
  EXPECT_NE(result.out.find("\n1 de 39 relatórios prontos\n\nO que o banco respondeu:\n"
                            "  coluna DEPTO.CEP: [SQLite]no such column: CEP (1)\n"
                            "  coluna DEPTO.END_EMAIL: [SQLite]no such column: END_EMAIL (1)\n"
                            "  tabela ASSUNTO: [SQLite]no such table: ASSUNTO (1)\n"),
            std::string::npos)
      << result.out;
}

TEST(VerificaMissing, ShowsNoControlCharactersOfTheDatabase) {
  tests::SqliteFile file;
  file.Run(L"CREATE VIEW DEPTO AS SELECT * FROM \"X\x1b[2J\"");
  const RunResult result = RunProgram({"verifica", "--conexao", ToUtf8(file.ConnectionString())});
  EXPECT_NE(result.out.find("  tabela DEPTO: [SQLite]no such table: main.X\uFFFD[2J (1)\n"), std::string::npos)
      << result.out;
}

TEST(VerificaMissing, FailsWithACodeOfItsOwnIfItCannotConnect) {
  const std::string refused = ToUtf8(tests::MariaDb().ConnectionString(L"mysql", L"segredo"));
  const RunResult result = RunProgram({"verifica", "--conexao", refused});
  EXPECT_EQ(result.code, ExitCode::kConnection);
  EXPECT_EQ(result.out, "");
  EXPECT_TRUE(result.err.starts_with("kodrarpt: não foi possível conectar ao banco de dados: erro ")) << result.err;
  EXPECT_EQ(result.err.find("segredo"), std::string::npos);
}

}  // namespace
}  // namespace kodra::console
