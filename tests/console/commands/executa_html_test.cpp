// kodrarpt executa --formato html on both databases: the page of a report, and how the sheet of labels is
// chosen.
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
  static Ran RunReport(const std::string& report, std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"executa", report, "--formato", "html", "--conexao",
                                         values::ToUtf8(tests::SmallArchiveOn(GetParam()))});
    return RunOf(arguments);
  }

  // The texts of a page's body, one after the other, without its drawings.
  static std::vector<std::string> TextsOf(const std::string& page) {
    std::string body = page.substr(page.find("<body>"));
    body = std::regex_replace(body, std::regex("<svg[^]*?</svg>"), "");
    std::vector<std::string> texts;
    const std::regex between(">([^<>]*[^<>\\s][^<>]*)<");
    for (std::sregex_iterator at(body.begin(), body.end(), between), end; at != end; ++at) texts.push_back((*at)[1]);
    return texts;
  }
};

INSTANTIATE_TEST_SUITE_P(, ExecutaHtml, testing::Values(Engine::kSqlite, Engine::kMariaDb), tests::EngineName);

TEST_P(ExecutaHtml, PrintsAListingAsPeopleReadIt) {
  const Ran ran = RunReport("CDocumentoRpt.RelatorioSintetico", {"--CodDepto", "1"});
  EXPECT_EQ(ran.code, ExitCode::kOk);
  EXPECT_EQ(TextsOf(ran.out), (std::vector<std::string>{
                                  "Documentos: relatório sintético", "CodDepto: 1", "Documento", "Suporte", "Módulo",
                                  "Mídia", "Armazenamento", "Vencimento", "Frente", "Verso", "0000000001", "Papel",
                                  "AB001", "31/12/2023 10:20:30", "31/12/2028", "1200", "3", "1 registro"}));
}

// The modules of each container come from the report within the label's.
TEST_P(ExecutaHtml, ListsTheModulesOfAContainerOnItsLabel) {
  const Ran ran = RunReport("CContainerRpt.EtiquetaAbertura", {"--Container1", "C1", "--Container2", "C2"});
  EXPECT_EQ(ran.code, ExitCode::kOk);
  EXPECT_EQ(TextsOf(ran.out),
            (std::vector<std::string>{"ABERTURA DE CONTAINER", "Acervo &amp; Cia", "C1", "Módulos: AB001",
                                      "guarda por prazo, até 31/01/2030", "ABERTURA DE CONTAINER", "Acervo &amp; Cia",
                                      "C2", "Módulos: AB002", "guarda por prazo, até 31/01/2031"}));
}

TEST_P(ExecutaHtml, PutsLabelsOnTheChosenSheet) {
  const Ran ran = RunReport("CCaixaRpt.EtiquetaDivisoria",
                            {"--Modulo1", "AB001", "--folha", "Carta-2x5", "--primeira", "10", "--copias", "2"});
  EXPECT_EQ(ran.code, ExitCode::kOk);
  EXPECT_NE(ran.out.find("@page{size:215.9mm 279.4mm;margin:0}"), std::string::npos);
  EXPECT_EQ(TextsOf(ran.out), (std::vector<std::string>{"DIVISÓRIA", "0000000001", "módulo AB001", "DIVISÓRIA",
                                                        "0000000001", "módulo AB001"}));
}

TEST(ExecutaHtmlUse, RefusesWhatNoSheetHas) {
  const auto run = [](std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"executa", "CCaixaRpt.EtiquetaAbertura", "--conexao", "DSN=x"});
    return RunOf(arguments);
  };
  EXPECT_EQ(run({"--folha", "a4-2x6"}),
            Misused("não há a folha \"a4-2x6\" (quis dizer \"a4-2x4\"?); há a4-2x4, a4-2x7, a4-3x7, a4-3x8, a4-1x2, "
                    "carta-2x5, carta-3x10"));
  EXPECT_EQ(run({"--folha", "a4-2x4", "--primeira", "9"}),
            Misused("a folha a4-2x4 tem as etiquetas 1 a 8: --primeira 9 não há"));
  EXPECT_EQ(run({"--primeira", "0"}), Misused("a folha a4-2x4 tem as etiquetas 1 a 8: --primeira 0 não há"));
  EXPECT_EQ(run({"--copias", "0"}), Misused("--copias vai de 1 a 1000: 0 não"));
  EXPECT_EQ(run({"--copias", "1001"}), Misused("--copias vai de 1 a 1000: 1001 não"));
}

}  // namespace
}  // namespace kodra::console
