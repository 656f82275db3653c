#include "console/command_line/text_lines.h"

#include <gtest/gtest.h>

namespace kodra::console {
namespace {

using Lines = std::vector<std::string_view>;

TEST(TextLines, EndWithCrLfOrBothAndTheLastOneWithNothing) {
  EXPECT_EQ(TrimmedLines("1\n2\r\n3\r4"), (Lines{"1", "2", "3", "4"}));
  EXPECT_EQ(TrimmedLines("1\n"), Lines{"1"});
  EXPECT_EQ(TrimmedLines(""), Lines{});
}

TEST(TextLines, HaveNoBlanksAroundThemAndMayBeEmpty) {
  EXPECT_EQ(TrimmedLines("\n \t \n\t1 2 \r\n"), (Lines{"", "", "1 2"}));
}

TEST(TextLines, BeginBehindTheByteOrderMark) {
  EXPECT_EQ(TrimmedLines("\xEF\xBB\xBF 1"), Lines{"1"});
  EXPECT_EQ(WithoutByteOrderMark("\xEF\xBB\xBF 1"), " 1");
  EXPECT_EQ(WithoutByteOrderMark("\xEF\xBB"), "\xEF\xBB");
}

}  // namespace
}  // namespace kodra::console
