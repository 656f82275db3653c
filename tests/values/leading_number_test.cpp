#include <gtest/gtest.h>

#include "tests/recorder/raised.h"
#include "values/numbers.h"

namespace kodra::values {
namespace {

// Texts and the numbers that they begin with.
void ExpectNumbers(std::initializer_list<std::pair<const wchar_t*, double>> cases) {
  for (const auto& [text, number] : cases) EXPECT_EQ(LeadingNumber(text), number) << text;
}

TEST(LeadingNumber, StopsAtTheFirstCharacterThatBelongsToNoNumber) {
  ExpectNumbers({{L"12", 12}, {L"12abc", 12}, {L"07", 7}, {L"1.2.3", 1.2}, {L"1,5", 1}, {L"1-2", 1}});
}
TEST(LeadingNumber, IsZeroWhenTheTextBeginsWithNone) {
  for (const auto* text : {L"", L" ", L"abc", L"-", L"+", L".", L"-.", L"e5", L"--1", L"&", L"&H", L"&HZ", L",5"}) {
    EXPECT_EQ(LeadingNumber(text), 0) << text;
  }
}
TEST(LeadingNumber, PassesOverBlanksTabsAndLineEnds) {
  ExpectNumbers({{L"  1 2\t3\r\n4 x 5", 1234}, {L" - 5", -5}, {L"1 . 5", 1.5}});
}
TEST(LeadingNumber, ReadsSignsAndThePoint) {
  ExpectNumbers({{L"-3", -3}, {L"+3", 3}, {L".5", 0.5}, {L"-.5", -0.5}, {L"5.", 5}});
}
TEST(LeadingNumber, ReadsAWholeExponentOnly) {
  ExpectNumbers({{L"1e2", 100},
                 {L"1E+2", 100},
                 {L"1e-2", 0.01},
                 {L"1d2", 100},
                 {L"1D2", 100},
                 {L"1e", 1},
                 {L"1e+", 1},
                 {L"1ex", 1}});
}
TEST(LeadingNumber, ReadsHexadecimalAndOctalAsSignedIntegers) {
  ExpectNumbers({{L"&H1F", 31},
                 {L"&h1fz", 31},
                 {L"&O17", 15},
                 {L"&o18", 1},
                 {L"&H7FFF", 32767},
                 {L"&HFFFF", -1},
                 {L"&HFFFF&", 65535},
                 {L"&H10000", 65536},
                 {L"&HFFFFFFFF", -1}});
}
TEST(LeadingNumber, RaisesAnOverflowBeyondWhatANumberHolds) {
  for (const std::wstring& text :
       {std::wstring(L"1e400"), std::wstring(L"-1e400"), std::wstring(L"1e99999999999999999999"),
        std::wstring(400, L'9'), std::wstring(L"&H100000000")})
    EXPECT_EQ(recorder::RaisedBy([&] { LeadingNumber(text); }), recorder::kOverflow) << text;
}
TEST(LeadingNumber, TooSmallANumberIsZero) {
  ExpectNumbers({{L"1e-400", 0}, {L"1e-99999999999999999999", 0}});
  EXPECT_EQ(LeadingNumber(L"0." + std::wstring(400, L'0') + L"1"), 0);
  ExpectNumbers({{L"0e400", 0}, {L"0e99999999999999999999", 0}});
}

}  // namespace
}  // namespace kodra::values
