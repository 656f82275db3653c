// kodrarpt etiquetas: which labels it prints, in which order, and what it says about those that it does not print.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "tests/console/label_run.h"
#include "tests/console/typed_input.h"
#include "tests/db/sample.h"
#include "tests/db/temporary_folder.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

using tests::Engine;
using values::ToUtf8;

// The number of each label, in their order: on a roll of this size, the text after the organisation and the kind.
Texts NumbersOf(const RunResult& result) {
  Texts numbers;
  for (const Texts& page : PagesOf(result.out)) numbers.push_back(page.at(1));
  return numbers;
}

TEST(Etiquetas, PrintsOneOpeningLabelPerModuleInTheOrderOfTheCodes) {
  const RunResult result = RunOnRoll({"abertura", "AA003", "AA00102", "AA001", "AA150", "AA003"});
  EXPECT_EQ(result.code, ExitCode::kOk);
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(
      PagesOf(result.out),
      (std::vector<Texts>{
          {"Acervo &amp; Cia", "AA003", "ABERTURA DE MÓDULO", "Módulo 3", "descarte após o fechamento", "AA003"},
          {"Acervo &amp; Cia", "AA00102", "ABERTURA DE MÓDULO", "Módulo 1", "descarte após o fechamento", "AA00102"},
          {"Acervo &amp; Cia", "AA001", "ABERTURA DE MÓDULO", "Módulo 1", "descarte após o fechamento", "AA001"},
          {"Acervo &amp; Cia", "AA150", "ABERTURA DE MÓDULO", "Módulo 150", "descarte após o fechamento", "AA150"},
          {"Acervo &amp; Cia", "AA003", "ABERTURA DE MÓDULO", "Módulo 3", "descarte após o fechamento", "AA003"},
      }));
}

TEST(Etiquetas, PrintsTwoHundredModulesInOneRun) {
  const RunResult result = RunOnRoll({"fechamento", "--de", "AA001", "--ate", "AA200"});
  EXPECT_EQ(result.code, ExitCode::kOk);
  EXPECT_EQ(result.err, "");
  const Texts numbers = NumbersOf(result);
  ASSERT_EQ(numbers.size(), 200U);
  for (int i = 0; i < 200; ++i)
    EXPECT_EQ(numbers[static_cast<std::size_t>(i)], "AA" + std::to_string(1001 + i).substr(1));
}

TEST(Etiquetas, FindsTheModulesOfARangeThatExist) {
  EXPECT_EQ(NumbersOf(RunOnRoll({"abertura", "--de", "AA199", "--ate", "BB000"})), (Texts{"AA199", "AA200"}));
  EXPECT_EQ(NumbersOf(RunOnRoll({"abertura", "--ate", "aa002"})), (Texts{"AA001", "AA002"}));
  EXPECT_EQ(NumbersOf(RunOnRoll({"abertura", "--de", "AA00102", "--ate", "AA99999"})), (Texts{"AA00102", "AA00201"}));
  EXPECT_EQ(NumbersOf(RunOnRoll({"abertura", "--CodDepto", "7"})), (Texts{"AA001", "AA002", "AA003"}));
  EXPECT_EQ(NumbersOf(RunOnRoll({"abertura", "--coddepto", "7", "--de", "AA003"})), Texts{"AA003"});
}

TEST(Etiquetas, ReadsCodesFromAList) {
  const tests::TemporaryFolder folder;
  const std::string list = (folder.Path() / "códigos.txt").string();
  std::ofstream(list, std::ios::binary) << "\xEF\xBB\xBF"
                                           "AA002\r\n\n  AA001  \rAA009";
  EXPECT_EQ(NumbersOf(RunOnRoll({"abertura", "AA005", "--lista", list, "--de", "AA200"})),
            (Texts{"AA005", "AA002", "AA001", "AA009", "AA200"}));
  const TypedInput input("AA007\nAA006\n");
  EXPECT_EQ(NumbersOf(RunOnRoll({"abertura", "--lista", "-"})), (Texts{"AA007", "AA006"}));
}

TEST(Etiquetas, PrintsADividerWithTheNumberOfEachDocument) {
  const RunResult result = RunOnRoll({"divisória", "AA00102", "--orgao", "Câmara"});
  EXPECT_EQ(result.code, ExitCode::kOk);
  EXPECT_EQ(PagesOf(result.out),
            (std::vector<Texts>{{"Câmara", "0000000001", "DIVISÓRIA", "módulo AA001", "0000000001"},
                                {"Câmara", "0000000002", "DIVISÓRIA", "módulo AA001", "0000000002"}}));
}

TEST(Etiquetas, PrintsAContainerWithItsModules) {
  const RunResult result = RunOnRoll({"contêiner", "CT1"});
  EXPECT_EQ(result.code, ExitCode::kOk);
  EXPECT_EQ(PagesOf(result.out), (std::vector<Texts>{{"Acervo &amp; Cia", "CT1", "ABERTURA DE CONTÊINER",
                                                      "Módulos: AA001, AA002", "descarte após o fechamento", "CT1"}}));
}

