// Numbers read from text, and written as text.
#include "values/numbers.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/odbc/print_value.h"
#include "tests/recorder/raised.h"

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
  EXPECT_EQ(recorder::RaisedBy([] { ParseNumber(L"1e400"); }), recorder::kOverflow);
  EXPECT_EQ(ParseNumber(L"1e-400"), 0);
}

// Texts and the values that they are read as.
void ExpectInvariantNumbers(std::initializer_list<std::pair<const wchar_t*, Value>> cases) {
  for (const auto& [text, value] : cases) EXPECT_EQ(ParseInvariantNumber(text), value) << text;
}

TEST(ParseInvariantNumber, TakesTheNarrowestTypeThatHoldsTheNumber) {
  ExpectInvariantNumbers({{L"-5", -5},
                          {L"007", 7},
                          {L"2147483647", 2147483647},
                          {L"2147483648", std::int64_t{2147483648}},
                          {L"-2147483649", std::int64_t{-2147483649}},
                          {L"18446744073709551615", std::uint64_t{18446744073709551615U}},
                          {L"18446744073709551616", 18446744073709551616.0},
                          {L"-9223372036854775809", -9223372036854775808.0}});
}

TEST(ParseInvariantNumber, APointOrAnExponentMakesADouble) {
  ExpectInvariantNumbers(
      {{L"1.0", 1.0}, {L"-0.5", -0.5}, {L".5", 0.5}, {L"5.", 5.0}, {L"1e3", 1000.0}, {L"25E-1", 2.5}, {L"0.1", 0.1}});
}

TEST(ParseInvariantNumber, TextThatOnlyLooksLikeANumberIsNone) {
  for (const wchar_t* text : {L"",    L" 5",  L"5 ",  L"+5",   L"--5",  L"-", L".",     L"1.2.3", L"e5",  L"1e", L"1e+",
                              L"1d2", L"inf", L"nan", L"0x10", L"&H10", L"٣", L"1e999", L"1,5",   L"R$5", L"(5)"}) {
    EXPECT_EQ(ParseInvariantNumber(text), std::nullopt) << text;
  }
  EXPECT_EQ(ParseInvariantNumber(std::wstring(1000, L'9')), std::nullopt);
}

TEST(ParseInvariantNumber, TooSmallANumberIsZero) { ExpectInvariantNumbers({{L"1e-400", 0.0}}); }

// Texts and the numbers that they begin with.
void ExpectLeadingNumbers(std::initializer_list<std::pair<const wchar_t*, double>> cases) {
  for (const auto& [text, number] : cases) EXPECT_EQ(LeadingNumber(text), number) << text;
}

