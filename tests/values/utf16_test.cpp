#include "values/utf16.h"

#include <gtest/gtest.h>

namespace kodra::values {
namespace {

TEST(Utf16, AccentsAreOneUnitEach) {
  EXPECT_EQ(ToUtf16(L"ação"), u"ação");
  EXPECT_EQ(FromUtf16(u"ação"), L"ação");
}

TEST(Utf16, AnEmptyTextStaysEmpty) {
  EXPECT_EQ(ToUtf16(L""), u"");
  EXPECT_EQ(FromUtf16(u""), L"");
}

TEST(Utf16, ACharacterBeyondTheBasicPlaneIsAPairOfSurrogates) {
  EXPECT_EQ(Utf16FromUtf32(U"\U0001F4E6"), std::u16string({0xD83D, 0xDCE6}));
  EXPECT_EQ(Utf32FromUtf16(std::u16string({0xD83D, 0xDCE6})), U"\U0001F4E6");
  EXPECT_EQ(FromUtf16(ToUtf16(L"caixa \U0001F4E6!")), L"caixa \U0001F4E6!");
}

TEST(Utf16, TheFirstAndLastPairsAreExact) {
  EXPECT_EQ(Utf16FromUtf32(U"\U00010000"), std::u16string({0xD800, 0xDC00}));
  EXPECT_EQ(Utf16FromUtf32(U"\U0010FFFF"), std::u16string({0xDBFF, 0xDFFF}));
}

TEST(Utf16, ALoneSurrogateIsKeptBothWays) {
  const std::u16string lone[] = {{0xD83D}, {0xDCE6}, {u'a', 0xD83D, u'b'}, {0xDCE6, 0xD83D}, {0xD83D, 0xD83D}};
  for (const std::u16string& text : lone) {
    EXPECT_EQ(Utf16FromUtf32(Utf32FromUtf16(text)), text);
    EXPECT_EQ(ToUtf16(FromUtf16(text)), text);
  }
}

TEST(Utf16, AnEmbeddedZeroIsACharacterLikeAnyOther) {
  EXPECT_EQ(ToUtf16(std::wstring(L"a\0b", 3)), std::u16string(u"a\0b", 3));
  EXPECT_EQ(FromUtf16(std::u16string(u"a\0b", 3)), std::wstring(L"a\0b", 3));
}

TEST(Utf16, ACodePointThatDoesNotExistBecomesTheReplacementCharacter) {
  EXPECT_EQ(Utf16FromUtf32(std::u32string{0x110000, 0xFFFFFFFF}), std::u16string({0xFFFD, 0xFFFD}));
}

}  // namespace
}  // namespace kodra::values
