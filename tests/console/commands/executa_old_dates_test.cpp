// kodrarpt executa with dates before the year 100, from both databases.
#include <gtest/gtest.h>

#include "tests/console/run.h"
#include "tests/console/xlsx.h"
#include "tests/db/sample.h"
#include "tests/db/temporary_folder.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

using tests::Engine;

// An archive with dates before the year 100.
std::string OldArchiveOn(Engine engine) {
  return values::ToUtf8(tests::DatabaseOf(
      engine, L"antigo",
      {L"CREATE TABLE SUPORTE (COD_SUPORTE VARCHAR(10), DESCR_SUPORTE VARCHAR(50))",
       L"INSERT INTO SUPORTE VALUES ('P', 'Papel')",
       L"CREATE TABLE DOCUMENTO (COD_DOCTO VARCHAR(10), COD_SUPORTE VARCHAR(10), NUM_CAIXA VARCHAR(5), "
       L"NUM_CD VARCHAR(10), COD_DEPTO VARCHAR(10), DT_ARMAZ DATETIME, DT_VENC DATE, FRENTE INTEGER, VERSO INTEGER)",
       L"INSERT INTO DOCUMENTO VALUES ('1', 'P', 'AB001', 'CD1', '1', '0099-12-31 06:00:00', '0050-01-01', 7, 1)",
       L"CREATE TABLE PARAMETRO (CODIGO VARCHAR(10), EMPRESA VARCHAR(64))",
       L"INSERT INTO PARAMETRO VALUES ('1', 'Acervo')",
       L"CREATE TABLE CAIXA (NUM_CAIXA VARCHAR(5), CONTAINER VARCHAR(10), DATA_VENCIMENTO DATE, "
       L"TIPO_GUARDA VARCHAR(1))",
       L"INSERT INTO CAIXA VALUES ('AB001', 'C1', '0050-01-01', 'P')",
       L"INSERT INTO CAIXA VALUES ('AB002', 'C2', '0050-01-01', 'P')",
       L"INSERT INTO CAIXA VALUES ('AB003', 'C2', '2030-01-31', 'P')"}));
}

RunResult RunReport(Engine engine, std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), "executa");
  arguments.insert(arguments.end(), {"--conexao", OldArchiveOn(engine)});
  return RunProgram(arguments);
}

class ExecutaOldDates : public testing::TestWithParam<Engine> {};

INSTANTIATE_TEST_SUITE_P(, ExecutaOldDates, testing::Values(Engine::kSqlite, Engine::kMariaDb), tests::EngineName);

TEST_P(ExecutaOldDates, AreWrittenInIsoFormInEveryFormat) {
  const std::string report = "CDocumentoRpt.RelatorioSintetico";
  // SQLite stores texts, and a text that is no date for ADO stays as it is stored.
  const std::string moment = GetParam() == Engine::kSqlite ? "0099-12-31 06:00:00" : "0099-12-31T06:00:00";
  EXPECT_EQ(RunReport(GetParam(), {report, "--formato", "csv"}),
            Success("COD_DOCTO,DESCR_SUPORTE,NUM_CAIXA,NUM_CD,DT_ARMAZ,DT_VENC,FRENTE,VERSO\r\n"
                    "1,Papel,AB001,CD1," +
                    moment + ",0050-01-01,7,1\r\n"));
  EXPECT_EQ(RunReport(GetParam(), {report, "--formato", "json", "--colunas", "DT_ARMAZ,DT_VENC"}),
            Success("[\n{\"DT_ARMAZ\":\"" + moment + "\",\"DT_VENC\":\"0050-01-01\"}\n]\n"));
  EXPECT_EQ(RunReport(GetParam(), {report, "--colunas", "DT_ARMAZ,DT_VENC"}),
            Success("DT_ARMAZ             DT_VENC\n"
                    "───────────────────  ──────────\n" +
                    moment +
                    "  0050-01-01\n"
                    "(1 linha)\n"));
  const tests::TemporaryFolder folder;
  const auto sheet = folder.Path() / "antigo.xlsx";
  EXPECT_EQ(RunReport(GetParam(), {report, "--colunas", "DT_VENC", "--saida", sheet.string()}), Success(""));
  EXPECT_NE(PartOf(sheet, "xl/worksheets/sheet1.xml").find("<is><t>0050-01-01</t></is>"), std::string::npos);
  const RunResult page = RunReport(GetParam(), {report, "--formato", "html"});
  EXPECT_EQ(page.code, ExitCode::kOk);
  EXPECT_NE(page.out.find("0050-01-01"), std::string::npos);
}

// A container shows the latest of its modules' dates, but none before 30 December 1899. SQLite has no dates to compare.
TEST(ExecutaOldDatesOnMariaDb, AreComparedByTheLabelsOfContainers) {
  EXPECT_EQ(RunReport(Engine::kMariaDb, {"CContainerRpt.EtiquetaAbertura", "--Container1", "C1", "--Container2", "C2",
                                         "--formato", "csv"}),
            Success("CONTAINER,DATA_VENCIMENTO,TIPO_GUARDA,NOME_EMPRESA\r\n"
                    "C1,1899-12-30,P,Acervo\r\n"
                    "C2,2030-01-31,T,Acervo\r\n"));
}

}  // namespace
}  // namespace kodra::console
