// The symbols of a barcode, worked out by hand.
#include "console/formats/html/code128.h"

#include <gtest/gtest.h>

#include <numeric>

namespace kodra::console::html {
namespace {

using Symbols = std::vector<int>;

// Start B; A, B, 0, 0, 1; the check symbol is (104 + 33 + 2*34 + 3*16 + 4*16 + 5*17) modulo 103.
TEST(Code128, WritesAModuleNumberInSetB) { EXPECT_EQ(Code128Symbols("AB001"), (Symbols{104, 33, 34, 16, 16, 17, 93})); }

// Five digits at the end: the first stays in set B, then "code C", 01 and 07.
TEST(Code128, WritesFourDigitsAtTheEndInPairs) {
  EXPECT_EQ(Code128Symbols("AB00107"), (Symbols{104, 33, 34, 16, 99, 1, 7, 78}));
}

TEST(Code128, WritesDigitsOnlyInPairsFromTheStart) {
  EXPECT_EQ(Code128Symbols("12345678"), (Symbols{105, 12, 34, 56, 78, 47}));
}

// Start C, 12, 34, "code B", 5; check (105 + 12 + 2*34 + 3*100 + 4*21) modulo 103.
TEST(Code128, LeavesTheLastOfAnOddNumberOfDigitsToSetB) {
  EXPECT_EQ(Code128Symbols("12345"), (Symbols{105, 12, 34, 100, 21, 54}));
}

// Start C, 12, 34, "code B", A, "code C", 56, 78; check (105 + 12 + 68 + 300 + 132 + 495 + 336 + 546) modulo 103.
TEST(Code128, ReturnsToPairsAfterALetter) {
  EXPECT_EQ(Code128Symbols("1234A5678"), (Symbols{105, 12, 34, 100, 33, 99, 56, 78, 37}));
}

TEST(Code128, HasNoSymbolForWhatScannersDoNotRead) {
  EXPECT_TRUE(Code128Symbols("").empty());
  EXPECT_TRUE(Code128Symbols("MÓD1").empty());
  EXPECT_TRUE(Code128Symbols("A\tB").empty());
  EXPECT_EQ(Code128Svg("Ó"), "");
  EXPECT_EQ(Code128Modules("Ó"), 0);
}

// Eleven modules a symbol, thirteen the stop, ten of quiet zone on either side.
TEST(Code128, IsAsWideAsItsSymbols) {
  EXPECT_EQ(Code128Modules("AB001"), 7 * 11 + 13 + 20);
  const std::vector<int> widths = Code128Widths("AB001");
  EXPECT_EQ(std::accumulate(widths.begin(), widths.end(), 0), 7 * 11 + 13);
}

// Every character of set B and every pair of set C, so that each symbol's widths are read.
TEST(Code128, GivesEverySymbolElevenModules) {
  std::string letters, digits;
  for (char c = ' '; c <= '~'; ++c) letters += c;
  for (int pair = 0; pair < 100; ++pair)
    digits += std::string{static_cast<char>('0' + pair / 10), static_cast<char>('0' + pair % 10)};
  EXPECT_EQ(Code128Modules(letters), (1 + 95 + 1) * 11 + 13 + 20);
  EXPECT_EQ(Code128Modules(digits), (1 + 100 + 1) * 11 + 13 + 20);
}

// Bars are at the even places of the widths; the first begins after the quiet zone.
TEST(Code128, DrawsItsBars) {
  EXPECT_EQ(Code128Svg("A"),
            "<svg class=\"barras\" viewBox=\"0 0 66 1\" preserveAspectRatio=\"none\" shape-rendering=\"crispEdges\" "
            "role=\"img\" aria-label=\"código de barras\"><path d=\""
            "M10 0h2v1h-2zM13 0h1v1h-1zM16 0h1v1h-1z"               // start B: 211214
            "M21 0h1v1h-1zM23 0h1v1h-1zM27 0h2v1h-2z"               // A: 111323
            "M32 0h1v1h-1zM36 0h1v1h-1zM38 0h2v1h-2z"               // check 34: 131123
            "M43 0h2v1h-2zM48 0h3v1h-3zM52 0h1v1h-1zM54 0h2v1h-2z"  // stop: 2331112
            "\"/></svg>");
}

}  // namespace
}  // namespace kodra::console::html
