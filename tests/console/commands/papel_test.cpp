// kodrarpt papel: papers from real rows, and what is refused.
#include <gtest/gtest.h>

#include "tests/console/pdf.h"
#include "tests/console/run.h"
#include "tests/console/small_archive.h"
#include "tests/db/sample.h"
#include "tests/db/temporary_folder.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

using tests::Engine;

class Papel : public testing::TestWithParam<Engine> {
 protected:
  RunResult Print(const std::string& paper, std::vector<std::string> arguments = {}) {
    arguments.insert(arguments.begin(), {"papel", paper, "--saida", target_.string(), "--conexao",
                                         values::ToUtf8(tests::SampleOn(GetParam()))});
    return RunProgram(arguments);
  }

  tests::TemporaryFolder folder_;
  std::filesystem::path target_ = folder_ / "papel.pdf";
};

INSTANTIATE_TEST_SUITE_P(, Papel, testing::Values(Engine::kSqlite, Engine::kMariaDb), tests::EngineName);

TEST_P(Papel, PrintsBothCopiesOfASlipOnOneSheet) {
  EXPECT_EQ(Print("retirada", {"--CodSolicit", "1", "--orgao", "Arquivo Público"}), Success(""));
  const std::string text = tests::TextOfPdf(target_);
  for (const char* const words :
       {"1ª via: fica no arquivo", "2ª via: acompanha os originais", "Solicitação: 1\n", "no módulo de guarda",
        "Entregue por", "Recebido por", "Devolvido em", "Arquivo Público", "Página 1 de 1\n"})
    EXPECT_NE(text.find(words), text.npos) << words << "\n" << text;
}

TEST_P(Papel, PrintsTheDocumentsOfAModule) {
  EXPECT_EQ(Print("modulo", {"--Modulo1", "AA001"}), Success(""));
  EXPECT_NE(tests::TextOfPdf(target_).find("Módulo AA001\n"), std::string::npos);
  EXPECT_EQ(Print("descarte", {"--Modulo1", "AA001"}), Success(""));
  const std::string text = tests::TextOfPdf(target_);
  for (const char* const words :
       {"Autorização de descarte do módulo AA001\n", " documentos, ", " páginas\n", "Autorizado por"})
    EXPECT_NE(text.find(words), text.npos) << words << "\n" << text;
}

TEST_P(Papel, WritesHtmlToTheStandardOutput) {
  const RunResult result = RunProgram({"papel", "modulo", "--formato", "HTML", "--Modulo1", "AA001", "--conexao",
                                       values::ToUtf8(tests::SampleOn(GetParam()))});
  EXPECT_EQ(result.code, ExitCode::kOk);
  EXPECT_EQ(result.err, "");
  EXPECT_NE(result.out.find("<h1>Módulo AA001</h1>"), std::string::npos);
  EXPECT_TRUE(result.out.ends_with("</html>\n"));
}

TEST_P(Papel, LeavesNoFileOfAModuleThatDoesNotExist) {
  EXPECT_EQ(Print("modulo", {"--Modulo1", "ZZ999"}),
            UsageFailure("nenhum módulo tem o código \"ZZ999\"; confira Modulo1"));
  EXPECT_TRUE(std::filesystem::is_empty(folder_.Path()));
}

// A date has no text on SQLite, where the report fails.
TEST(PapelOnMariaDb, ListsTheOriginalsThatAreOut) {
  const tests::TemporaryFolder folder;
  const auto target = folder / "originais.pdf";
  EXPECT_EQ(RunProgram({"papel", "originais", "--ListarJaDevolvidos", "sim", "--saida", target.string(), "--conexao",
                        values::ToUtf8(tests::SampleOn(Engine::kMariaDb))}),
            Success(""));
  const std::string text = tests::TextOfPdf(target);
  for (const char* const words : {"Originais retirados e devolvidos\n", "Vencidos (", "VENCIDO em ",
                                  "Fora do arquivo (", "Devolvidos (", " registros\n"})
    EXPECT_NE(text.find(words), text.npos) << words << "\n" << text;
}

TEST(PapelUsage, NamesWhatIsMissingOrUnknown) {
  const auto papel = [](std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "papel");
    arguments.insert(arguments.end(), {"--conexao", "DSN=D"});
    return RunProgram(arguments);
  };
  EXPECT_EQ(papel({"recibo"}),
            UsageFailure("o papel \"recibo\" não existe; escolha entre retirada, originais, descarte, modulo"));
  EXPECT_EQ(papel({"retirada", "--saida", "x.pdf"}), UsageFailure("o papel retirada precisa do parâmetro CodSolicit"));
  EXPECT_EQ(papel({"modulo", "--Modulo1", "AA001"}), UsageFailure("o formato pdf precisa de --saida"));
  EXPECT_EQ(papel({"modulo", "--Modulo1", "AA001", "--formato", "pfd", "--saida", "x"}),
            UsageFailure("o formato \"pfd\" não existe (quis dizer \"pdf\"?); escolha entre pdf, html"));
  EXPECT_EQ(papel({"modulo", "--Modulo1", "AA001", "--CodSolicit", "1", "--saida", "x"}),
            UsageFailure("CCaixaRpt.DocsNoModulo não tem o parâmetro \"CodSolicit\"; os parâmetros são Owner, Modulo1, "
                         "Modulo2, Modulo3, Ordenacao, SomenteExistentes, Tipo, CodDepto, CodSerie, ModoPregresso"));
  EXPECT_EQ(papel({"retirada", "--CodSolicit", "1", "--ListarJaDevolvidos", "sim", "--saida", "x"}),
            UsageFailure("CSolicitacaoRpt.RelatorioRetiradaOriginal não lê o parâmetro \"ListarJaDevolvidos\"; só lê "
                         "CodSolicit"));
  EXPECT_EQ(papel({"modulo", "--Modulo1", "AA001", "--logotipo", "/", "--saida", "x"}),
            FileFailure("não foi possível ler \"/\": é uma pasta; informe um arquivo"));
}

}  // namespace
}  // namespace kodra::console
