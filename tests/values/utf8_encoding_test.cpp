// The bytes of each form of a character in UTF-8.
#include <gtest/gtest.h>

#include "values/utf8.h"

namespace kodra::values {
namespace {

TEST(Utf8Encoding, WritesEveryCharacterInItsShortestForm) {
  EXPECT_EQ(ToUtf8(L""), "");
  EXPECT_EQ(ToUtf8(L"Depósito – 10 €"), "Dep\xc3\xb3sito \xe2\x80\x93 10 \xe2\x82\xac");
  EXPECT_EQ(ToUtf8(L"\x7f\x80\x7ff\x800"), "\x7f\xc2\x80\xdf\xbf\xe0\xa0\x80");
  EXPECT_EQ(ToUtf8(L"\U0001F4DA"), "\xf0\x9f\x93\x9a");
}

TEST(Utf8Encoding, JoinsSurrogatePairsAndReplacesHalves) {
  const wchar_t pair[] = {0xd83d, 0xdcda, 0};
  const wchar_t high[] = {0xd83d, L'a', 0};
  const wchar_t low[] = {L'a', 0xdcda, 0};
  const wchar_t last[] = {0xd83d, 0};
  EXPECT_EQ(ToUtf8(pair), "\xf0\x9f\x93\x9a");
  EXPECT_EQ(ToUtf8(high),
            "\xef\xbf\xbd"
            "a");
  EXPECT_EQ(ToUtf8(low), "a\xef\xbf\xbd");
  EXPECT_EQ(ToUtf8(last), "\xef\xbf\xbd");
}

}  // namespace
}  // namespace kodra::values
