// Conversions between text and UTF-8 and UTF-16.
#include <gtest/gtest.h>

#include "values/utf16.h"
#include "values/utf8.h"

namespace kodra::values {
namespace {

TEST(Utf8, TextIsConvertedBothWays) {
  const std::wstring text = L"aÚção – \uFFFF\U0001F4E6";
  const std::string bytes = "a\xC3\x9A\xC3\xA7\xC3\xA3o \xE2\x80\x93 \xEF\xBF\xBF\xF0\x9F\x93\xA6";
  EXPECT_EQ(ToUtf8(text), bytes);
  EXPECT_EQ(FromUtf8(bytes), text);
  EXPECT_EQ(ToUtf8(L""), "");
  EXPECT_EQ(FromUtf8(""), L"");
}

TEST(Utf8, TextIsAppendedToWhatIsThere) {
  std::string bytes = "São ";
  AppendUtf8(L"Paulo", bytes);
  AppendUtf8(L", Brasília", bytes);
  EXPECT_EQ(bytes, "São Paulo, Brasília");
}

TEST(Utf8, AnEmbeddedZeroIsACharacter) {
  EXPECT_EQ(ToUtf8(std::wstring_view(L"a\0b", 3)), std::string("a\0b", 3));
  EXPECT_EQ(FromUtf8(std::string_view("a\0b", 3)), std::wstring(L"a\0b", 3));
}

TEST(Utf8, InvalidBytesAreReplaced) {
  EXPECT_EQ(FromUtf8("a\xC3"), L"a\uFFFD");                    // truncated
  EXPECT_EQ(FromUtf8("\x9Az"), L"\uFFFDz");                    // a continuation byte
  EXPECT_EQ(FromUtf8("\xC0\x80"), L"\uFFFD\uFFFD");            // an overlong form
  EXPECT_EQ(FromUtf8("\xED\xA0\x80"), L"\uFFFD\uFFFD\uFFFD");  // a lone surrogate
  EXPECT_EQ(FromUtf8("\xF8z"), L"\uFFFDz");                    // not a lead byte
  EXPECT_EQ(FromUtf8("\xF4\x90\x80\x80"), L"\uFFFD\uFFFD\uFFFD\uFFFD");
}

TEST(Utf16, AccentsAreOneUnitEach) {
  EXPECT_EQ(ToUtf16(L"ação"), u"ação");
  EXPECT_EQ(FromUtf16(u"ação"), L"ação");
}

TEST(Utf16, AnEmptyTextStaysEmpty) {
  EXPECT_EQ(ToUtf16(L""), u"");
  EXPECT_EQ(FromUtf16(u""), L"");
}

TEST(Utf16, ACharacterBeyondTheBasicPlaneIsAPairOfSurrogates) {
  EXPECT_EQ(ToUtf16(L"\U0001F4E6"), std::u16string({0xD83D, 0xDCE6}));
  EXPECT_EQ(FromUtf16(std::u16string({0xD83D, 0xDCE6})), L"\U0001F4E6");
  EXPECT_EQ(FromUtf16(ToUtf16(L"caixa \U0001F4E6!")), L"caixa \U0001F4E6!");
}

TEST(Utf16, TheFirstAndLastPairsAreExact) {
  EXPECT_EQ(ToUtf16(L"\U00010000"), std::u16string({0xD800, 0xDC00}));
  EXPECT_EQ(ToUtf16(L"\U0010FFFF"), std::u16string({0xDBFF, 0xDFFF}));
}

TEST(Utf16, ALoneSurrogateIsKeptBothWays) {
  const std::u16string lone[] = {{0xD83D}, {0xDCE6}, {u'a', 0xD83D, u'b'}, {0xDCE6, 0xD83D}, {0xD83D, 0xD83D}};
  for (const std::u16string& text : lone) EXPECT_EQ(ToUtf16(FromUtf16(text)), text);
}

TEST(Utf16, AnEmbeddedZeroIsACharacterLikeAnyOther) {
  EXPECT_EQ(ToUtf16(std::wstring(L"a\0b", 3)), std::u16string(u"a\0b", 3));
  EXPECT_EQ(FromUtf16(std::u16string(u"a\0b", 3)), std::wstring(L"a\0b", 3));
}

TEST(Utf16, ACodePointThatDoesNotExistBecomesTheReplacementCharacter) {
  const std::wstring beyond = {static_cast<wchar_t>(0x110000), static_cast<wchar_t>(0xFFFFFFFF)};
  EXPECT_EQ(ToUtf16(beyond), std::u16string({0xFFFD, 0xFFFD}));
}

}  // namespace
}  // namespace kodra::values
