// Where texts are broken, and the widths of columns.
#include "console/formats/pages/text_lines.h"

#include <gtest/gtest.h>

#include <numeric>

#include "console/formats/pages/column_widths.h"

namespace kodra::console::pages {
namespace {

constexpr Length kSize = 2048;  // so that the width of a letter is its measure in the font

// The lines of a text, without their weights.
std::vector<std::wstring> Texts(const std::vector<Run>& runs, Length width) {
  std::vector<std::wstring> texts;
  for (const Line& line : Wrapped(runs, kSize, width)) {
    std::wstring text;
    for (const Run& run : line) text += run.text;
    texts.push_back(text);
  }
  return texts;
}

using Lines = std::vector<std::wstring>;

// "aa" is 2 × 1139 wide, the blank 569.
TEST(TextLines, AreBrokenAtBlanksWhereTheNextWordDoesNotFit) {
  EXPECT_EQ(Texts({{L"aa aa aa"}}, 2 * 2278 + 569), (Lines{L"aa aa", L"aa"}));
  EXPECT_EQ(Texts({{L"aa aa aa"}}, 2 * 2278 + 568), (Lines{L"aa", L"aa", L"aa"}));
  EXPECT_EQ(Texts({{L"  aa   aa "}}, 10000), (Lines{L"aa aa"}));
  EXPECT_EQ(Texts({{L" "}}, 10000), Lines());
}

TEST(TextLines, AreNotBrokenWhereTheyFitExactly) {
  const std::wstring text = L"04/01/2010 13:07:47";
  for (const Length size : {7.5_pt, 8_pt, 9_pt, 10_pt, 14_pt}) {
    const pages::Run run = {text};
    EXPECT_EQ(Wrapped({&run, 1}, size, TextWidth(text, Face::kRegular, size)).size(), 1U) << size;
    EXPECT_EQ(Wrapped({&run, 1}, size, TextWidth(text, Face::kRegular, size) - 1).size(), 2U) << size;
  }
}

TEST(TextLines, AreBrokenInsideOnlyAWordThatIsTooWide) {
  EXPECT_EQ(Texts({{L"a aaaaa a"}}, 2 * 1139 + 569), (Lines{L"a", L"aa", L"aa", L"a a"}));
  EXPECT_EQ(Texts({{L"aaa"}}, 1), (Lines{L"a", L"a", L"a"}));
}

TEST(TextLines, KeepTheWeightOfEachRun) {
  EXPECT_EQ(
      Wrapped(std::vector<pages::Run>{{L"Nome:", Face::kBold}, {L"Ana Sá ·"}, {L"Ano:", Face::kBold}}, kSize, 100000),
      (std::vector<Line>{{{L"Nome: ", Face::kBold}, {L"Ana Sá · "}, {L"Ano:", Face::kBold}}}));
}

TEST(TextLines, AreShortenedWithAnEllipsis) {
  EXPECT_EQ(Shortened(L"aaaa", Face::kRegular, kSize, 4 * 1139), L"aaaa");
  EXPECT_EQ(Shortened(L"aaaa", Face::kRegular, kSize, 4 * 1139 - 1), L"aa…");
  EXPECT_EQ(Shortened(L"aaaa", Face::kRegular, kSize, 1), L"a…");
}

TEST(TextLines, AreAsWideAsTheirWidestWord) {
  EXPECT_EQ(WidestWord({L"a aaa aa"}, kSize), 3 * 1139);
  EXPECT_EQ(WidestWord({L""}, kSize), 0);
}

TEST(ColumnWidths, GiveEachColumnItsTextAndSpreadTheRest) {
  const std::vector<ColumnNeed> needs = {{100, 50}, {300, 80}};
  EXPECT_EQ(ColumnWidths(needs, 800), (std::vector<Length>{200, 600}));
}

TEST(ColumnWidths, KeepTheWidestWordAndGiveTheRestToLongTexts) {
  const std::vector<ColumnNeed> needs = {{100, 100}, {1000, 200}, {600, 200}};
  EXPECT_EQ(ColumnWidths(needs, 800), (std::vector<Length>{100, 400, 300}));
}

TEST(ColumnWidths, NarrowOnlyTheWidestColumnsWhenWordsDoNotFit) {
  const std::vector<ColumnNeed> needs = {{100, 100}, {900, 900}, {500, 500}};
  EXPECT_EQ(ColumnWidths(needs, 801), (std::vector<Length>{100, 350, 351}));
}

TEST(ColumnWidths, AlwaysAddUpToThePage) {
  for (Length width = 1000; width < 1100; ++width) {
    const std::vector<ColumnNeed> needs = {{333, 111}, {777, 221}, {width, 97}, {1, 1}};
    const std::vector<Length> widths = ColumnWidths(needs, width);
    EXPECT_EQ(std::accumulate(widths.begin(), widths.end(), 0), width);
  }
  EXPECT_EQ(ColumnWidths(std::vector<ColumnNeed>{{0, 0}, {0, 0}}, 10), (std::vector<Length>{5, 5}));
}

}  // namespace
}  // namespace kodra::console::pages
