#include "console/formats/labels/fitted_text.h"

#include <gtest/gtest.h>

namespace kodra::console::labels {
namespace {

using namespace pages;

using Lines = std::vector<std::wstring>;

// "AA" is 2732 wide in letters of 2048, a blank 569; a line is 1854 + 434 high.
constexpr LetterSizes kSizes = {2048, 1024};
constexpr Length kLine = 2288;

TEST(FittedText, WrapsAtBlanksInLettersOfTheUsualSize) {
  const FittedText text = Fit(L"AA AA  AA", Face::kRegular, kSizes, {2732 * 2 + 569, 2 * kLine});
  EXPECT_EQ(text.lines, (Lines{L"AA AA", L"AA"}));
  EXPECT_EQ(text.letters, 2048);
  EXPECT_EQ(text.Height(), 2 * kLine);
  EXPECT_FALSE(text.isCut);
}

// In letters of 1948, 3 · 2599 + 2 · 541 are 8879.
TEST(FittedText, ShrinksOnceItHasNoMoreLines) {
  const FittedText text = Fit(L"AA AA AA", Face::kRegular, kSizes, {8900, kLine});
  EXPECT_EQ(text.lines, Lines{L"AA AA AA"});
  EXPECT_EQ(text.letters, 1948);
}

TEST(FittedText, ShrinksBeforeAWordIsBroken) {
  const FittedText text = Fit(L"AAAA", Face::kRegular, kSizes, {4000, 10 * kLine});
  EXPECT_EQ(text.lines, Lines{L"AAAA"});
  EXPECT_EQ(text.letters, 1448);
}

// In the smallest letters "A" is 683 wide, and "…" 1024.
TEST(FittedText, BreaksWordsAndEndsInAnEllipsisInTheSmallestLetters) {
  const FittedText text = Fit(std::wstring(20, L'A'), Face::kRegular, kSizes, {5 * 683, 2 * kLine});
  EXPECT_EQ(text.lines, (Lines{L"AAAAA", L"AAAAA", L"AAAAA", L"AAAAA"}));
  EXPECT_FALSE(text.isCut);
  const FittedText longer = Fit(std::wstring(21, L'A'), Face::kRegular, kSizes, {5 * 683, 2 * kLine});
  EXPECT_EQ(longer.lines, (Lines{L"AAAAA", L"AAAAA", L"AAAAA", L"AAA…"}));
  EXPECT_EQ(longer.letters, 1024);
  EXPECT_TRUE(longer.isCut);
}

TEST(FittedText, OnOneLineShrinksAndIsCut) {
  EXPECT_EQ(FitLine(L"A A", Face::kRegular, kSizes, 3301).letters, 2048);
  EXPECT_EQ(FitLine(L"A A", Face::kRegular, kSizes, 3300).letters, 1948);
  const FittedText cut = FitLine(L"AA AA", Face::kRegular, kSizes, 2800);
  EXPECT_EQ(cut.lines, Lines{L"AA …"});
  EXPECT_TRUE(cut.isCut);
}

TEST(FittedText, HasNoLineForAnEmptyText) {
  EXPECT_EQ(Fit(L" ", Face::kRegular, kSizes, {1000, kLine}).lines, Lines{});
  EXPECT_EQ(FitLine(L"", Face::kRegular, kSizes, 1000).lines, Lines{});
}

}  // namespace
}  // namespace kodra::console::labels
