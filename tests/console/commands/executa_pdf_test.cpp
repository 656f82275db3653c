// kodrarpt executa --formato pdf: the pages of a report, and what is refused.
#include <gtest/gtest.h>

#include <fstream>

#include "console/command_line/usage_error.h"
#include "console/formats/pages/pdf_writer.h"
#include "tests/console/pdf.h"
#include "tests/console/run.h"
#include "tests/console/small_archive.h"
#include "tests/db/temporary_folder.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

class ExecutaPdf : public testing::Test {
 protected:
  RunResult RunReport(const std::string& report, std::vector<std::string> arguments = {}) {
    arguments.insert(arguments.begin(), {"executa", report, "--formato", "pdf", "--saida", target_.string(),
                                         "--conexao", values::ToUtf8(tests::SmallArchiveOn(tests::Engine::kSqlite))});
    return RunProgram(arguments);
  }
  bool WroteNothing() const { return std::filesystem::is_empty(folder_.Path()); }
  // A file beside the target that is no part of the test's answer.
  std::string OtherFile(const std::string& content) const {
    const auto path = other_.Path() / "logotipo.png";
    std::ofstream(path, std::ios::binary) << content;
    return path.string();
  }

  tests::TemporaryFolder folder_, other_;
  std::filesystem::path target_ = folder_.Path() / "relatório.pdf";
};

TEST_F(ExecutaPdf, PrintsAListing) {
  EXPECT_EQ(RunReport("CDeptoRpt", {"--orgao", "Arquivo Público"}), Success(""));
  const std::string text = tests::TextOfPdf(target_);
  for (const char* const words :
       {"Arquivo Público\n", "\nDepartamentos\n", "Departamento   ", "Correio eletrônico\n", "Jurídico",
        "Rua \"A\", 10", "fin@acervo.br\n", "2 registros\n", "Departamentos · emitido em ", "Página 1 de 1\n"})
    EXPECT_NE(text.find(words), text.npos) << words << "\n" << text;
  EXPECT_NE(tests::AnswerOf("pdfinfo", target_).find("(A4)"), std::string::npos);
}

TEST_F(ExecutaPdf, WritesLabelsOnTheirStock) {
  EXPECT_EQ(
      RunReport("CCaixaRpt.EtiquetaDivisoria", {"--Modulo1", "AB001", "--folha", "100x50mm", "--orgao", "Câmara"}),
      Success(""));
  EXPECT_EQ(tests::TextOfPdf(target_),
            "Câmara\n\n0000000001                  DIVISÓRIA\nmódulo AB001\n\n\n\n\n               0000000001\n\f");
  EXPECT_NE(tests::AnswerOf("pdfinfo", target_).find("283.465 x 141.732 pts"), std::string::npos);
}

TEST_F(ExecutaPdf, NeedsAFile) {
  EXPECT_EQ(RunProgram({"executa", "CDeptoRpt", "--conexao", "DSN=D", "--formato", "pdf"}),
            UsageFailure("o formato pdf precisa de --saida"));
}

TEST_F(ExecutaPdf, LeavesNoFileBehindWhenItRefuses) {
  const std::string logo = OtherFile("GIF89a");
  EXPECT_EQ(RunReport("CDeptoRpt", {"--logotipo", logo}),
            UsageFailure("a imagem \"" + logo + "\" não serve: não é um arquivo PNG"));
  EXPECT_EQ(RunReport("CDeptoRpt", {"--logotipo", logo + "x"}),
            FileFailure("não foi possível ler \"" + logo + "x\": o arquivo não existe"));
  EXPECT_TRUE(WroteNothing());
}

TEST(PdfWriter, RefusesMoreRowsThanItTakes) {
  TextOutput output;
  pages::PdfWriter writer(output, {});
  writer.Begin({L"CSuporteRpt", L"RelatorioSuportes", L"", {}}, std::vector<Column>{{L"DESCR_SUPORTE"}});
  const std::vector<Value> row = {Value()};
  for (std::uint64_t i = 0; i < pages::kMostPdfRows; ++i) writer.Row(row);
  try {
    writer.Row(row);
    FAIL() << "nothing was raised";
  } catch (const UsageError& error) {
    EXPECT_STREQ(error.what(), "um pdf comporta até 100.000 linhas; escolha menos linhas, ou o formato csv ou xlsx");
  }
  EXPECT_EQ(output.Text(), "");
}

}  // namespace
}  // namespace kodra::console