TEST(Etiquetas, AddsThePlaceOfAModuleAlsoToItsSubordinates) {
  const RunResult result = RunOnRoll({"subordinadas", "AA001", "--com-lugar"});
  EXPECT_EQ(result.code, ExitCode::kOk);
  EXPECT_EQ(PagesOf(result.out),
            (std::vector<Texts>{{"Acervo &amp; Cia", "AA00101", "FECHAMENTO DE MÓDULO", "Módulo 1",
                                 "documentos 1 a 5 · descarte após o fechamento · fileira D, estante 01,",
                                 "prateleira 4, depósito Galpão", "AA00101"},
                                {"Acervo &amp; Cia", "AA00102", "FECHAMENTO DE MÓDULO", "Módulo 1",
                                 "documentos desde 6 · descarte após o fechamento · fileira D, estante",
                                 "01, prateleira 4, depósito Galpão", "AA00102"}}));
}

// AA002 has a subordinate, which is not closed.
TEST(Etiquetas, NamesTheCodesWithoutALabelAfterThePrintedOnes) {
  const RunResult result = RunOnRoll({"subordinadas", "AA002", "AA001", "XX999"});
  EXPECT_EQ(result.code, ExitCode::kReportError);
  EXPECT_EQ(result.err, "kodrarpt: sem etiqueta: AA002, XX999; confira os códigos\n");
  EXPECT_EQ(NumbersOf(result), (Texts{"AA00101", "AA00102"}));
  EXPECT_EQ(RunOnRoll({"fechamento", "AA00101", "AA001"}).err, "kodrarpt: sem etiqueta: AA00101; confira os códigos\n");
}

TEST(Etiquetas, ShowsNoControlCharactersOfACode) {
  EXPECT_EQ(RunOnRoll({"abertura", "AA001", "XX\x1b[2J"}).err,
            "kodrarpt: sem etiqueta: XX\uFFFD[2J; confira os códigos\n");
}

TEST(Etiquetas, WarnsOfModulesInARangeThatHaveNoLabel) {
  const RunResult result = RunOnRoll({"divisoria", "--de", "AA001", "--ate", "AA003"});
  EXPECT_EQ(result.code, ExitCode::kOk);
  EXPECT_EQ(result.err, "kodrarpt: aviso: no intervalo, sem etiqueta: AA002, AA003\n");
  EXPECT_EQ(NumbersOf(result), (Texts{"0000000001", "0000000002"}));
}

TEST(Etiquetas, WritesNoFileWithoutALabel) {
  const tests::TemporaryFolder folder;
  const std::string file = (folder.Path() / "e.pdf").string();
  EXPECT_EQ(RunLabels(LabelArchive(), {"conteiner", "CT2", "--saida", file}),
            (RunResult{ExitCode::kReportError, "",
                       "kodrarpt: sem etiqueta: CT2; confira os códigos\nkodrarpt: nenhuma etiqueta para imprimir\n"}));
  EXPECT_EQ(RunLabels(LabelArchive(), {"abertura", "--de", "ZZ001", "--saida", file}),
            (RunResult{ExitCode::kReportError, "", "kodrarpt: nenhuma etiqueta para imprimir: confira o intervalo\n"}));
  EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
}

TEST(Etiquetas, SaysThatTheDatabaseCannotBeReached) {
  EXPECT_EQ(RunLabels("Driver={SQLite3};Database=/não/há/acervo.db", {"abertura", "AA001", "--formato", "html"}).code,
            ExitCode::kConnection);
}

class EtiquetasOnBothDatabases : public testing::TestWithParam<Engine> {};

INSTANTIATE_TEST_SUITE_P(, EtiquetasOnBothDatabases, testing::Values(Engine::kSqlite, Engine::kMariaDb),
                         tests::EngineName);

TEST_P(EtiquetasOnBothDatabases, PrintsEachKindOfLabel) {
  const std::string organisation = "Memória &amp; Arquivo – Guarda de Documentos Ltda.";
  const auto pages = [&](std::vector<std::string> arguments) {
    arguments.insert(arguments.end(), {"--formato", "html", "--folha", "100x70mm"});
    return PagesOf(RunLabels(ToUtf8(tests::SampleOn(GetParam())), arguments).out);
  };
  EXPECT_EQ(pages({"abertura", "AA001"}),
            (std::vector<Texts>{{organisation, "ABERTURA DE MÓDULO", "AA001", "Arquivo Central – módulo 1",
                                 "guarda por prazo, 75 anos", "AA001"}}));
  EXPECT_EQ(pages({"fechamento", "AA002"}),
            (std::vector<Texts>{{organisation, "FECHAMENTO DE MÓDULO", "AA002", "Assessoria Jurídica – módulo 2",
                                 "documentos 0000000021 a 0000000040 · descarte após o", "fechamento", "AA002"}}));
  EXPECT_EQ(pages({"subordinadas", "AA001"}).at(0).at(2), "AA00101");
  EXPECT_EQ(pages({"divisoria", "AA001"}).at(1),
            (Texts{organisation, "DIVISÓRIA", "0000000002", "módulo AA001", "0000000002"}));
  EXPECT_EQ(pages({"conteiner", "CT0005"}).at(0).at(2), "CT0005");
}

}  // namespace
}  // namespace kodra::console
