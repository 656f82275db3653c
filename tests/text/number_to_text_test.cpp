#include <gtest/gtest.h>

#include <limits>

#include "text/numbers.h"

namespace kodra::text {
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
TEST(NumberToText, WritesWhatIsNoFiniteNumber) {
  EXPECT_EQ(NumberToText(std::numeric_limits<double>::infinity()), L"1,#INF");
  EXPECT_EQ(NumberToText(-std::numeric_limits<double>::infinity()), L"-1,#INF");
  EXPECT_EQ(NumberToText(std::numeric_limits<double>::quiet_NaN()), L"-1,#IND");
}
TEST(NumberToText, WritesIntegersInFull) {
  EXPECT_EQ(NumberToText(std::numeric_limits<std::int32_t>::min()), L"-2147483648");
  EXPECT_EQ(NumberToText(std::int32_t{0}), L"0");
  EXPECT_EQ(NumberToText(std::numeric_limits<std::int64_t>::min()), L"-9223372036854775808");
  EXPECT_EQ(NumberToText(std::numeric_limits<std::int64_t>::max()), L"9223372036854775807");
}

}  // namespace
}  // namespace kodra::text
