#include "console/run/output_options.h"

#include <gtest/gtest.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <limits>

#include "tests/console/failing.h"

namespace kodra::console {
namespace {

// The options of a command line.
class Given {
 public:
  explicit Given(std::vector<std::string> arguments) {
    options_.AddTo(command_);
    std::ranges::reverse(arguments);  // CLI11 takes them in reverse order
    command_.parse(std::move(arguments));
  }
  const OutputOptions& Options() const { return options_; }

  // The message of the refusal; empty if nothing is refused.
  std::string Refusal() const {
    return RefusalOf([&] {
      options_.ChosenFormat();
      options_.ForFormats();
      options_.MostRows();
    });
  }

 private:
  CLI::App command_;
  OutputOptions options_;
};

Format FormatFor(const std::vector<std::string>& arguments) { return Given(arguments).Options().ChosenFormat(); }

TEST(OutputOptions, TakeTheFormatFromTheEndingOfTheFile) {
  EXPECT_EQ(FormatFor({"--saida", "a.csv"}), Format::kCsv);
  EXPECT_EQ(FormatFor({"--saida", "A.JSON"}), Format::kJson);
  EXPECT_EQ(FormatFor({"--saida", "pasta.csv/relatório.Xlsx"}), Format::kXlsx);
  EXPECT_EQ(FormatFor({"--saida", "a.html"}), Format::kHtml);
  EXPECT_EQ(FormatFor({"--saida", "a.htm"}), Format::kHtml);
  EXPECT_EQ(FormatFor({"--saida", "a.pdf"}), Format::kPdf);
}

TEST(OutputOptions, ChooseTheTableForAnotherEndingOrNone) {
  EXPECT_EQ(FormatFor({}), Format::kTable);
  for (const char* const file : {"a.txt", "csv", "a.csv/b", "a.csv.bak", "a.xls", "/dev/null"})
    EXPECT_EQ(FormatFor({"--saida", file}), Format::kTable) << file;
}

TEST(OutputOptions, PreferTheFormatThatIsStated) {
  EXPECT_EQ(FormatFor({"--saida", "a.csv", "--formato", "json"}), Format::kJson);
  EXPECT_EQ(FormatFor({"--formato", "tabela", "--saida", "a.pdf"}), Format::kTable);
}

TEST(OutputOptions, RefuseAnOptionOfAnotherFormat) {
  EXPECT_EQ(Given({"--excel"}).Refusal(), "--excel só vale com o formato csv");
  EXPECT_EQ(Given({"--excel", "--saida", "a.json"}).Refusal(), "--excel só vale com o formato csv");
  EXPECT_EQ(Given({"--formato", "json", "--separador", ";"}).Refusal(), "--separador só vale com o formato csv");
  EXPECT_EQ(Given({"--formato", "xlsx", "--saida", "a", "--bom"}).Refusal(), "--bom só vale com o formato csv");
  EXPECT_EQ(Given({"--formato", "csv", "--json-linhas"}).Refusal(), "--json-linhas só vale com o formato json");
  EXPECT_EQ(Given({"--saida", "a.pdf", "--titulos"}).Refusal(), "--titulos só vale com o formato xlsx");
}

TEST(OutputOptions, RefuseExcelWithAnotherSeparatorOrMark) {
  const std::string message = "--excel já escolhe o separador e a marca (BOM), e não pode ser usado com ";
  EXPECT_EQ(Given({"--saida", "a.csv", "--excel", "--separador", ";"}).Refusal(), message + "--separador");
  EXPECT_EQ(Given({"--saida", "a.csv", "--excel", "--bom"}).Refusal(), message + "--bom");
  EXPECT_EQ(Given({"--saida", "a.csv", "--excel"}).Refusal(), "");
}

TEST(OutputOptions, TakeASignOrTheWordTabForTheSeparator) {
  const auto separator = [](const std::string& text) {
    return Given({"--formato", "csv", "--separador", text}).Options().ForFormats().csv.separator;
  };
  EXPECT_EQ(separator(";"), ';');
  EXPECT_EQ(separator("|"), '|');
  for (const char* const tab : {"tab", "TAB", "\\t", "\t"}) EXPECT_EQ(separator(tab), '\t') << tab;
}

TEST(OutputOptions, RefuseASeparatorThatCouldBePartOfAValue) {
  for (const char* const wrong : {"5", "a", "Z", "é", "\"", "'", " ", "", ";;", "\n", "\r", "\x7f"}) {
    EXPECT_EQ(Given({"--formato", "csv", "--separador", wrong}).Refusal(),
              "--separador deve ser um sinal, como ; ou |, ou a palavra tab")
        << wrong;
  }
}

TEST(OutputOptions, SplitTheNamesOfTheColumnsAtCommas) {
  using Names = std::vector<std::string>;
  const auto names = [](const std::string& text) { return Given({"--colunas", text}).Options().ForFormats().columns; };
  EXPECT_EQ(names("A"), Names({"A"}));
  EXPECT_EQ(names("A, b ,C"), Names({"A", "b", "C"}));
  // An empty name is one that no report has.
  EXPECT_EQ(names("A,"), Names({"A", ""}));
  EXPECT_EQ(names(""), Names({""}));
  EXPECT_EQ(Given({}).Options().ForFormats().columns, Names());
}

TEST(OutputOptions, TakeALimitFromOneRowOn) {
  EXPECT_EQ(Given({"--limite", "1"}).Options().MostRows(), 1U);
  EXPECT_EQ(Given({"--limite", "5000000000"}).Options().MostRows(), 5'000'000'000U);
  EXPECT_EQ(Given({}).Options().MostRows(), std::numeric_limits<std::uint64_t>::max());
  for (const char* const wrong : {"0", "-1"})
    EXPECT_EQ(Given({"--limite", wrong}).Refusal(), "--limite deve ser 1 ou mais") << wrong;
}

TEST(OutputOptions, RefuseFewerColumnsOrRowsOnAPage) {
  EXPECT_EQ(Given({"--saida", "a.pdf", "--colunas", "A"}).Refusal(),
            "--colunas não vale com o formato pdf, que traz o relatório inteiro");
  EXPECT_EQ(Given({"--formato", "html", "--limite", "1"}).Refusal(),
            "--limite não vale com o formato html, que traz o relatório inteiro");
  EXPECT_EQ(Given({"--saida", "a.xlsx", "--colunas", "A", "--limite", "1"}).Refusal(), "");
}

}  // namespace
}  // namespace kodra::console
