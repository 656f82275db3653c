// kodrarpt verifica on both databases: what it finds, whole.
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

// The lines that name a report, each with what follows the name.
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
  const Ran ran = RunOf({"verifica", "--conexao", ToUtf8(tests::SampleOn(GetParam()))});
  EXPECT_EQ(ran.code, ExitCode::kOk);
  const std::string first =
      GetParam() == Engine::kSqlite ? "Banco de dados: SQLite (tipo 7)\n\n" : "Banco de dados: MySQL (tipo 3)\n\n";
  EXPECT_EQ(ran.out.substr(0, first.size()), first);
  const std::string last = "\n39 de 39 relatórios prontos\n";
  EXPECT_TRUE(ran.out.ends_with(last)) << ran.out;
  for (const auto& [report, finding] : Findings(ran.out)) EXPECT_EQ(finding, "pronto") << report;
  EXPECT_EQ(Findings(ran.out).size(), 39U);
}

TEST_P(Verifica, FindsTheSameInAnArchiveWithoutRows) {
  EXPECT_EQ(RunOf({"verifica", "--conexao", ToUtf8(tests::EmptyOn(GetParam()))}).code, ExitCode::kOk);
}

TEST(VerificaMissing, NamesTablesAndColumnsOfEachReport) {
  tests::SqliteFile file;
  file.Run(L"CREATE TABLE DEPTO (COD_DEPTO TEXT, DESCR_DEPTO TEXT, ENDERECO TEXT, CIDADE TEXT, ESTADO TEXT)");
  file.Run(L"CREATE TABLE SUPORTE (COD_SUPORTE TEXT, DESCR_SUPORTE TEXT)");
  const Ran ran = RunOf({"verifica", "--conexao", ToUtf8(file.ConnectionString())});
  EXPECT_EQ(ran.code, ExitCode::kMismatch);
  const std::map<std::string, std::string> findings = Findings(ran.out);
  ASSERT_EQ(findings.size(), 39U) << ran.out;
  EXPECT_EQ(findings.at("CSuporteRpt.RelatorioSuportes"), "pronto");
  EXPECT_EQ(findings.at("CDeptoRpt.RelatorioDeptos"), "falta: coluna DEPTO.CEP, coluna DEPTO.END_EMAIL");
  EXPECT_EQ(findings.at("CDocumentoRpt.RelatorioSintetico"), "falta: tabela DOCUMENTO");
  EXPECT_EQ(findings.at("COperadorRpt.RelatorioOperadores"), "falta: tabela OPERADOR, tabela GRUPOS_OPERADORES");
  EXPECT_EQ(findings.at("CLogRpt.RelatorioLog"), "falta: tabela EVENTO");
  EXPECT_NE(ran.out.find("\n1 de 39 relatórios prontos\n\nO que o banco respondeu:\n"
                         "  coluna DEPTO.CEP: [SQLite]no such column: CEP (1)\n"
                         "  coluna DEPTO.END_EMAIL: [SQLite]no such column: END_EMAIL (1)\n"
                         "  tabela ASSUNTO: [SQLite]no such table: ASSUNTO (1)\n"),
            std::string::npos)
      << ran.out;
}

TEST(VerificaMissing, FailsWithItsOwnCodeWhereItCannotConnect) {
  const std::string refused = ToUtf8(tests::MariaDb().ConnectionString(L"mysql", L"segredo"));
  const Ran ran = RunOf({"verifica", "--conexao", refused});
  EXPECT_EQ(ran.code, ExitCode::kConnection);
  EXPECT_EQ(ran.out, "");
  EXPECT_TRUE(ran.err.starts_with("kodrarpt: não foi possível conectar ao banco de dados: erro ")) << ran.err;
  EXPECT_EQ(ran.err.find("segredo"), std::string::npos);
}

}  // namespace
}  // namespace kodra::console