TEST(LeadingNumber, StopsAtTheFirstCharacterThatBelongsToNoNumber) {
  ExpectLeadingNumbers({{L"12", 12}, {L"12abc", 12}, {L"07", 7}, {L"1.2.3", 1.2}, {L"1,5", 1}, {L"1-2", 1}});
}
TEST(LeadingNumber, IsZeroWhenTheTextBeginsWithNone) {
  for (const auto* text : {L"", L" ", L"abc", L"-", L"+", L".", L"-.", L"e5", L"--1", L"&", L"&H", L"&HZ", L",5"}) {
    EXPECT_EQ(LeadingNumber(text), 0) << text;
  }
}
TEST(LeadingNumber, PassesOverBlanksTabsAndLineEnds) {
  ExpectLeadingNumbers({{L"  1 2\t3\r\n4 x 5", 1234}, {L" - 5", -5}, {L"1 . 5", 1.5}});
}
TEST(LeadingNumber, ReadsSignsAndThePoint) {
  ExpectLeadingNumbers({{L"-3", -3}, {L"+3", 3}, {L".5", 0.5}, {L"-.5", -0.5}, {L"5.", 5}});
}
TEST(LeadingNumber, ReadsAWholeExponentOnly) {
  ExpectLeadingNumbers({{L"1e2", 100},
                        {L"1E+2", 100},
                        {L"1e-2", 0.01},
                        {L"1d2", 100},
                        {L"1D2", 100},
                        {L"1e", 1},
                        {L"1e+", 1},
                        {L"1ex", 1}});
}
TEST(LeadingNumber, ReadsHexadecimalAndOctalAsSignedIntegers) {
  ExpectLeadingNumbers({{L"&H1F", 31},
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
  ExpectLeadingNumbers({{L"1e-400", 0}, {L"1e-99999999999999999999", 0}});
  EXPECT_EQ(LeadingNumber(L"0." + std::wstring(400, L'0') + L"1"), 0);
  ExpectLeadingNumbers({{L"0e400", 0}, {L"0e99999999999999999999", 0}});
}

TEST(NumberToText, WritesADecimalComma) {
  EXPECT_EQ(NumberToText(1.5), L"1,5");
  EXPECT_EQ(NumberToText(-2.25), L"-2,25");
  EXPECT_EQ(NumberToText(0.1), L"0,1");
  EXPECT_EQ(NumberToText(1234567.89), L"1234567,89");
}
TEST(NumberToText, WritesWholeNumbersWithoutAComma) {
  EXPECT_EQ(NumberToText(0.0), L"0");
  EXPECT_EQ(NumberToText(-0.0), L"0");
  EXPECT_EQ(NumberToText(1.0), L"1");
  EXPECT_EQ(NumberToText(100.0), L"100");
  EXPECT_EQ(NumberToText(123456789012345.0), L"123456789012345");
}
TEST(NumberToText, WritesUpToFifteenSignificantDigits) {
  EXPECT_EQ(NumberToText(1.0 / 3), L"0,333333333333333");
  EXPECT_EQ(NumberToText(2.0 / 3), L"0,666666666666667");
  EXPECT_EQ(NumberToText(0.1 + 0.2), L"0,3");
  EXPECT_EQ(NumberToText(999999999999999.9), L"1E+15");
}
TEST(NumberToText, LargeNumbersHaveAnExponentFrom1E15On) {
  EXPECT_EQ(NumberToText(1e14), L"100000000000000");
  EXPECT_EQ(NumberToText(1e15), L"1E+15");
  EXPECT_EQ(NumberToText(1e20), L"1E+20");
  EXPECT_EQ(NumberToText(1234567890123456.0), L"1,23456789012346E+15");
  EXPECT_EQ(NumberToText(1e100), L"1E+100");
  EXPECT_EQ(NumberToText(-1.5e300), L"-1,5E+300");
}
TEST(NumberToText, SmallNumbersHaveAnExponentWhenFifteenDecimalsAreTooFew) {
  EXPECT_EQ(NumberToText(1e-5), L"0,00001");
  EXPECT_EQ(NumberToText(1e-14), L"0,00000000000001");
  EXPECT_EQ(NumberToText(1e-15), L"1E-15");
  EXPECT_EQ(NumberToText(1.5e-14), L"0,000000000000015");
  EXPECT_EQ(NumberToText(1.25e-14), L"1,25E-14");
  EXPECT_EQ(NumberToText(1.25e-13), L"0,000000000000125");
  EXPECT_EQ(NumberToText(75.0 / 1000), L"0,075");
  EXPECT_EQ(NumberToText(75.0 / 999), L"7,50750750750751E-02");
  EXPECT_EQ(NumberToText(3.5 / 42), L"8,33333333333333E-02");
  EXPECT_EQ(NumberToText(1.0 / 30), L"3,33333333333333E-02");
  EXPECT_EQ(NumberToText(1.23456789012345e-4), L"1,23456789012345E-04");
  EXPECT_EQ(NumberToText(1.23456789012345e-5), L"1,23456789012345E-05");
  EXPECT_EQ(NumberToText(1e-100), L"1E-100");
  EXPECT_EQ(NumberToText(4.9406564584124654e-324), L"4,94065645841247E-324");
}
TEST(NumberToText, WritesInfinitiesAndNotANumber) {
  EXPECT_EQ(NumberToText(std::numeric_limits<double>::infinity()), L"1,#INF");
  EXPECT_EQ(NumberToText(-std::numeric_limits<double>::infinity()), L"-1,#INF");
  EXPECT_EQ(NumberToText(std::numeric_limits<double>::quiet_NaN()), L"-1,#IND");
}
TEST(NumberToText, WritesIntegersInFull) {
  EXPECT_EQ(NumberToText(std::numeric_limits<std::int32_t>::min()), L"-2147483648");
  EXPECT_EQ(NumberToText(std::int32_t{0}), L"0");
  EXPECT_EQ(NumberToText(std::numeric_limits<std::int64_t>::min()), L"-9223372036854775808");
  EXPECT_EQ(NumberToText(std::numeric_limits<std::int64_t>::max()), L"9223372036854775807");
  EXPECT_EQ(NumberToText(std::numeric_limits<std::uint64_t>::max()), L"18446744073709551615");
}
TEST(NumberToText, ASingleHasSevenSignificantDigits) {
  EXPECT_EQ(NumberToText(0.1F), L"0,1");
  EXPECT_EQ(NumberToText(1.5F), L"1,5");
  EXPECT_EQ(NumberToText(-0.25F), L"-0,25");
  EXPECT_EQ(NumberToText(-0.0F), L"0");
  EXPECT_EQ(NumberToText(1.0F / 3), L"0,3333333");
  EXPECT_EQ(NumberToText(2.0F / 3), L"0,6666667");
  EXPECT_EQ(NumberToText(1234.5678F), L"1234,568");
  EXPECT_EQ(NumberToText(9999999.0F), L"9999999");
}
TEST(NumberToText, ASingleHasAnExponentFrom1E07OnAndBeyondSevenDecimals) {
  EXPECT_EQ(NumberToText(1e6F), L"1000000");
  EXPECT_EQ(NumberToText(1e7F), L"1E+07");
  EXPECT_EQ(NumberToText(16777216.0F), L"1,677722E+07");
  EXPECT_EQ(NumberToText(999999.97F), L"1000000");
  EXPECT_EQ(NumberToText(-3.4028235e38F), L"-3,402823E+38");
  EXPECT_EQ(NumberToText(0.05F), L"0,05");
  EXPECT_EQ(NumberToText(0.00001F), L"0,00001");
  EXPECT_EQ(NumberToText(0.0000125F), L"0,0000125");
  EXPECT_EQ(NumberToText(1.0F / 30), L"3,333334E-02");
  EXPECT_EQ(NumberToText(1.234567e-4F), L"1,234567E-04");
  EXPECT_EQ(NumberToText(1e-20F), L"1E-20");
}
TEST(NumberToText, ASingleThatIsNotFiniteIsWrittenLikeADouble) {
  EXPECT_EQ(NumberToText(std::numeric_limits<float>::infinity()), L"1,#INF");
  EXPECT_EQ(NumberToText(std::numeric_limits<float>::quiet_NaN()), L"-1,#IND");
}
TEST(NumberToText, ACurrencyKeepsItsFourDecimals) {
  EXPECT_EQ(NumberToText(Currency{}), L"0");
  EXPECT_EQ(NumberToText(Currency{123400}), L"12,34");
  EXPECT_EQ(NumberToText(Currency{10000000}), L"1000");
  EXPECT_EQ(NumberToText(Currency{-1}), L"-0,0001");
  EXPECT_EQ(NumberToText(Currency{std::numeric_limits<std::int64_t>::max()}), L"922337203685477,5807");
  EXPECT_EQ(NumberToText(Currency{std::numeric_limits<std::int64_t>::min()}), L"-922337203685477,5808");
}
TEST(NumberToText, ADecimalKeepsAllItsDigits) {
  constexpr std::uint64_t kLow = std::numeric_limits<std::uint64_t>::max();
  constexpr std::uint32_t kHigh = std::numeric_limits<std::uint32_t>::max();
  EXPECT_EQ(NumberToText(Decimal{.low = 123456789012345678U}), L"123456789012345678");
  EXPECT_EQ(NumberToText(Decimal{.low = kLow, .high = kHigh}), L"79228162514264337593543950335");
  EXPECT_EQ(NumberToText(Decimal{.low = kLow, .high = kHigh, .scale = 28, .negative = true}),
            L"-7,9228162514264337593543950335");
  EXPECT_EQ(NumberToText(Decimal{.low = 1, .scale = 28}), L"0,0000000000000000000000000001");
  EXPECT_EQ(NumberToText(Decimal{.low = 1500, .scale = 3}), L"1,5");
  EXPECT_EQ(NumberToText(Decimal{.low = 1000}), L"1000");
  EXPECT_EQ(NumberToText(Decimal{.scale = 2, .negative = true}), L"0");
}

}  // namespace
}  // namespace kodra::values
