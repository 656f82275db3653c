// The completion of kodrarpt in bash, and its manual page.
#include "tools/reference/command_line.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <fstream>
#include <iostream>

#include "console/commands/commands.h"
#include "tests/db/temporary_folder.h"

namespace kodra::console::reference {
namespace {

using Words = std::vector<std::string>;

TEST(ValuesInTest, AreThoseThatADescriptionLists) {
  EXPECT_EQ(ValuesIn("tabela, csv, json (sem esta opção, tabela)"), (Words{"tabela", "csv", "json"}));
  EXPECT_EQ(ValuesIn("sempre, nunca ou auto"), (Words{"sempre", "nunca", "auto"}));
  EXPECT_EQ(ValuesIn("html: a folha (papel-linhas): a4-2x4, carta-2x5 (sem esta opção, a4-2x4)"),
            (Words{"a4-2x4", "carta-2x5"}));
}

TEST(ValuesInTest, AreNoneInOtherDescriptions) {
  EXPECT_EQ(ValuesIn("O arquivo a gravar (sem esta opção, a saída padrão)"), Words());
  EXPECT_EQ(ValuesIn("csv: o que separa as colunas, como ; ou tab"), Words());
  EXPECT_EQ(ValuesIn("json: um objeto por linha, sem a lista em volta"), Words());
  EXPECT_EQ(ValuesIn("html"), Words());
}

class CommandLineTest : public testing::Test {
 protected:
  CommandLineTest() : program_(std::cout, std::cerr) { AddCommands(program_); }

  // What bash offers for the last word of a command line.
  std::string Offered(const std::string& line) const {
    const std::string file = (folder_ / "completa.bash").string();
    std::ofstream(file) << BashCompletion(program_) << "COMP_WORDS=(" << line << ")\n"
                        << "COMP_CWORD=$((${#COMP_WORDS[@]} - 1))\n_kodrarpt\necho \"${COMPREPLY[@]}\"\n";
    std::FILE* const output = popen(("bash " + file + " 2>&1").c_str(), "r");
    std::string text;
    std::array<char, 4096> buffer;
    for (std::size_t size = 0; (size = std::fread(buffer.data(), 1, buffer.size(), output)) != 0;)
      text.append(buffer.data(), size);
    EXPECT_EQ(pclose(output), 0);
    return text;
  }

  tests::TemporaryFolder folder_;
  Program program_;
};

TEST_F(CommandLineTest, CompletesTheCommand) {
  EXPECT_EQ(Offered("kodrarpt des"), "descreve\n");
  EXPECT_EQ(Offered("kodrarpt --v"), "--version\n");
}

TEST_F(CommandLineTest, CompletesTheReport) {
  EXPECT_EQ(Offered("kodrarpt executa CDocumentoRpt.RelatorioA"), "CDocumentoRpt.RelatorioAnalitico\n");
  EXPECT_EQ(Offered("kodrarpt lista CDoc"), "\n");
}

TEST_F(CommandLineTest, CompletesOptionsAndTheParametersOfTheReportsClass) {
  EXPECT_EQ(Offered("kodrarpt executa CModeloRpt.RelatorioModelos --s"), "--senha-de --saida --separador\n");
  EXPECT_EQ(Offered("kodrarpt executa CModeloRpt.RelatorioModelos --C"), "--CodModelo\n");
  EXPECT_EQ(Offered("kodrarpt verifica CModeloRpt.RelatorioModelos --C"), "\n");
}

TEST_F(CommandLineTest, CompletesTheValueOfAnOption) {
  EXPECT_EQ(Offered("kodrarpt executa CDeptoRpt --formato x"), "xlsx\n");
  EXPECT_EQ(Offered("kodrarpt sql CDeptoRpt --banco o"), "oracle\n");
  EXPECT_EQ(Offered("kodrarpt etiquetas sub"), "subordinadas\n");
  EXPECT_EQ(Offered("kodrarpt executa CDeptoRpt --conexao ''"), "\n");
  EXPECT_EQ(Offered("kodrarpt executa CDocumentoRpt --CodDepto C"), "\n");
}

TEST_F(CommandLineTest, CompletesTheNameOfAFileAfterAnOptionThatTakesOne) {
  const std::string file = (folder_ / "deptos.csv").string();
  std::ofstream(file) << "x";
  EXPECT_EQ(Offered("kodrarpt executa CDeptoRpt --saida " + file.substr(0, file.size() - 2)), file + "\n");
}

TEST_F(CommandLineTest, CompletesTheNameOfAFileForACommandThatReadsOne) {
  const std::string file = (folder_ / "mensal.ini").string();
  std::ofstream(file) << "x";
  EXPECT_EQ(Offered("kodrarpt rotina " + file.substr(0, file.size() - 2)), file + "\n");
  EXPECT_EQ(Offered("kodrarpt rotina --ag"), "--agendar\n");
}

TEST_F(CommandLineTest, CompletesTheUsersProfiles) {
  std::filesystem::create_directory(folder_ / "kodrarpt");
  std::ofstream(folder_ / "kodrarpt/perfis.ini") << "; [não]\n[acervo]\nconexao = DSN=A[x]\n [outro]\n";
  setenv("XDG_CONFIG_HOME", folder_.Path().c_str(), 1);
  EXPECT_EQ(Offered("kodrarpt executa CDeptoRpt --perfil a"), "acervo\n");
  EXPECT_EQ(Offered("kodrarpt perfil testa ''"), "acervo outro\n");
  EXPECT_EQ(Offered("kodrarpt perfil remove o"), "outro\n");
  unsetenv("XDG_CONFIG_HOME");
  EXPECT_EQ(Offered("kodrarpt perfil n"), "novo\n");
}

TEST_F(CommandLineTest, DescribesEachCommandOnTheManualPage) {
  const std::string page = ManPage(program_);
  EXPECT_TRUE(page.starts_with(".\\\" Feita por ./kodra reference.\n.TH KODRARPT 1 \"\" \"KodraRpt "));
  EXPECT_NE(page.find("\n.SS verifica\n"), std::string::npos);
  EXPECT_NE(page.find(".TP\n"
                      "\\fB\\-\\-saida\\fR \\fIARQUIVO\\fR\n"
                      "O arquivo a gravar (sem esta opção, a saída padrão).\n"),
            std::string::npos);
  EXPECT_NE(page.find("\n  3  não foi possível conectar ao banco de dados\n"), std::string::npos);
}

// A report's parameters are one entry, and the line that an example continues ends with a backslash.
TEST_F(CommandLineTest, WritesAnExampleOnTheManualPageAsItIsTyped) {
  const std::string page = ManPage(program_);
  EXPECT_EQ(page.find("CodSerie"), std::string::npos);
  EXPECT_NE(page.find("\\-\\-bonito \\e\n    \\-\\-DataArmazenamento1"), std::string::npos);
}

}  // namespace
}  // namespace kodra::console::reference
