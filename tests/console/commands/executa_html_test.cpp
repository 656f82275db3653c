// kodrarpt executa --formato html on both databases: the page of a report, and the choice of the sheet of labels.
#include <gtest/gtest.h>

#include <regex>

#include "tests/console/run.h"
#include "tests/console/small_archive.h"
#include "tests/db/sample.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

using tests::Engine;

class ExecutaHtml : public testing::TestWithParam<Engine> {
 protected:
  static RunResult RunReport(const std::string& report, std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"executa", report, "--formato", "html", "--conexao",
                                         values::ToUtf8(tests::SmallArchiveOn(GetParam()))});
    return RunProgram(arguments);
  }

  // The texts in the body of a page.
  static std::vector<std::string> TextsOf(const std::string& page) {
    const std::string body = page.substr(page.find("<body>"));
    std::vector<std::string> texts;
    const std::regex between(">([^<>]*[^<>\\s][^<>]*)<");
    for (std::sregex_iterator at(body.begin(), body.end(), between), end; at != end; ++at) texts.push_back((*at)[1]);
    return texts;
  }
};

INSTANTIATE_TEST_SUITE_P(, ExecutaHtml, testing::Values(Engine::kSqlite, Engine::kMariaDb), tests::EngineName);

TEST_P(ExecutaHtml, PrintsAListing) {
  const RunResult result = RunReport("CDocumentoRpt.RelatorioSintetico", {"--CodDepto", "1"});
  EXPECT_EQ(result.code, ExitCode::kOk);
  EXPECT_EQ(
      TextsOf(result.out),
      (std::vector<std::string>{"Documentos: relatório sintético", "Departamento 1", "Documento", "Suporte", "Módulo",
                                "Mídia", "Armazenamento", "Vencimento", "Frente", "Verso", "0000000001", "Papel",
                                "AB001", "31/12/2023 10:20:30", "31/12/2028", "1.200", "3", "1 registro"}));
}

// The modules of each container come from a second report.
TEST_P(ExecutaHtml, ListsTheModulesOfAContainerOnItsLabel) {
  const RunResult result = RunReport("CContainerRpt.EtiquetaAbertura", {"--Container1", "C1", "--Container2", "C2"});
  EXPECT_EQ(result.code, ExitCode::kOk);
  EXPECT_EQ(
      TextsOf(result.out),
      (std::vector<std::string>{"Acervo &amp; Cia", "ABERTURA DE CONTÊINER", "C1", "Módulos: AB001",
                                "guarda por prazo, até 31/01/2030", "C1", "Acervo &amp; Cia", "ABERTURA DE CONTÊINER",
                                "C2", "Módulos: AB002", "guarda por prazo, até 31/01/2031", "C2"}));
}

TEST_P(ExecutaHtml, PutsLabelsOnTheChosenSheet) {
  const RunResult result = RunReport("CCaixaRpt.EtiquetaDivisoria", {"--Modulo1", "AB001", "--folha", "Carta-2x5",
                                                                     "--primeira", "10", "--copias", "2"});
  EXPECT_EQ(result.code, ExitCode::kOk);
  EXPECT_NE(result.out.find("@page{size:215.900mm 279.400mm;margin:0}"), std::string::npos);
  EXPECT_EQ(TextsOf(result.out), (std::vector<std::string>{"0000000001", "DIVISÓRIA", "módulo AB001", "0000000001",
                                                           "0000000001", "DIVISÓRIA", "módulo AB001", "0000000001"}));
}

TEST(ExecutaHtmlUsage, RefusesASheetALabelAndACopyThatDoNotExist) {
  struct Case {
    std::vector<std::string> options;
    std::string message;
  };
  for (const Case& wrong : std::vector<Case>{
           {{"--folha", "a4-2x6"},
            "a folha \"a4-2x6\" não existe (quis dizer \"a4-2x4\"?); escolha entre a4-2x4, a4-2x7, a4-3x7, a4-3x8, "
            "a4-1x2, carta-2x5, carta-3x10, pimaco-6180, pimaco-a4262, pimaco-a4355, pimaco-a4356, pimaco-a4361, "
            "pimaco-a4364"},
           {{"--codigo", "code12"},
            "o código \"code12\" não existe (quis dizer \"code128\"?); escolha entre code128, qr, nenhum"},
           {{"--folha", "a4-2x4", "--primeira", "9"},
            "a primeira etiqueta vai de 1 a 8 na folha a4-2x4, e não pode ser 9"},
           {{"--primeira", "0"}, "a primeira etiqueta vai de 1 a 8 na folha a4-2x4, e não pode ser 0"},
           {{"--copias", "0"}, "as cópias vão de 1 a 1000, e não podem ser 0"},
           {{"--copias", "1001"}, "as cópias vão de 1 a 1000, e não podem ser 1001"},
       }) {
    std::vector<std::string> arguments = {"executa", "CCaixaRpt.EtiquetaAbertura", "--formato", "html", "--conexao",
                                          "DSN=x"};
    arguments.insert(arguments.end(), wrong.options.begin(), wrong.options.end());
    EXPECT_EQ(RunProgram(arguments), UsageFailure(wrong.message));
  }
}

}  // namespace
}  // namespace kodra::console
