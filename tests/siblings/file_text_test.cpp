#include "siblings/file_text.h"

#include <gtest/gtest.h>

#include "siblings/ini_file.h"
#include "values/utf8.h"

namespace kodra::siblings {
namespace {

TEST(EncodeUtf8, WritesEveryCharacterInItsShortestForm) {
  EXPECT_EQ(values::ToUtf8(L""), "");
  EXPECT_EQ(values::ToUtf8(L"Depósito – 10 €"), "Dep\xc3\xb3sito \xe2\x80\x93 10 \xe2\x82\xac");
  EXPECT_EQ(values::ToUtf8(L"\x7f\x80\x7ff\x800"), "\x7f\xc2\x80\xdf\xbf\xe0\xa0\x80");
  EXPECT_EQ(values::ToUtf8(L"\U0001F4DA"), "\xf0\x9f\x93\x9a");
}

TEST(EncodeUtf8, JoinsSurrogatePairsAndReplacesHalves) {
  const wchar_t pair[] = {0xd83d, 0xdcda, 0};
  const wchar_t high[] = {0xd83d, L'a', 0};
  const wchar_t low[] = {L'a', 0xdcda, 0};
  const wchar_t last[] = {0xd83d, 0};
  EXPECT_EQ(values::ToUtf8(pair), "\xf0\x9f\x93\x9a");
  EXPECT_EQ(values::ToUtf8(high),
            "\xef\xbf\xbd"
            "a");
  EXPECT_EQ(values::ToUtf8(low), "a\xef\xbf\xbd");
  EXPECT_EQ(values::ToUtf8(last), "\xef\xbf\xbd");
}

TEST(EncodeUtf8, IsReadBackAsItWas) {
  const std::wstring text = L"São João d’Aliança, ½ página \U0001F4DA";
  EXPECT_EQ(DecodeText(values::ToUtf8(text)), text);
}

}  // namespace
}  // namespace kodra::siblings
