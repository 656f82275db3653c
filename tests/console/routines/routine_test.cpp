#include "console/routines/routine.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iostream>

#include "tests/console/failing.h"
#include "tests/db/temporary_folder.h"
#include "values/dates.h"
#include "values/utf8.h"

namespace kodra::console::routines {
namespace {

using values::ToUtf8;

class RoutineTest : public testing::Test {
 protected:
  RoutineTest() : program_(std::cout, std::cerr) {
    surroundings_.usualProfile = "acervo";
    surroundings_.today = values::DayNumber({2024, 2, 29});
  }

  Routine Read(const std::string& text) {
    std::ofstream(folder_ / "a.ini") << text;
    return ReadRoutine(program_, folder_ / "a.ini", surroundings_);
  }
  std::vector<std::string> Problems(const std::string& text) { return Read(text).problems; }
  // The only problem of a section with these lines.
  std::string Problem(const std::string& lines) {
    const std::vector<std::string> problems = Problems("[x]\n" + lines);
    EXPECT_EQ(problems.size(), 1U) << lines;
    return problems.empty() ? "" : problems.front();
  }
  // The file of an output, below the folder of the routine.
  std::string FileOf(const std::string& text) {
    const Routine routine = Read(text);
    EXPECT_EQ(routine.problems, std::vector<std::string>());
    return routine.outputs.empty() ? "" : routine.outputs.front()->file.lexically_relative(folder_.Path()).string();
  }
  // The parameters of the only output, as "name=value;".
  std::string Parameters(const std::string& lines) {
    const Routine routine = Read("[x]\n" + lines);
    EXPECT_EQ(routine.problems, std::vector<std::string>());
    std::string text;
    if (routine.outputs.empty()) return text;
    for (const auto& [name, value] : routine.outputs.front()->options.parameters.Given())
      text += ToUtf8(name) + "=" + ToUtf8(value) + ";";
    return text;
  }

