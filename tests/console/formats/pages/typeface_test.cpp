#include "console/formats/pages/typeface.h"

#include <gtest/gtest.h>

namespace kodra::console::pages {
namespace {

// The widths of these letters in Arial, in 2048ths of the size: 1366 for "A", 1139 for "1", 1479 for a bold "Ç".
TEST(Typeface, MeasuresTextsLikeArial) {
  EXPECT_EQ(TextWidth(L"", Face::kRegular, 2048), 0);
  EXPECT_EQ(TextWidth(L"A", Face::kRegular, 2048), 1366);
  EXPECT_EQ(TextWidth(L"A1", Face::kRegular, 2048), 1366 + 1139);
  EXPECT_EQ(TextWidth(L"Ç", Face::kBold, 2048), 1479);
}

TEST(Typeface, RoundsWidthsUp) { EXPECT_EQ(TextWidth(L"A", Face::kRegular, 1000), 667); }

TEST(Typeface, PrintsTheLettersOfEuropeAndAQuestionMarkForOthers) {
  EXPECT_EQ(Printable(L"Ação · “x” … €"), L"Ação · “x” … €");
  EXPECT_EQ(Printable(L"Dvořák Ω Ж"), L"Dvořák Ω Ж");
  EXPECT_EQ(Printable(L"文\x01"), L"??");
}

TEST(Typeface, PrintsBlanksForLineEnds) { EXPECT_EQ(Printable(L"a\tb\r\nc"), L"a b  c"); }

}  // namespace
}  // namespace kodra::console::pages
