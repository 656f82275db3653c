// kodrarpt executa with reports that have nothing to list: every format has its heading.
#include <gtest/gtest.h>

#include "tests/console/pdf.h"
#include "tests/console/run.h"
#include "tests/console/small_archive.h"
#include "tests/db/temporary_folder.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

using tests::Engine;

class ExecutaEmpty : public testing::TestWithParam<Engine> {
 protected:
  static RunResult RunReport(const std::string& report, std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(),
                     {"executa", report, "--conexao", values::ToUtf8(tests::SmallArchiveOn(GetParam()))});
    return RunProgram(arguments);
  }
};

INSTANTIATE_TEST_SUITE_P(, ExecutaEmpty, testing::Values(Engine::kSqlite, Engine::kMariaDb), tests::EngineName);

// Both reports return no recordset at all when there is nothing to list.
TEST_P(ExecutaEmpty, HasTheNamesOfTheColumnsInCsv) {
  EXPECT_EQ(RunReport("COperadorRpt", {"--formato", "csv"}),
            Success("DESCR_OPERADOR,NOME_COMPLETO,DESCR_TIPO,DESCR_DEPTO,CHAPA,RAMAL,DESCR_GRUPO_OP,ATIVO\r\n"));
  std::string log = "DATA,HORA,DESCR_OPERADOR,MAQUINA,COD_DOCTO,COD_ACAO";
  for (int part = 1; part <= 32; ++part) log += ",ACAO" + std::to_string(part);
  EXPECT_EQ(RunReport("CLogRpt", {"--formato", "csv"}), Success(log + "\r\n"));
}

TEST_P(ExecutaEmpty, HasTheNamesOfTheColumnsForExcel) {
  EXPECT_EQ(RunReport("CLogRpt", {"--formato", "csv", "--excel", "--colunas", "DATA,COD_ACAO"}),
            Success("\xEF\xBB\xBF"
                    "DATA;COD_ACAO\r\n"));
}

TEST_P(ExecutaEmpty, HasTheNamesOfTheColumnsInATable) {
  EXPECT_EQ(RunReport("CLogRpt", {"--colunas", "DATA,HORA,DESCR_OPERADOR"}),
            Success("DATA  HORA  DESCR_OPERADOR\n────  ────  ──────────────\n(0 linhas)\n"));
}

TEST_P(ExecutaEmpty, IsAnEmptyListInJson) {
  EXPECT_EQ(RunReport("CLogRpt", {"--formato", "json"}), Success("[]\n"));
  EXPECT_EQ(RunReport("CLogRpt", {"--formato", "json", "--json-linhas"}), Success(""));
}

TEST_P(ExecutaEmpty, HasTheNamesOfTheColumnsInASpreadsheet) {
  const tests::TemporaryFolder folder;
  const auto target = folder.Path() / "eventos.xlsx";
  EXPECT_EQ(RunReport("CLogRpt", {"--saida", target.string(), "--colunas", "DATA,MAQUINA"}), Success(""));
  const std::string sheet = tests::AnswerOf("unzip -p '" + target.string() + "' xl/worksheets/sheet1.xml #", target);
  EXPECT_NE(sheet.find("<sheetData><row r=\"1\"><c r=\"A1\" s=\"1\" t=\"inlineStr\"><is><t>DATA</t></is></c>"
                       "<c r=\"B1\" s=\"1\" t=\"inlineStr\"><is><t>MAQUINA</t></is></c></row></sheetData>"),
            std::string::npos)
      << sheet;
}

TEST_P(ExecutaEmpty, HasTheTitleAndTheCaptionsOnAPage) {
  const RunResult page = RunReport("CLogRpt", {"--formato", "html"});
  EXPECT_EQ(page.code, ExitCode::kOk);
  EXPECT_NE(page.out.find("<h1>Registro de eventos</h1>\n"
                          "<table>\n"
                          "<thead><tr><th>Data</th><th>Operador</th><th>Máquina</th><th>Documento</th><th>Evento</th>"
                          "</tr></thead>\n"
                          "<tbody class=\"total\"><tr><td colspan=\"5\">Nenhum registro</td></tr></tbody>\n"
                          "</table>\n"),
            std::string::npos)
      << page.out;
  const tests::TemporaryFolder folder;
  const auto target = folder.Path() / "eventos.pdf";
  EXPECT_EQ(RunReport("CLogRpt", {"--saida", target.string()}), Success(""));
  const std::string text = tests::TextOfPdf(target);
  std::size_t last = 0;
  for (const char* const word :
       {"Registro de eventos", "Data", "Operador", "Máquina", "Documento", "Evento", "Nenhum registro"}) {
    const std::size_t at = text.find(word, last);
    ASSERT_NE(at, std::string::npos) << word << " in\n" << text;
    last = at;
  }
}

TEST_P(ExecutaEmpty, WarnsOfACodeThatTheArchiveDoesNotHave) {
  const std::string names = "COD_DOCTO,DESCR_SUPORTE,NUM_CAIXA,NUM_CD,DT_ARMAZ,DT_VENC,FRENTE,VERSO\r\n";
  EXPECT_EQ(RunReport("CDocumentoRpt.RelatorioSintetico", {"--CodDepto", "9", "--formato", "csv"}),
            Success(names, "kodrarpt: aviso: nenhum departamento tem o código \"9\", de --CodDepto\n"));
}

TEST_P(ExecutaEmpty, WarnsOfAnUnknownModuleByItsMainModule) {
  EXPECT_EQ(
      RunReport("CCaixaRpt.DocsNoModuloSubRpt", {"--Modulo1", "ZZ00107", "--formato", "csv"}),
      Success("COD_DOCTO\r\n", "kodrarpt: aviso: nenhum módulo principal tem o código \"ZZ001\", de --Modulo1\n"));
}

TEST_P(ExecutaEmpty, WarnsOfEachUnknownCode) {
  EXPECT_EQ(RunReport("CContainerRpt.EtiquetaAberturaSubRpt",
                      {"--Container1", "C9", "--Container2", "C8", "--formato", "csv"}),
            Success("CONTAINER,NUM_CAIXA\r\n",
                    "kodrarpt: aviso: nenhum contêiner tem o código \"C9\", de --Container1\n"
                    "kodrarpt: aviso: nenhum contêiner tem o código \"C8\", de --Container2\n"));
}

TEST_P(ExecutaEmpty, WarnsOfAnUnknownCodeBesideAKnownOne) {
  EXPECT_EQ(RunReport("CContainerRpt.EtiquetaAberturaSubRpt",
                      {"--Container1", "C1", "--Container2", "C9", "--formato", "csv"}),
            Success("CONTAINER,NUM_CAIXA\r\nC1,AB001\r\n",
                    "kodrarpt: aviso: nenhum contêiner tem o código \"C9\", de --Container2\n"));
}

// Databases differ in what a backslash means in a text.
TEST_P(ExecutaEmpty, SaysNothingOfACodeThatItCannotAskFor) {
  EXPECT_EQ(
      RunReport("CContainerRpt.EtiquetaAberturaSubRpt", {"--Container1", "C\\9", "--literal", "--formato", "csv"}),
      Success("CONTAINER,NUM_CAIXA\r\n"));
}

TEST_P(ExecutaEmpty, SaysNothingOfKnownCodes) {
  EXPECT_EQ(RunReport("CCaixaRpt.DocsNoModuloSubRpt", {"--Modulo1", "AB001", "--formato", "csv"}),
            Success("COD_DOCTO\r\n0000000001\r\n"));
}

}  // namespace
}  // namespace kodra::console
