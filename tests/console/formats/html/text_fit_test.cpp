// Texts in boxes.
#include "console/formats/html/text_fit.h"

#include <gtest/gtest.h>

namespace kodra::console::html {
namespace {

TEST(TextFit, GivesAShortTextTheLargestLetters) {
  const FittedText fitted = FitText(L"AB001", {90, 10}, 5, 1);
  EXPECT_EQ(fitted.text, L"AB001");
  EXPECT_EQ(fitted.size, 5);
}

TEST(TextFit, NeverGivesLettersHigherThanTheBox) {
  EXPECT_LE(FitText(L"A", {90, 3}, 50, 1).size * kLineHeight, 3.0001);
}

TEST(TextFit, MakesLettersSmallerUntilTheTextFits) {
  const std::wstring text = L"Correspondência expedida e recebida do departamento de administração";
  const Box box = {60, 8};
  const FittedText fitted = FitText(text, box, 4, 1);
  EXPECT_EQ(fitted.text, text);
  EXPECT_LT(fitted.size, 4);
  EXPECT_TRUE(Fits(text, box, fitted.size));
  EXPECT_FALSE(Fits(text, box, fitted.size * 1.2));
}

TEST(TextFit, CutsWhatFitsAtNoSize) {
  const std::wstring text(500, L'W');
  const Box box = {20, 3};
  const FittedText fitted = FitText(text, box, 4, 1);
  EXPECT_EQ(fitted.size, 1);
  EXPECT_TRUE(fitted.text.ends_with(L"…"));
  EXPECT_TRUE(Fits(fitted.text, box, 1));
  EXPECT_GT(fitted.text.size(), 10U);
}

TEST(TextFit, KeepsALineOnOneLine) {
  const FittedText line = FitLine(L"guarda por prazo até amanhã", 30, 5, 1);
  EXPECT_TRUE(Fits(line.text, {30, line.size * kLineHeight}, line.size));
  const FittedText cut = FitLine(std::wstring(200, L'm'), 30, 5, 1);
  EXPECT_EQ(cut.size, 1);
  EXPECT_TRUE(Fits(cut.text, {30, cut.size * kLineHeight}, cut.size));
}

TEST(TextFit, TakesTheEmptyText) {
  EXPECT_EQ(FitText(L"", {10, 10}, 5, 1).text, L"");
  EXPECT_EQ(FitLine(L"", 10, 5, 1).text, L"");
}

TEST(TextFit, WrapsAtBlanksAndWithinWordsThatAreTooLong) {
  EXPECT_FALSE(Fits(L"aaaa aaaa", {4 * 0.57 * 2 + 0.1, 2.4}, 2));
  EXPECT_TRUE(Fits(L"aaaa aaaa", {4 * 0.57 * 2 + 0.1, 4.7}, 2));
  EXPECT_FALSE(Fits(std::wstring(40, L'a'), {10, 2.4}, 2));
}

}  // namespace
}  // namespace kodra::console::html
