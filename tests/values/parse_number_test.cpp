#include <gtest/gtest.h>

#include "values/erro.h"
#include "values/numbers.h"

namespace kodra::values {
namespace {

// Texts and the numbers that they are read as.
void ExpectNumbers(std::initializer_list<std::pair<const wchar_t*, double>> cases) {
  for (const auto& [text, number] : cases) EXPECT_EQ(ParseNumber(text), number) << text;
}

TEST(ParseNumber, ReadsTheDecimalCommaAndTheGroups) {
  ExpectNumbers({{L"1", 1},
                 {L"00012", 12},
                 {L"1,5", 1.5},
                 {L"1,", 1},
                 {L",5", 0.5},
                 {L"1.000", 1000},
                 {L"1.234.567,25", 1234567.25}});
}
TEST(ParseNumber, AGroupNeedNotHaveThreeDigits) {
  ExpectNumbers({{L"1.5", 15}, {L"1.0.0", 100}, {L"1..0", 10}, {L"1.,5", 1.5}});
}
TEST(ParseNumber, ReadsSignsOnEitherSideAndParentheses) {
  ExpectNumbers({{L"+1", 1}, {L"-1", -1}, {L"- 1", -1}, {L"1-", -1}, {L"(1)", -1}});
}
TEST(ParseNumber, ReadsTheCurrency) {
  ExpectNumbers({{L"R$ 10", 10}, {L"R$10", 10}, {L"10 R$", 10}, {L"-R$ 10,50", -10.5}});
}
TEST(ParseNumber, ReadsAnExponent) { ExpectNumbers({{L"1e2", 100}, {L"1,5E+2", 150}, {L"1E-1", 0.1}}); }
TEST(ParseNumber, ReadsHexadecimalAndOctal) {
  ExpectNumbers({{L"&H10", 16}, {L"&O10", 8}, {L"&HFFFF", 65535}, {L"&HFFFFFFFF", -1}});
}
TEST(ParseNumber, BlanksMayBeAround) { ExpectNumbers({{L" 1 ", 1}, {L"\t1\n", 1}}); }
TEST(ParseNumber, AnythingElseIsNoNumber) {
  for (const auto* text :
       {L"",           L" ",          L"abc", L"1a",      L".5",    L",",    L"1,2,3", L"1 000", L"10%",
        L"31/12/2023", L"Verdadeiro", L"1e",  L"1d2",     L"--1",   L"-1-",  L"(1",    L"1)",    L"(-1)",
        L"1,5,",       L"-",          L"R$",  L"R$ 1 R$", L"1e1,5", L"0x10", L"&H",    L"&HZ"}) {
    EXPECT_EQ(ParseNumber(text), std::nullopt) << text;
  }
}
TEST(ParseNumber, ReadsIntegersOfAnyLengthToTheNearestDouble) {
  ExpectNumbers({{L"999999999999999", 999999999999999.0},
                 {L"1234567890123456", 1234567890123456.0},
                 {L"9007199254740993", 9007199254740992.0},
                 {L"-000000000000000000007", -7},
                 {L"100000000000000000000", 1e20}});
}

TEST(ParseNumber, RaisesAnOverflowBeyondWhatADoubleHolds) {
  EXPECT_THROW(ParseNumber(L"1e400"), Erro);
  EXPECT_EQ(ParseNumber(L"1e-400"), 0);
}

}  // namespace
}  // namespace kodra::values
