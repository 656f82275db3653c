#include "values/upper.h"

#include <gtest/gtest.h>

namespace kodra::values {
namespace {

TEST(UpperCase, TurnsEveryPortugueseLetter) {
  EXPECT_EQ(UpperCase(L"abcdefghijklmnopqrstuvwxyz"), L"ABCDEFGHIJKLMNOPQRSTUVWXYZ");
  EXPECT_EQ(UpperCase(L"áàâãéêíóôõúüç"), L"ÁÀÂÃÉÊÍÓÔÕÚÜÇ");
  EXPECT_EQ(UpperCase(L"Subgrupo de série"), L"SUBGRUPO DE SÉRIE");
}
TEST(UpperCase, TurnsTheLettersOfOtherEuropeanLanguages) {
  EXPECT_EQ(UpperCase(L"ñöøåþÿ"), L"ÑÖØÅÞŸ");
  EXPECT_EQ(UpperCase(L"āąćčďěğıłńňőœřśşšťůűźżž"), L"ĀĄĆČĎĚĞıŁŃŇŐŒŘŚŞŠŤŮŰŹŻŽ");
  EXPECT_EQ(UpperCase(L"άέίαρσςϋόύώ"), L"ΆΈΊΑΡΣςΫΌΎΏ");
  EXPECT_EQ(UpperCase(L"абвяѐё"), L"АБВЯЀЁ");
}
TEST(UpperCase, LeavesWhatHasNoUpperCaseCharacter) {
  EXPECT_EQ(UpperCase(L"ÁÇ 12 ß ÷ × µ º ª @[`{~"), L"ÁÇ 12 ß ÷ × µ º ª @[`{~");
  EXPECT_EQ(UpperCase(L""), L"");
}
TEST(UpperCase, KeepsCharactersAfterANullCharacter) {
  EXPECT_EQ(UpperCase(std::wstring_view(L"a\0b", 3)), std::wstring(L"A\0B", 3));
}

TEST(EqualIgnoringCase, ComparesAccentedLettersInUpperCase) {
  EXPECT_TRUE(EqualIgnoringCase(L"março", L"MARÇO"));
  EXPECT_TRUE(EqualIgnoringCase(L"", L""));
  EXPECT_FALSE(EqualIgnoringCase(L"março", L"MARCO"));
  EXPECT_FALSE(EqualIgnoringCase(L"mar", L"março"));
  EXPECT_FALSE(EqualIgnoringCase(L"março", L"mar"));
}

TEST(FirstUpper, KeepsOnlyTheFirstCharacter) {
  EXPECT_EQ(FirstUpper(L"vencidas"), L"V");
  EXPECT_EQ(FirstUpper(L"última"), L"Ú");
  EXPECT_EQ(FirstUpper(L" v"), L" ");
  EXPECT_EQ(FirstUpper(L""), L"");
}

TEST(Trim, RemovesBlanksAtBothEnds) {
  EXPECT_EQ(Trim(L"  a b  "), L"a b");
  EXPECT_EQ(Trim(L"a"), L"a");
  EXPECT_EQ(Trim(L"   "), L"");
  EXPECT_EQ(Trim(L""), L"");
}
TEST(Trim, LeavesTabsLineEndsAndOtherSpaces) {
  EXPECT_EQ(Trim(L"\ta\t"), L"\ta\t");
  EXPECT_EQ(Trim(L" a\r\n"), L"a\r\n");
  EXPECT_EQ(Trim(L"\u00A0a\u00A0"), L"\u00A0a\u00A0");
}

}  // namespace
}  // namespace kodra::values
