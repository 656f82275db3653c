#include "values/utf8.h"

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace kodra::values
