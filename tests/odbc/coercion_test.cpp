#include "odbc/engine/coercion.h"

#include <gtest/gtest.h>

#include <limits>

#include "odbc/engine/types.h"
#include "tests/odbc/print_value.h"

namespace kodra::odbc {

namespace ad = platform::ad;
namespace {

using Held = std::optional<Value>;

TEST(Coercion, TextFitsUpToItsSizeAndNotOneCharacterMore) {
  EXPECT_EQ(Coerce(L"ação", ad::kVarChar, 4), Held(L"ação"));
  EXPECT_EQ(Coerce(L"ações", ad::kVarChar, 4), std::nullopt);
}

TEST(Coercion, SizeZeroIsUnlimited) {
  EXPECT_EQ(Coerce(std::wstring(5000, L'x'), ad::kLongVarWChar, 0), Held(std::wstring(5000, L'x')));
}

TEST(Coercion, NumbersDatesAndBooleansBecomeText) {
  EXPECT_EQ(Coerce(42, ad::kVarChar, 10), Held(L"42"));
  EXPECT_EQ(Coerce(std::int64_t{9000000000}, ad::kVarChar, 10), Held(L"9000000000"));
  EXPECT_EQ(Coerce(std::uint64_t{18446744073709551615U}, ad::kVarChar, 20), Held(L"18446744073709551615"));
  EXPECT_EQ(Coerce(0.1F, ad::kVarChar, 10), Held(L"0.1"));
  EXPECT_EQ(Coerce(1.5, ad::kVarChar, 10), Held(L"1.5"));
  EXPECT_EQ(Coerce(Currency{-1}, ad::kVarChar, 10), Held(L"-0.0001"));
  EXPECT_EQ(Coerce(Decimal{.low = 1250, .scale = 2}, ad::kVarChar, 10), Held(L"12.5"));
  EXPECT_EQ(Coerce(true, ad::kVarChar, 10), Held(L"True"));
  EXPECT_EQ(Coerce(Date{43832}, ad::kVarChar, 10), Held(L"2020-01-02"));
}

TEST(Coercion, TheTextOfANumberTooLongForItsSizeDoesNotFit) {
  EXPECT_EQ(Coerce(123456, ad::kVarChar, 5), std::nullopt);
}

TEST(Coercion, EmptyIsTheZeroOfEachType) {
  EXPECT_EQ(Coerce(Empty{}, ad::kVarChar, 5), Held(L""));
  EXPECT_EQ(Coerce(Empty{}, ad::kInteger, 0), Held(0));
  EXPECT_EQ(Coerce(Empty{}, ad::kDouble, 0), Held(0.0));
  EXPECT_EQ(Coerce(Empty{}, ad::kBoolean, 0), Held(false));
  EXPECT_EQ(Coerce(Empty{}, ad::kDBDate, 0), Held(Date{0}));
}

TEST(Coercion, NullStaysNull) { EXPECT_EQ(Coerce(Null{}, ad::kInteger, 0), Held(Null{})); }

TEST(Coercion, AnObjectFitsNoType) {
  EXPECT_EQ(Coerce(ObjectRef(), ad::kVarChar, 5), std::nullopt);
  EXPECT_EQ(Coerce(ObjectRef(), ad::kInteger, 0), std::nullopt);
}

TEST(Coercion, IntegersAreKeptWithinTheirType) {
  EXPECT_EQ(Coerce(std::int64_t{2147483647}, ad::kInteger, 0), Held(2147483647));
  EXPECT_EQ(Coerce(std::int64_t{2147483648}, ad::kInteger, 0), std::nullopt);
  EXPECT_EQ(Coerce(32768, ad::kSmallInt, 0), std::nullopt);
  EXPECT_EQ(Coerce(-1, ad::kUnsignedTinyInt, 0), std::nullopt);
  EXPECT_EQ(Coerce(255, ad::kUnsignedTinyInt, 0), Held(255));
  EXPECT_EQ(Coerce(7, ad::kBigInt, 0), Held(std::int64_t{7}));
  EXPECT_EQ(Coerce(1e300, ad::kBigInt, 0), std::nullopt);
  EXPECT_EQ(Coerce(std::numeric_limits<double>::quiet_NaN(), ad::kInteger, 0), std::nullopt);
}

TEST(Coercion, AFractionBecomesTheNearestEvenInteger) {
  EXPECT_EQ(Coerce(2.5, ad::kInteger, 0), Held(2));
  EXPECT_EQ(Coerce(3.5, ad::kInteger, 0), Held(4));
}

TEST(Coercion, TextBecomesANumberOnlyWhenAllOfItIsOne) {
  EXPECT_EQ(Coerce(L"42", ad::kInteger, 0), Held(42));
  EXPECT_EQ(Coerce(L"4.25", ad::kDouble, 0), Held(4.25));
  EXPECT_EQ(Coerce(L"42x", ad::kInteger, 0), std::nullopt);
  EXPECT_EQ(Coerce(L"", ad::kInteger, 0), std::nullopt);
  EXPECT_EQ(Coerce(L"quarenta", ad::kDouble, 0), std::nullopt);
}

TEST(Coercion, BooleansComeFromNumbersAndTheirOwnNames) {
  EXPECT_EQ(Coerce(L"true", ad::kBoolean, 0), Held(true));
  EXPECT_EQ(Coerce(L"FALSE", ad::kBoolean, 0), Held(false));
  EXPECT_EQ(Coerce(2, ad::kBoolean, 0), Held(true));
  EXPECT_EQ(Coerce(0, ad::kBoolean, 0), Held(false));
  EXPECT_EQ(Coerce(L"sim", ad::kBoolean, 0), std::nullopt);
}

TEST(Coercion, TrueIsMinusOneAsANumber) { EXPECT_EQ(Coerce(true, ad::kInteger, 0), Held(-1)); }

TEST(Coercion, ADbDateDropsTheTimeOfDayAndADbTimeTheDay) {
  EXPECT_EQ(Coerce(Date{43832.25}, ad::kDBDate, 0), Held(Date{43832}));
  EXPECT_EQ(Coerce(Date{43832.25}, ad::kDBTime, 0), Held(Date{0.25}));
  EXPECT_EQ(Coerce(Date{43832.25}, ad::kDBTimeStamp, 0), Held(Date{43832.25}));
}

TEST(Coercion, TextBecomesADateFromTheIsoFormOnly) {
  EXPECT_EQ(Coerce(L"2020-01-02", ad::kDBTimeStamp, 0), Held(Date{43832}));
  EXPECT_EQ(Coerce(L"02/01/2020", ad::kDBTimeStamp, 0), std::nullopt);
}

TEST(Coercion, ASingleIsRoundedToItsPrecisionAndRange) {
  EXPECT_EQ(Coerce(0.1, ad::kSingle, 0), Held(0.1F));
  EXPECT_EQ(Coerce(1e300, ad::kSingle, 0), std::nullopt);
}

TEST(Coercion, ADecimalKeepsTheDigitsOfWhatBecomesOne) {
  EXPECT_EQ(Coerce(L"123456789012345678.5", ad::kNumeric, 0), Held(Decimal{.low = 1234567890123456785, .scale = 1}));
  EXPECT_EQ(Coerce(L"1e3", ad::kDecimal, 0), Held(Decimal{.low = 1000}));
  EXPECT_EQ(Coerce(std::int64_t{-9007199254740993}, ad::kDecimal, 0),
            Held(Decimal{.low = 9007199254740993, .negative = true}));
  EXPECT_EQ(Coerce(std::uint64_t{18446744073709551615U}, ad::kDecimal, 0), Held(Decimal{.low = 18446744073709551615U}));
  EXPECT_EQ(Coerce(0.1F, ad::kDecimal, 0), Held(Decimal{.low = 1, .scale = 1}));
  EXPECT_EQ(Coerce(-2.25, ad::kDecimal, 0), Held(Decimal{.low = 225, .scale = 2, .negative = true}));
  EXPECT_EQ(Coerce(Currency{5}, ad::kDecimal, 0), Held(Decimal{.low = 5, .scale = 4}));
  EXPECT_EQ(Coerce(Empty{}, ad::kDecimal, 0), Held(Decimal{}));
  EXPECT_EQ(Coerce(1e30, ad::kDecimal, 0), std::nullopt);
  EXPECT_EQ(Coerce(std::numeric_limits<double>::infinity(), ad::kDecimal, 0), std::nullopt);
  EXPECT_EQ(Coerce(L"doze", ad::kDecimal, 0), std::nullopt);
}

TEST(Coercion, ACurrencyIsRoundedToItsFourDecimalsAndRange) {
  EXPECT_EQ(Coerce(12.5, ad::kCurrency, 0), Held(Currency{125000}));
  EXPECT_EQ(Coerce(L"-0.00015", ad::kCurrency, 0), Held(Currency{-2}));
  EXPECT_EQ(Coerce(L"922337203685477.5807", ad::kCurrency, 0), Held(Currency{9223372036854775807}));
  EXPECT_EQ(Coerce(L"922337203685477.5808", ad::kCurrency, 0), std::nullopt);
}

TEST(Coercion, AnUnsignedBigIntegerHasOneBitMoreAndNoSign) {
  EXPECT_EQ(Coerce(7, ad::kUnsignedBigInt, 0), Held(std::int64_t{7}));
  EXPECT_EQ(Coerce(L"18446744073709551615", ad::kUnsignedBigInt, 0), Held(std::uint64_t{18446744073709551615U}));
  EXPECT_EQ(Coerce(-1, ad::kUnsignedBigInt, 0), std::nullopt);
  EXPECT_EQ(Coerce(L"18446744073709551616", ad::kUnsignedBigInt, 0), std::nullopt);
  EXPECT_EQ(Coerce(std::uint64_t{18446744073709551615U}, ad::kBigInt, 0), std::nullopt);
}

TEST(Coercion, ExactNumbersBecomeTheOtherTypesToo) {
  EXPECT_EQ(Coerce(Decimal{.low = 25, .scale = 1}, ad::kInteger, 0), Held(2));
  EXPECT_EQ(Coerce(Currency{35000}, ad::kInteger, 0), Held(4));
  EXPECT_EQ(Coerce(Decimal{.low = 9007199254740993}, ad::kBigInt, 0), Held(std::int64_t{9007199254740993}));
  EXPECT_EQ(Coerce(Decimal{.low = 25, .scale = 1}, ad::kDouble, 0), Held(2.5));
  EXPECT_EQ(Coerce(0.5F, ad::kDouble, 0), Held(0.5));
  EXPECT_EQ(Coerce(Decimal{.low = 25, .scale = 1}, ad::kSingle, 0), Held(2.5F));
  EXPECT_EQ(Coerce(Currency{1}, ad::kBoolean, 0), Held(true));
  EXPECT_EQ(Coerce(Decimal{.low = 438322500, .scale = 4}, ad::kDBTimeStamp, 0), Held(Date{43832.25}));
}

}  // namespace
}  // namespace kodra::odbc
