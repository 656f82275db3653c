#include "console/formats/pages/symbol.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/console/failing.h"
#include "values/utf8.h"

namespace kodra::console::pages {
namespace {

// A bar or a blank per module.
std::string Row(const Symbol& symbol, int row) {
  std::string text(static_cast<std::size_t>(symbol.columns), '.');
  for (const Rectangle& part : symbol.dark) {
    if (part.top == row)
      text.replace(static_cast<std::size_t>(part.left), static_cast<std::size_t>(part.width),
                   std::string(static_cast<std::size_t>(part.width), '#'));
  }
  return text;
}

// Start B, "A", "A", checksum (104 + 1·33 + 2·33) mod 103 = 100, stop.
TEST(Symbol, BarsOfCode128FollowItsStandard) {
  const Symbol symbol = Code128(L"AA");
  EXPECT_EQ(Row(symbol, 0),
            "##.#..#...."
            "#.#...##..."
            "#.#...##..."
            "#.####.###."
            "##...###.#.##");
  EXPECT_EQ(symbol.rows, 1);
  EXPECT_EQ(symbol.quietZone, 10);
}

TEST(Symbol, Code128RefusesWhatScannersReadDifferently) {
  for (const std::string text : {"", "MÓDULO", "AÇ1", "A\tB", "1234567890123456789012345678901234567890123456789"}) {
    EXPECT_EQ(RefusalOf([&] { Code128(values::FromUtf8(text)); }),
              "um código de barras Code 128 não comporta \"" + text +
                  "\": são de 1 a 48 letras sem acento, algarismos e sinais; escolha o código qr, ou nenhum");
  }
}

// The three corners of the smallest QR code, 21 by 21 squares, have the same pattern.
TEST(Symbol, QrCodesHaveTheirFinderPatterns) {
  const Symbol symbol = QrCode(L"AA001");
  EXPECT_EQ(symbol.columns, 21);
  EXPECT_EQ(symbol.rows, 21);
  EXPECT_EQ(symbol.quietZone, 4);
  const std::vector<std::string> finder = {"#######.", "#.....#.", "#.###.#.", "#.###.#.",
                                           "#.###.#.", "#.....#.", "#######.", "........"};
  for (int row = 0; row < 8; ++row) {
    const std::string expected = finder[static_cast<std::size_t>(row)];
    EXPECT_EQ(Row(symbol, row).substr(0, 8), expected);
    EXPECT_EQ(Row(symbol, row).substr(13), std::string(expected.rbegin(), expected.rend()));
    EXPECT_EQ(Row(symbol, 20 - row).substr(0, 8), expected);
  }
}

TEST(Symbol, QrCodesRefuseAnEmptyText) {
  EXPECT_EQ(RefusalOf([] { QrCode(L""); }), "um código QR não comporta \"\"");
}

TEST(Symbol, IsDrawnFromItsCorner) {
  const Symbol symbol = {5, 1, 10, {{0, 0, 2, 1}, {3, 0, 2, 1}}};
  const std::vector<Rectangle> drawn = Drawn(symbol, {1000, 2000}, 300, 9000);
  ASSERT_EQ(drawn.size(), 2U);
  EXPECT_EQ(drawn[1].left, 1900);
  EXPECT_EQ(drawn[1].top, 2000);
  EXPECT_EQ(drawn[1].width, 600);
  EXPECT_EQ(drawn[1].height, 9000);
}

TEST(Symbol, SquaresAreDrawnAsHighAsTheyAreWide) {
  const Symbol symbol = {2, 2, 4, {{0, 1, 2, 1}}};
  const std::vector<Rectangle> drawn = Drawn(symbol, {0, 0}, 500, 9000);
  ASSERT_EQ(drawn.size(), 1U);
  EXPECT_EQ(drawn[0].top, 500);
  EXPECT_EQ(drawn[0].height, 500);
}

}  // namespace
}  // namespace kodra::console::pages
