// Reading, writing and rounding exact decimals.
#include "values/decimal.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/odbc/print_value.h"

namespace kodra::values {
namespace {

constexpr std::wstring_view kLargest = L"79228162514264337593543950335";

// The text read as a decimal and written again.
std::wstring ReadAndWritten(std::wstring_view text) {
  const std::optional<Decimal> number = ParseDecimal(text);
  return number ? PlainText(*number) : L"none";
}

// Texts, and the texts after reading and writing them.
void ExpectWritten(std::initializer_list<std::pair<std::wstring_view, std::wstring_view>> cases) {
  for (const auto& [text, written] : cases) EXPECT_EQ(ReadAndWritten(text), written) << testing::PrintToString(text);
}

TEST(DecimalNumbers, KeepEveryDigit) {
  EXPECT_EQ(ParseDecimal(L"12.50"), (Decimal{.low = 1250, .scale = 2}));
  EXPECT_EQ(ParseDecimal(L"-18446744073709551616"), (Decimal{.low = 0, .high = 1, .negative = true}));
  ExpectWritten({{L"123456789012345678", L"123456789012345678"},
                 {kLargest, kLargest},
                 {L"-7.9228162514264337593543950335", L"-7.9228162514264337593543950335"},
                 {L"0.0000000000000000000000000001", L"0.0000000000000000000000000001"},
                 {L".5", L"0.5"},
                 {L"5.", L"5"}});
}

TEST(DecimalNumbers, AreWrittenWithoutZerosAtTheEndOfTheirDecimals) {
  ExpectWritten({{L"1.500", L"1.5"}, {L"100.00", L"100"}, {L"100", L"100"}, {L"0.000", L"0"}, {L"-0.00", L"0"}});
  EXPECT_EQ(WithoutTrailingZeros({.low = 1500, .scale = 3}), (Decimal{.low = 15, .scale = 1}));
  EXPECT_EQ(WithoutTrailingZeros({.low = 0, .scale = 3}), Decimal{});
}

TEST(DecimalNumbers, RoundDecimalsThatDoNotFitToTheEvenNeighbour) {
  ExpectWritten({{L"0.00000000000000000000000000015", L"0.0000000000000000000000000002"},
                 {L"0.00000000000000000000000000025", L"0.0000000000000000000000000002"},
                 {L"0.000000000000000000000000000250001", L"0.0000000000000000000000000003"},
                 {L"79228162514264337593543950334.5", L"79228162514264337593543950334"},
                 {L"7922816251426433759354395033.56", L"7922816251426433759354395034"}});
}

TEST(DecimalNumbers, AreNotReadFromOtherTexts) {
  for (const wchar_t* text : {L"", L"-", L".", L"1,5", L"1e3", L"+1", L" 1", L"1.2.3", L"abc",
                              L"79228162514264337593543950336", L"79228162514264337593543950335.5"})
    EXPECT_EQ(ReadAndWritten(text), L"none") << testing::PrintToString(text);
}

TEST(DecimalNumbers, BecomeTheNearestDouble) {
  EXPECT_EQ(ToDouble(*ParseDecimal(L"12.50")), 12.5);
  EXPECT_EQ(ToDouble(*ParseDecimal(L"-0.0001")), -0.0001);
  EXPECT_EQ(ToDouble(*ParseDecimal(kLargest)), 79228162514264337593543950336.0);
}

TEST(DecimalNumbers, RoundToTheEvenWholeNumber) {
  const std::pair<const wchar_t*, std::optional<std::int64_t>> kCases[] = {
      {L"0.5", 0},
      {L"1.5", 2},
      {L"-2.5", -2},
      {L"-0.4", 0},
      {L"1.4999999999999999999999999999", 1},
      {L"2.5000000000000000000000000001", 3},
      {L"9223372036854775807.4", std::numeric_limits<std::int64_t>::max()},
      {L"9223372036854775807.5", std::nullopt},
      {L"-9223372036854775808", std::numeric_limits<std::int64_t>::min()},
      {L"18446744073709551616", std::nullopt},
  };
  for (const auto& [text, number] : kCases) EXPECT_EQ(RoundToInteger(*ParseDecimal(text)), number) << text;
}

TEST(CurrencyAmounts, AreDecimalsOfFourPlaces) {
  EXPECT_EQ(PlainText(ToDecimal({-1})), L"-0.0001");
  EXPECT_EQ(PlainText(ToDecimal({125000})), L"12.5");
  EXPECT_EQ(PlainText(ToDecimal({std::numeric_limits<std::int64_t>::min()})), L"-922337203685477.5808");
  EXPECT_EQ(PlainText(ToDecimal({std::numeric_limits<std::int64_t>::max()})), L"922337203685477.5807");
}

TEST(CurrencyAmounts, AreRoundedFromDecimalsToTheEvenTenThousandth) {
  EXPECT_EQ(ToCurrency(*ParseDecimal(L"12.5")), Currency{125000});
  EXPECT_EQ(ToCurrency(*ParseDecimal(L"0.00005")), Currency{0});
  EXPECT_EQ(ToCurrency(*ParseDecimal(L"-0.00015")), Currency{-2});
  EXPECT_EQ(ToCurrency(*ParseDecimal(L"922337203685477.5807")), Currency{std::numeric_limits<std::int64_t>::max()});
  EXPECT_EQ(ToCurrency(*ParseDecimal(L"922337203685477.5808")), std::nullopt);
  EXPECT_EQ(ToCurrency(*ParseDecimal(kLargest)), std::nullopt);
}

}  // namespace
}  // namespace kodra::values
