#include <gtest/gtest.h>

#include "values/erro.h"
#include "values/numbers.h"

namespace kodra::values {
namespace {

TEST(ParseNumber, ReadsTheDecimalCommaAndTheGroups) {
  EXPECT_EQ(ParseNumber(L"1"), 1);
  EXPECT_EQ(ParseNumber(L"00012"), 12);
  EXPECT_EQ(ParseNumber(L"1,5"), 1.5);
  EXPECT_EQ(ParseNumber(L"1,"), 1);
  EXPECT_EQ(ParseNumber(L",5"), 0.5);
  EXPECT_EQ(ParseNumber(L"1.000"), 1000);
  EXPECT_EQ(ParseNumber(L"1.234.567,25"), 1234567.25);
}
TEST(ParseNumber, AGroupNeedNotHaveThreeDigits) {
  EXPECT_EQ(ParseNumber(L"1.5"), 15);
  EXPECT_EQ(ParseNumber(L"1.0.0"), 100);
  EXPECT_EQ(ParseNumber(L"1..0"), 10);
  EXPECT_EQ(ParseNumber(L"1.,5"), 1.5);
}
TEST(ParseNumber, ReadsSignsOnEitherSideAndParentheses) {
  EXPECT_EQ(ParseNumber(L"+1"), 1);
  EXPECT_EQ(ParseNumber(L"-1"), -1);
  EXPECT_EQ(ParseNumber(L"- 1"), -1);
  EXPECT_EQ(ParseNumber(L"1-"), -1);
  EXPECT_EQ(ParseNumber(L"(1)"), -1);
}
TEST(ParseNumber, ReadsTheCurrency) {
  EXPECT_EQ(ParseNumber(L"R$ 10"), 10);
  EXPECT_EQ(ParseNumber(L"R$10"), 10);
  EXPECT_EQ(ParseNumber(L"10 R$"), 10);
  EXPECT_EQ(ParseNumber(L"-R$ 10,50"), -10.5);
}
TEST(ParseNumber, ReadsAnExponent) {
  EXPECT_EQ(ParseNumber(L"1e2"), 100);
  EXPECT_EQ(ParseNumber(L"1,5E+2"), 150);
  EXPECT_EQ(ParseNumber(L"1E-1"), 0.1);
}
TEST(ParseNumber, ReadsHexadecimalAndOctal) {
  EXPECT_EQ(ParseNumber(L"&H10"), 16);
  EXPECT_EQ(ParseNumber(L"&O10"), 8);
  EXPECT_EQ(ParseNumber(L"&HFFFF"), 65535);
  EXPECT_EQ(ParseNumber(L"&HFFFFFFFF"), -1);
}
TEST(ParseNumber, BlanksMayStandAround) {
  EXPECT_EQ(ParseNumber(L" 1 "), 1);
  EXPECT_EQ(ParseNumber(L"\t1\n"), 1);
}
TEST(ParseNumber, AnythingElseIsNoNumber) {
  for (const auto* text :
       {L"",           L" ",          L"abc", L"1a",      L".5",    L",",    L"1,2,3", L"1 000", L"10%",
        L"31/12/2023", L"Verdadeiro", L"1e",  L"1d2",     L"--1",   L"-1-",  L"(1",    L"1)",    L"(-1)",
        L"1,5,",       L"-",          L"R$",  L"R$ 1 R$", L"1e1,5", L"0x10", L"&H",    L"&HZ"}) {
    EXPECT_EQ(ParseNumber(text), std::nullopt) << text;
  }
}
TEST(ParseNumber, ReadsIntegersOfAnyLengthToTheNearestDouble) {
  EXPECT_EQ(ParseNumber(L"999999999999999"), 999999999999999.0);
  EXPECT_EQ(ParseNumber(L"1234567890123456"), 1234567890123456.0);
  EXPECT_EQ(ParseNumber(L"9007199254740993"), 9007199254740992.0);
  EXPECT_EQ(ParseNumber(L"-000000000000000000007"), -7);
  EXPECT_EQ(ParseNumber(L"100000000000000000000"), 1e20);
}

TEST(ParseNumber, RaisesAnOverflowBeyondWhatADoubleHolds) {
  EXPECT_THROW(ParseNumber(L"1e400"), Erro);
  EXPECT_EQ(ParseNumber(L"1e-400"), 0);
}

}  // namespace
}  // namespace kodra::values
