// Stock: every label on the paper, none over another, and the measures as people write them.
#include "console/formats/labels/stock.h"

#include <gtest/gtest.h>
#include <algorithm>

#include "console/command_line/usage_error.h"
#include "console/formats/labels/millimetres.h"
#include "tests/console/failing.h"

namespace kodra::console::labels {
namespace {

using namespace pages;

const Stock& BuiltIn(const std::string& name) { return *std::ranges::find(BuiltInStocks(), name, &Stock::name); }

TEST(Millimetres, AreReadWithACommaOrAPoint) {
  EXPECT_EQ(ParseMillimetres("38,1"), 38'100);
  EXPECT_EQ(ParseMillimetres("38.125"), 38'125);
  EXPECT_EQ(ParseMillimetres("210"), 210'000);
  EXPECT_EQ(ParseMillimetres("-0,5"), -500);
  EXPECT_EQ(ParseMillimetres("9999"), 9'999'000);
  for (const char* const text : {"", "-", ",5", "5,", "1,2345", "12345", "1e3", "+1", " 1", "1,2,3", "--1", "1,-2"})
    EXPECT_EQ(ParseMillimetres(text), std::nullopt) << text;
}

TEST(Millimetres, AreWrittenWithoutNeedlessZeros) {
  EXPECT_EQ(MillimetresText(38'100), "38,1");
  EXPECT_EQ(MillimetresText(210'000), "210");
  EXPECT_EQ(MillimetresText(-50), "-0,05");
  EXPECT_EQ(MillimetresText(Size{99'100, 38'100}), "99,1 x 38,1");
}

TEST(Stock, OfPlainPaperIsNamedAfterItsPaperItsColumnsAndItsRows) {
  int plain = 0;
  for (const Stock& stock : BuiltInStocks()) {
    if (stock.name.starts_with("pimaco")) continue;
    const std::string paper = stock.page == kA4 ? "a4" : "carta";
    EXPECT_EQ(stock.name, paper + "-" + std::to_string(stock.columns) + "x" + std::to_string(stock.rows));
    ++plain;
  }
  EXPECT_EQ(plain, 7);
}

TEST(Stock, KeepsEveryLabelOnThePaperAndApartFromTheOthers) {
  for (const Stock& stock : BuiltInStocks()) {
    EXPECT_GE(DistanceToEdge(stock), 0) << stock.name;
    EXPECT_GE(stock.gap.width, 0) << stock.name;
    EXPECT_GE(stock.gap.height, 0) << stock.name;
  }
}

// What remains at the right and at the bottom is as much as at the left and the top, to the tenths of a millimetre that
// the sources have.
TEST(Stock, IsCentredOnItsPaper) {
  for (const Stock& stock : BuiltInStocks()) {
    const Rectangle last = CellOf(stock, stock.Labels() - 1);
    EXPECT_NEAR(stock.page.width - last.Right(), stock.margin.width, 100) << stock.name;
    EXPECT_NEAR(stock.page.height - last.Bottom(), stock.margin.height, 200) << stock.name;
  }
}

// Two columns of 99.1 mm with 2.5 mm between them and seven rows of 38.1 mm, in the middle of A4.
TEST(Stock, IsFilledRowByRow) {
  const Stock& stock = BuiltIn("a4-2x7");
  const auto at = [&](int label) {
    const Rectangle cell = CellOf(stock, label);
    return std::vector<Length>{cell.left, cell.top, cell.width, cell.height};
  };
  EXPECT_EQ(at(0), (std::vector<Length>{4'650, 15'150, 99'100, 38'100}));
  EXPECT_EQ(at(1), (std::vector<Length>{106'250, 15'150, 99'100, 38'100}));
  EXPECT_EQ(at(2), (std::vector<Length>{4'650, 53'250, 99'100, 38'100}));
  EXPECT_EQ(at(13), (std::vector<Length>{106'250, 243'750, 99'100, 38'100}));
  EXPECT_EQ(DistanceToEdge(stock), 4'650);
}

TEST(Stock, IsDescribedOnOneLine) {
  EXPECT_EQ(Described(BuiltIn("a4-2x7")),
            "a4-2x7: 2 x 7 etiquetas de 99,1 x 38,1 mm em página de 210 x 297 mm, margens de 4,65 x 15,15 mm, vãos de "
            "2,5 x 0 mm");
  EXPECT_EQ(Described(ParseStock("100x50mm", "100x50mm")), "100x50mm: uma etiqueta de 100 x 50 mm por página");
}

TEST(StockSyntax, DescribesTheBuiltInSheetInFull) {
  EXPECT_EQ(ParseStock("a4-2x7", "pagina=210x297 colunas=2 linhas=7 etiqueta=99,1x38,1 margem=4,65x15,15 vao=2,5x0"),
            BuiltIn("a4-2x7"));
}

TEST(StockSyntax, TakesMeasuresInAnyOrderWithAccentsAndWithoutMarginsOrGaps) {
  EXPECT_EQ(ParseStock("x", "  Etiqueta=70x37 VÃO=0x0\tpágina=210x297 linhas=8  colunas=3 "),
            (Stock{"x", {210'000, 297'000}, 3, 8, {70'000, 37'000}, {0, 0}, {0, 0}}));
  EXPECT_EQ(ParseStock("x", "pagina=100x50 etiqueta=100x50"), (Stock{"x", {100'000, 50'000}, 1, 1, {100'000, 50'000}}));
}

TEST(StockSyntax, TakesTheSizeOfALabelOnARoll) {
  const Stock roll = ParseStock("100x50mm", "100x50mm");
  EXPECT_EQ(roll, (Stock{"100x50mm", {100'000, 50'000}, 1, 1, {100'000, 50'000}}));
  EXPECT_TRUE(roll.IsRoll());
  EXPECT_FALSE(BuiltIn("a4-1x2").IsRoll());
}

TEST(StockSyntax, RefusesWhatIsNoSheet) {
  struct Case {
    std::string text, reason;
  };
  for (const Case& wrong : std::vector<Case>{
           {"", "falta a medida \"pagina\""},
           {"pagina=210x297", "falta a medida \"etiqueta\""},
           {"pagina=210x297 etiqueta=99", "\"etiqueta=99\" não tem a forma LARGURAxALTURA, em milímetros"},
           {"axbmm",
            "\"axbmm\" não é uma medida; o modelo é \"pagina=210x297 colunas=2 linhas=7 etiqueta=99,1x38,1 "
            "margem=4,65x15,15 vao=2,5x0\" ou \"100x50mm\""},
           {"pagina=210x297 coluna=2",
            "a medida \"coluna\" não existe (quis dizer \"colunas\"?); as medidas são pagina, colunas, linhas, "
            "etiqueta, margem, vao"},
           {"pagina=210x297 pagina=210x297", "a medida \"pagina\" aparece duas vezes"},
           {"pagina=210x297 etiqueta=99x38 colunas=0", "\"colunas=0\" não é um número de 1 a 100"},
           {"pagina=210x297 etiqueta=99x38 linhas=2a", "\"linhas=2a\" não é um número de 1 a 100"},
           {"pagina=210x297 etiqueta=0x38", "a etiqueta precisa de largura e de altura"},
           {"pagina=2001x297 etiqueta=99x38", "a página passa de 2000 mm"},
           {"pagina=210x297 etiqueta=99x300", "a etiqueta de 99 x 300 mm é maior que a página de 210 x 297 mm"},
           {"pagina=210x297 etiqueta=99x38 linhas=2 vao=0x-1", "com vãos de 0 x -1 mm, as etiquetas se sobrepõem"},
           {"pagina=210x297 etiqueta=99x38 colunas=2 margem=10x10 vao=3x0",
            "as etiquetas saem da página de 210 x 297 mm: com as margens e os vãos, ocupam 211 x 48 mm"},
       }) {
    EXPECT_EQ(RefusalOf([&] { ParseStock("x", wrong.text); }), "a folha \"x\" não serve: " + wrong.reason);
  }
}

TEST(StockFile, HasANameAndItsMeasuresOnEachLine) {
  const std::vector<Stock> stocks = ParseStocks("folhas.ini",
                                                "\xEF\xBB\xBF# as nossas folhas\r\n"
                                                "\n"
                                                "Caixas = pagina=210x297 etiqueta=190x130 linhas=2 margem=10x18\r\n"
                                                "; do rolo\n"
                                                "rolo=100x50mm");
  ASSERT_EQ(stocks.size(), 2U);
  EXPECT_EQ(stocks[0], (Stock{"caixas", kA4, 1, 2, {190'000, 130'000}, {10'000, 18'000}, {0, 0}}));
  EXPECT_EQ(stocks[1], (Stock{"rolo", {100'000, 50'000}, 1, 1, {100'000, 50'000}}));
}

TEST(StockFile, RefusesALineThatIsNoStock) {
  struct Case {
    std::string text, reason;
  };
  const std::string model =
      "falta o nome da folha; o modelo é \"minha = pagina=210x297 colunas=2 linhas=7 etiqueta=99,1x38,1 "
      "margem=4,65x15,15 vao=2,5x0\"";
  for (const Case& wrong : std::vector<Case>{
           {"\nrolo", "linha 2: " + model},
           {"pagina=210x297",
            "linha 1: a folha \"pagina\" não serve: \"210x297\" não é uma medida; o modelo é \"pagina=210x297 "
            "colunas=2 "
            "linhas=7 etiqueta=99,1x38,1 margem=4,65x15,15 vao=2,5x0\" ou \"100x50mm\""},
           {"= 100x50mm", "linha 1: " + model},
           {"a4-2x7 = 100x50mm", "linha 1: já existe uma folha \"a4-2x7\""},
           {"r=100x50mm\nR=50x25mm", "linha 2: já existe uma folha \"r\""},
           {"r=0x50mm", "linha 1: a folha \"r\" não serve: a etiqueta precisa de largura e de altura"},
       }) {
    EXPECT_EQ(RefusalOf([&] { ParseStocks("folhas.ini", wrong.text); }), "\"folhas.ini\", " + wrong.reason);
  }
}

}  // namespace
}  // namespace kodra::console::labels
