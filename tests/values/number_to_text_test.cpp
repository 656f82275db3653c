#include <gtest/gtest.h>

#include <limits>

#include "values/numbers.h"

namespace kodra::values {
namespace {

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
