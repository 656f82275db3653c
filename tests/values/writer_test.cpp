#include "values/writer.h"

#include <gtest/gtest.h>

namespace kodra::values {
namespace {

// Writes its number of asterisks.
struct Stars {
  int count;
  void WriteTo(Writer& out) const {
    for (int i = 0; i < count; ++i) out.Append(L"*");
  }
};

TEST(LocalText, HoldsItsPiecesOneAfterTheOther) {
  const std::wstring middle = L"b";
  EXPECT_EQ(LocalText<10>(L"a", middle, L"", std::wstring_view(L"c"), Stars{2}).View(), L"abc**");
  EXPECT_EQ(LocalText<10>().View(), L"");
  EXPECT_TRUE(LocalText<10>().empty());
}

TEST(LocalText, HoldsAZeroCharacterOfATextButNoneOfALiteral) {
  LocalText<10> text(L"ab");
  text.Append(std::wstring(L"c\0d", 3));
  EXPECT_EQ(text.View(), std::wstring_view(L"abc\0d", 5));
}

TEST(LocalText, OutgrowsItsRoomAndKeepsWhatItHolds) {
  LocalText<4> text(L"abcd");
  EXPECT_EQ(text.View(), L"abcd");
  text.Append(L"e");
  EXPECT_EQ(text.View(), L"abcde");
  std::wstring expected = L"abcde";
  for (int i = 0; i < 1000; ++i) {
    text.Append(L"xyz");
    expected += L"xyz";
  }
  EXPECT_EQ(text.View(), expected);
}

TEST(LocalText, CopiesStandOnTheirOwnWhateverTheirLength) {
  for (const std::wstring& content : {std::wstring(L"ab"), std::wstring(100, L'x')}) {
    LocalText<4> text(content);
    const LocalText<4> copy = text;
    text.Append(L"!");
    EXPECT_EQ(copy.View(), content);
    EXPECT_EQ(text.View(), content + L"!");
  }
}

TEST(LocalText, LetsItsEndBeWrittenInPlace) {
  LocalText<4> text(L"ab");
  text.AppendUpTo(3, [](wchar_t* end) {
    *end++ = L'c';
    return end;
  });
  text.AppendUpTo(0, [](wchar_t* end) { return end; });
  EXPECT_EQ(text.View(), L"abc");
}

TEST(LocalText, LosesItsEnd) {
  LocalText<10> text(L"abc");
  text.Truncate(1);
  text.Append(L"d");
  EXPECT_EQ(text.View(), L"ad");
}

TEST(LocalText, LosesCharactersAnywhere) {
  LocalText<10> text(L"abcdef");
  text.Erase(1, 2);
  EXPECT_EQ(text.View(), L"adef");
  text.Erase(2, 2);
  EXPECT_EQ(text.View(), L"ad");
  text.Erase(0, 0);
  EXPECT_EQ(text.View(), L"ad");
  text.Erase(0, 2);
  EXPECT_EQ(text.View(), L"");
}

TEST(LocalText, HasItsEndMovedAmongTheRest) {
  LocalText<10> text(L"abcdeXY");
  text.MoveEnd(5, 2);
  EXPECT_EQ(text.View(), L"abXYcde");
  text.MoveEnd(7, 0);
  EXPECT_EQ(text.View(), L"abXYcde");
  text.MoveEnd(6, 0);
  EXPECT_EQ(text.View(), L"eabXYcd");
}

TEST(LocalText, MayBeBuiltWhenTheProgramIsCompiled) {
  static_assert(LocalText<3>(L"a", std::wstring_view(L"bc"), Written([](Writer& out) { out.Append(L"de"); })).View() ==
                L"abcde");
}

TEST(Written, IsWrittenAsOftenAsItIsAppended) {
  int times = 0;
  const Written fragment([&times](Writer& out) {
    ++times;
    out.Append(L"x");
  });
  EXPECT_EQ(times, 0);
  EXPECT_EQ(LocalText<10>(fragment, fragment).View(), L"xx");
  EXPECT_EQ(times, 2);
}

TEST(ToString, IsTheFragmentAlone) { EXPECT_EQ(ToString(Stars{300}), std::wstring(300, L'*')); }

}  // namespace
}  // namespace kodra::values