  tests::TemporaryFolder folder_;
  Program program_;
  RoutineSurroundings surroundings_;
};

TEST_F(RoutineTest, HasAnOutputForEachSection) {
  const Routine routine = Read(
      "[Rotina]\nperfil = geral\n"
      "[documentos]\nrelatorio = relatoriosintetico\nArquivo = a.csv\ncodDepto = 7\nexcel = sim\nbom = não\n"
      "[deptos]\nrelatorio = CDeptoRpt\narquivo = b.json\nperfil = outro\njson-linhas = sim\n");
  EXPECT_EQ(routine.problems, std::vector<std::string>());
  ASSERT_EQ(routine.outputs.size(), 2U);
  const RoutineOutput& first = *routine.outputs[0];
  EXPECT_EQ(first.name, "documentos");
  EXPECT_EQ(first.profile, "geral");
  EXPECT_EQ(first.file, folder_ / "a.csv");
  EXPECT_EQ(first.options.report, "relatoriosintetico");
  EXPECT_EQ(first.options.output.Target(), values::FromUtf8((folder_ / "a.csv").string()));
  EXPECT_EQ(first.options.output.ForFormats().csv.separator, ';');
  EXPECT_EQ(routine.outputs[1]->profile, "outro");
  EXPECT_EQ(routine.outputs[1]->options.output.ChosenFormat(), Format::kJson);
  EXPECT_FALSE(routine.usesUsualProfile);
}

TEST_F(RoutineTest, TakesTheProfileOfTheCommandLineBeforeThoseOfTheFile) {
  constexpr const char* kText = "[rotina]\nperfil = a\n[x]\nrelatorio = CDeptoRpt\narquivo = a.csv\nperfil = b\n";
  EXPECT_EQ(Read(kText).outputs.front()->profile, "b");
  surroundings_.chosenProfile = "c";
  EXPECT_EQ(Read(kText).outputs.front()->profile, "c");
  surroundings_ = {.hasConnection = true, .today = surroundings_.today};
  EXPECT_EQ(Read(kText).outputs.front()->profile, "");
}

TEST_F(RoutineTest, TakesTheUsualProfileWhereNothingNamesOne) {
  const Routine routine = Read("[x]\nrelatorio = CDeptoRpt\narquivo = a.csv\n");
  EXPECT_EQ(routine.outputs.front()->profile, "acervo");
  EXPECT_TRUE(routine.usesUsualProfile);
  surroundings_.usualProfile.clear();
  EXPECT_EQ(Problem("relatorio = CDeptoRpt\narquivo = a.csv\n"),
            "[x] falta o perfil, aqui, em [rotina] ou com --perfil");
}

TEST_F(RoutineTest, FillsTheNamesOfFilesAndFolders) {
  EXPECT_EQ(FileOf("[rotina]\npasta = {ano}/{mes}\n[docs: novos]\nrelatorio = CDeptoRpt\n"
                   "arquivo = {data}-{dia}-{saida}-{relatorio}-{perfil}.csv\n"),
            "2024/02/2024-02-29-29-docs- novos-CDeptoRpt.RelatorioDeptos-acervo.csv");
  EXPECT_EQ(FileOf("[x]\nrelatorio = RelatorioSintetico\nperiodo = mês passado\narquivo = ../{periodo}.csv\n"),
            "../2024-01.csv");
  surroundings_.hasConnection = true;
  EXPECT_EQ(Problem("relatorio = CDeptoRpt\narquivo = {perfil}.csv\n"),
            "[x] {perfil} não existe aqui; há {ano}, {data}, {dia}, {mes}, {relatorio}, {saida}");
}

TEST_F(RoutineTest, KeepsAnAbsolutePath) {
  const Routine routine = Read(
      "[rotina]\npasta = saidas\n[x]\nrelatorio = CDeptoRpt\narquivo = /tmp/a.csv\n[y]\nrelatorio = CDeptoRpt\n"
      "arquivo = b.csv\n");
  ASSERT_EQ(routine.outputs.size(), 2U);
  EXPECT_EQ(routine.outputs[0]->file, "/tmp/a.csv");
  EXPECT_EQ(routine.outputs[1]->file, folder_ / "saidas/b.csv");
}

TEST_F(RoutineTest, CountsDatesFromToday) {
  constexpr const char* kReport = "relatorio = RelatorioSintetico\narquivo = a.csv\n";
  EXPECT_EQ(Parameters(std::string(kReport) + "periodo = ano passado\n"),
            "DataArmazenamento1=2023-01-01;DataArmazenamento2=2023-12-31;");
  EXPECT_EQ(Parameters(std::string(kReport) + "DataArmazenamento1 = início do mês\nDataArmazenamento2 = 31/12/2024\n"),
            "DataArmazenamento1=2024-02-01;DataArmazenamento2=31/12/2024;");
}

TEST_F(RoutineTest, LimitsTheTimeOfEachOutput) {
  const Routine routine = Read(
      "[rotina]\ntempo-limite = 60\n[x]\nrelatorio = CDeptoRpt\narquivo = a.csv\n"
      "[y]\nrelatorio = CDeptoRpt\narquivo = b.csv\ntempo-limite = 5\n");
  ASSERT_EQ(routine.outputs.size(), 2U);
  EXPECT_EQ(routine.outputs[0]->options.timeLimit.Get(), std::chrono::seconds(60));
  EXPECT_EQ(routine.outputs[1]->options.timeLimit.Get(), std::chrono::seconds(5));
}

TEST_F(RoutineTest, NamesEveryProblem) {
  EXPECT_EQ(Problems("fora = 1\n"
                     "[rotina]\nperfl = a\n"
                     "[a]\nrelatorio = CDeptoRp\narquivo = {x}.csv\nexcell = sim\n"
                     "[b]\narquivo = b.csv\n"
                     "[c]\nrelatorio = CDeptoRpt\narquivo = c.csv\nformatoo = csv\ntitulos = talvez\n"
                     "[d]\nrelatorio = CDeptoRpt\narquivo =\n"),
            (std::vector<std::string>{
                "[rotina] perfl não existe aqui (quis dizer \"perfil\"?); há perfil, pasta e tempo-limite",
                "há linhas antes da primeira seção",
                "[a] o relatório \"CDeptoRp\" não existe (quis dizer \"CDeptoRpt\"?); \"kodrarpt lista\" mostra todos",
                "[a] {x} não existe aqui; há {ano}, {data}, {dia}, {mes}, {perfil}, {relatorio}, {saida}",
                "[a] excell não existe aqui (quis dizer \"excel\"?)",
                "[b] falta relatorio",
                "[c] formatoo não existe aqui (quis dizer \"formato\"?)",
                "[c] titulos deve ser sim ou não",
                "[d] arquivo não tem valor",
            }));
}

TEST_F(RoutineTest, RefusesWhatAnOutputCannotHave) {
  struct Case {
    std::string lines, problem;
  };
  constexpr const char* kDocuments = "relatorio = RelatorioSintetico\narquivo = a.csv\n";
  for (const Case& wrong : std::vector<Case>{
           {"relatorio = CDeptoRpt\narquivo = a.csv\nARQUIVO = b.csv\n",
            "[x] arquivo aparece mais de uma vez: deixe só uma"},
           {"relatorio = CDeptoRpt\narquivo = a.csv\nsaida = b.csv\n", "[x] saida não existe aqui"},
           {"relatorio = CDeptoRpt\narquivo = a.csv\nprogresso = nunca\n", "[x] progresso não existe aqui"},
           {"relatorio = CDeptoRpt\narquivo = a.csv\nhelp = sim\n", "[x] help não existe aqui"},
           {"relatorio = CDeptoRpt\narquivo = a.csv\nconexao = DSN=A\n", "[x] conexao não existe aqui"},
           {"relatorio = CDeptoRpt\narquivo = a.csv\nlimite = muitas\n",
            "[x] o valor de --limite não é um número inteiro, ou é grande demais"},
           {"relatorio = CDeptoRpt\narquivo = a.csv\ntitulos = sim\n", "[x] --titulos só vale com o formato xlsx"},
           {"relatorio = CDeptoRpt\narquivo = a.csv\nperiodo = ontem\n",
            "[x] CDeptoRpt.RelatorioDeptos não tem período"},
           {kDocuments + std::string("periodo = ontem\nDataArmazenamento2 = hoje\n"),
            "[x] periodo e DataArmazenamento2 não podem ser usados juntos"},
           {kDocuments + std::string("periodo = maio\n"),
            "[x] periodo não pode ser \"maio\"; há hoje, ontem, últimos 7 dias, esta semana, semana passada, e o mesmo "
            "com mês, trimestre, semestre e ano"},
           {kDocuments + std::string("DataArmazenamento1 = anteontem\n"),
            "[x] DataArmazenamento1 não pode ser \"anteontem\"; há hoje, ontem, há 7 dias, início do mês, fim do mês "
            "passado, ou uma data como 01/02/2024"},
           {kDocuments + std::string("DataArmazenamento1 = 31/02/2024\n"),
            "[x] DataArmazenamento1: \"31/02/2024\" não é uma data (escreva 01/02/2024 ou 2024-02-01)"},
       })
    EXPECT_EQ(Problem(wrong.lines), wrong.problem);
}

TEST_F(RoutineTest, WritesEachFileOnce) {
  EXPECT_EQ(Problems("[x]\nrelatorio = CDeptoRpt\narquivo = a.csv\n[y]\nrelatorio = CSuporteRpt\narquivo = ./a.csv\n"),
            std::vector<std::string>{"[y] outra saída já grava \"" + (folder_ / "a.csv").string() + "\""});
}

TEST_F(RoutineTest, NeedsAnOutput) {
  EXPECT_EQ(Problems("[rotina]\nperfil = a\n"),
            std::vector<std::string>{"não há nenhuma saída: falta uma seção, como [documentos]"});
}

TEST_F(RoutineTest, FindsALogoBesideItsFile) {
  EXPECT_EQ(Problem("relatorio = CDeptoRpt\narquivo = a.html\nlogotipo = logo.png\n"),
            "[x] não foi possível ler \"" + (folder_ / "logo.png").string() + "\": o arquivo não existe");
}

TEST_F(RoutineTest, IsRefusedAsAWholeWithoutAFile) {
  EXPECT_EQ(FailureOf([this] { ReadRoutine(program_, folder_ / "b.ini", surroundings_); }),
            "não foi possível ler \"" + (folder_ / "b.ini").string() + "\": o arquivo não existe");
}

}  // namespace
}  // namespace kodra::console::routines
