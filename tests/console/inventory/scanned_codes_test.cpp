#include "console/inventory/scanned_codes.h"

#include <gtest/gtest.h>

#include "tests/console/failing.h"

namespace kodra::console::inventory {
namespace {

using Codes = std::vector<std::wstring>;

Codes Of(std::string_view bytes) { return ScannedCodes(bytes, "\"lidos.txt\""); }

std::string RefusalFor(std::string_view bytes) {
  return RefusalOf([&] { Of(bytes); });
}

TEST(ScannedCodes, EndWithAnyLineEndOrNone) {
  EXPECT_EQ(Of("1\n2\r\n3\r4"), (Codes{L"1", L"2", L"3", L"4"}));
  EXPECT_EQ(Of("1\n"), Codes{L"1"});
}

TEST(ScannedCodes, LeaveOutBlanksEmptyLinesAndTheByteOrderMark) {
  EXPECT_EQ(Of("\xEF\xBB\xBF  1\t\r\n\r\n \t\r\n\t2 3 \n\n"), (Codes{L"1", L"2 3"}));
}

TEST(ScannedCodes, AreListedOnceInTheOrderOfTheReading) { EXPECT_EQ(Of("B\nA\nb\nA\nB\n"), (Codes{L"B", L"A", L"b"})); }

TEST(ScannedCodes, MayHaveAnyLetters) { EXPECT_EQ(Of("AÇÃO-1\n"), Codes{L"AÇÃO-1"}); }

TEST(ScannedCodes, MustBeThere) {
  EXPECT_EQ(RefusalFor(""), "\"lidos.txt\" não tem nenhum código");
  EXPECT_EQ(RefusalFor("\xEF\xBB\xBF \r\n\t\n"), "\"lidos.txt\" não tem nenhum código");
}

TEST(ScannedCodes, AreTextAndNotOtherBytes) {
  const std::string reason = " não é texto; grave a lista como texto, em UTF-8, com um código por linha";
  const std::string start = "\"lidos.txt\" não é uma lista de códigos: a linha ";
  EXPECT_EQ(RefusalFor({"1\r\n2\0\r\n", 7}), start + "2" + reason);
  // A list in UTF-16.
  EXPECT_EQ(RefusalFor({"\xFF\xFE"
                        "1\0\r\0",
                        6}),
            start + "1" + reason);
  EXPECT_EQ(RefusalFor("1\n\n\x1B[2J\n"), start + "3" + reason);
}

TEST(ScannedCodes, HaveAtMostAHundredCharacters) {
  std::string longest;
  for (int i = 0; i < 100; ++i) longest += "ã";
  EXPECT_EQ(Of("  " + longest + "\n"), Codes{std::wstring(100, L'ã')});
  EXPECT_EQ(RefusalFor("1\n" + longest + "ã\n"),
            "\"lidos.txt\" não é uma lista de códigos: a linha 2 tem mais de 100 caracteres");
}

}  // namespace
}  // namespace kodra::console::inventory
