#include <gtest/gtest.h>

#include "values/erro.h"
#include "values/numbers.h"

namespace kodra::values {
namespace {

std::int32_t ErrorOf(std::wstring_view text) {
  try {
    LeadingNumber(text);
  } catch (const Erro& erro) {
    return erro.Number();
  }
  return 0;
}

TEST(LeadingNumber, StopsAtTheFirstCharacterThatBelongsToNoNumber) {
  EXPECT_EQ(LeadingNumber(L"12"), 12);
  EXPECT_EQ(LeadingNumber(L"12abc"), 12);
  EXPECT_EQ(LeadingNumber(L"07"), 7);
  EXPECT_EQ(LeadingNumber(L"1.2.3"), 1.2);
  EXPECT_EQ(LeadingNumber(L"1,5"), 1);
  EXPECT_EQ(LeadingNumber(L"1-2"), 1);
}
TEST(LeadingNumber, IsZeroWhenTheTextBeginsWithNone) {
  for (const auto* text : {L"", L" ", L"abc", L"-", L"+", L".", L"-.", L"e5", L"--1", L"&", L"&H", L"&HZ", L",5"}) {
    EXPECT_EQ(LeadingNumber(text), 0) << text;
  }
}
TEST(LeadingNumber, PassesOverBlanksTabsAndLineEnds) {
  EXPECT_EQ(LeadingNumber(L"  1 2\t3\r\n4 x 5"), 1234);
  EXPECT_EQ(LeadingNumber(L" - 5"), -5);
  EXPECT_EQ(LeadingNumber(L"1 . 5"), 1.5);
}
TEST(LeadingNumber, ReadsSignsAndThePoint) {
  EXPECT_EQ(LeadingNumber(L"-3"), -3);
  EXPECT_EQ(LeadingNumber(L"+3"), 3);
  EXPECT_EQ(LeadingNumber(L".5"), 0.5);
  EXPECT_EQ(LeadingNumber(L"-.5"), -0.5);
  EXPECT_EQ(LeadingNumber(L"5."), 5);
}
TEST(LeadingNumber, ReadsAWholeExponentOnly) {
  EXPECT_EQ(LeadingNumber(L"1e2"), 100);
  EXPECT_EQ(LeadingNumber(L"1E+2"), 100);
  EXPECT_EQ(LeadingNumber(L"1e-2"), 0.01);
  EXPECT_EQ(LeadingNumber(L"1d2"), 100);
  EXPECT_EQ(LeadingNumber(L"1D2"), 100);
  EXPECT_EQ(LeadingNumber(L"1e"), 1);
  EXPECT_EQ(LeadingNumber(L"1e+"), 1);
  EXPECT_EQ(LeadingNumber(L"1ex"), 1);
}
TEST(LeadingNumber, ReadsHexadecimalAndOctalAsSignedIntegers) {
  EXPECT_EQ(LeadingNumber(L"&H1F"), 31);
  EXPECT_EQ(LeadingNumber(L"&h1fz"), 31);
  EXPECT_EQ(LeadingNumber(L"&O17"), 15);
  EXPECT_EQ(LeadingNumber(L"&o18"), 1);
  EXPECT_EQ(LeadingNumber(L"&H7FFF"), 32767);
  EXPECT_EQ(LeadingNumber(L"&HFFFF"), -1);
  EXPECT_EQ(LeadingNumber(L"&HFFFF&"), 65535);
  EXPECT_EQ(LeadingNumber(L"&H10000"), 65536);
  EXPECT_EQ(LeadingNumber(L"&HFFFFFFFF"), -1);
}
TEST(LeadingNumber, RaisesAnOverflowBeyondWhatANumberHolds) {
  EXPECT_EQ(ErrorOf(L"1e400"), 6);
  EXPECT_EQ(ErrorOf(L"-1e400"), 6);
  EXPECT_EQ(ErrorOf(L"1e99999999999999999999"), 6);
  EXPECT_EQ(ErrorOf(std::wstring(400, L'9')), 6);
  EXPECT_EQ(ErrorOf(L"&H100000000"), 6);
}
TEST(LeadingNumber, TooSmallANumberIsZero) {
  EXPECT_EQ(LeadingNumber(L"1e-400"), 0);
  EXPECT_EQ(LeadingNumber(L"1e-99999999999999999999"), 0);
  EXPECT_EQ(LeadingNumber(L"0." + std::wstring(400, L'0') + L"1"), 0);
  EXPECT_EQ(LeadingNumber(L"0e400"), 0);
  EXPECT_EQ(LeadingNumber(L"0e99999999999999999999"), 0);
}

}  // namespace
}  // namespace kodra::values
