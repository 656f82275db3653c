#include "odbc/engine/coercion.h"

#include <gtest/gtest.h>

#include <limits>

#include "odbc/engine/types.h"
#include "tests/odbc/print_value.h"

namespace kodra::odbc {

namespace ad = platform::ad;
namespace {

// A value, the type and size of a field, and the value of the field after the assignment; nothing when it does not
// fit.
struct Case {
  Value given;
  std::int32_t type;
  std::size_t size;
  std::optional<Value> held;
};

void ExpectCoerced(std::initializer_list<Case> cases) {
  for (const auto& [given, type, size, held] : cases)
    EXPECT_EQ(Coerce(given, type, size), held) << testing::PrintToString(given) << " as type " << type;
}

TEST(Coercion, TextFitsUpToItsSizeAndNotOneCharacterMore) {
  ExpectCoerced({{L"ação", ad::kVarChar, 4, L"ação"}, {L"ações", ad::kVarChar, 4, std::nullopt}});
}

TEST(Coercion, SizeZeroIsUnlimited) {
  ExpectCoerced({{std::wstring(5000, L'x'), ad::kLongVarWChar, 0, std::wstring(5000, L'x')}});
}

TEST(Coercion, NumbersDatesAndBooleansBecomeText) {
  ExpectCoerced({{42, ad::kVarChar, 10, L"42"},
                 {std::int64_t{9000000000}, ad::kVarChar, 10, L"9000000000"},
                 {std::uint64_t{18446744073709551615U}, ad::kVarChar, 20, L"18446744073709551615"},
                 {0.1F, ad::kVarChar, 10, L"0.1"},
                 {1.5, ad::kVarChar, 10, L"1.5"},
                 {Currency{-1}, ad::kVarChar, 10, L"-0.0001"},
                 {Decimal{.low = 1250, .scale = 2}, ad::kVarChar, 10, L"12.5"},
                 {true, ad::kVarChar, 10, L"True"},
                 {Date{43832}, ad::kVarChar, 10, L"2020-01-02"}});
}

TEST(Coercion, TheTextOfANumberTooLongForItsSizeDoesNotFit) {
  ExpectCoerced({{123456, ad::kVarChar, 5, std::nullopt}});
}

TEST(Coercion, EmptyIsTheZeroOfEachType) {
  ExpectCoerced({{Empty{}, ad::kVarChar, 5, L""},
                 {Empty{}, ad::kInteger, 0, 0},
                 {Empty{}, ad::kDouble, 0, 0.0},
                 {Empty{}, ad::kBoolean, 0, false},
                 {Empty{}, ad::kDBDate, 0, Date{0}}});
}

TEST(Coercion, NullStaysNull) { ExpectCoerced({{Null{}, ad::kInteger, 0, Null{}}}); }

TEST(Coercion, AnObjectFitsNoType) {
  ExpectCoerced({{ObjectRef(), ad::kVarChar, 5, std::nullopt}, {ObjectRef(), ad::kInteger, 0, std::nullopt}});
}

TEST(Coercion, IntegersAreKeptWithinTheirType) {
  ExpectCoerced({{std::int64_t{2147483647}, ad::kInteger, 0, 2147483647},
                 {std::int64_t{2147483648}, ad::kInteger, 0, std::nullopt},
                 {32768, ad::kSmallInt, 0, std::nullopt},
                 {-1, ad::kUnsignedTinyInt, 0, std::nullopt},
                 {255, ad::kUnsignedTinyInt, 0, 255},
                 {-128, ad::kTinyInt, 0, -128},
                 {128, ad::kTinyInt, 0, std::nullopt},
                 {65535, ad::kUnsignedSmallInt, 0, 65535},
                 {65536, ad::kUnsignedSmallInt, 0, std::nullopt},
                 {std::int64_t{4294967295}, ad::kUnsignedInt, 0, std::int64_t{4294967295}},
                 {-1, ad::kUnsignedInt, 0, std::nullopt},
                 {7, ad::kEmpty, 0, std::nullopt},
                 {7, ad::kBigInt, 0, std::int64_t{7}},
                 {1e300, ad::kBigInt, 0, std::nullopt},
                 {std::numeric_limits<double>::quiet_NaN(), ad::kInteger, 0, std::nullopt}});
}

TEST(Coercion, AFractionBecomesTheNearestEvenInteger) {
  ExpectCoerced({{2.5, ad::kInteger, 0, 2}, {3.5, ad::kInteger, 0, 4}});
}

TEST(Coercion, TextBecomesANumberOnlyWhenAllOfItIsOne) {
  ExpectCoerced({{L"42", ad::kInteger, 0, 42},
                 {L"4.25", ad::kDouble, 0, 4.25},
                 {L"42x", ad::kInteger, 0, std::nullopt},
                 {L"", ad::kInteger, 0, std::nullopt},
                 {L"quarenta", ad::kDouble, 0, std::nullopt}});
}

TEST(Coercion, BooleansComeFromNumbersAndTheirOwnNames) {
  ExpectCoerced({{L"true", ad::kBoolean, 0, true},
                 {L"FALSE", ad::kBoolean, 0, false},
                 {2, ad::kBoolean, 0, true},
                 {0, ad::kBoolean, 0, false},
                 {L"sim", ad::kBoolean, 0, std::nullopt}});
}

TEST(Coercion, TrueIsMinusOneAsANumber) { ExpectCoerced({{true, ad::kInteger, 0, -1}}); }

TEST(Coercion, ADbDateDropsTheTimeOfDayAndADbTimeTheDay) {
  ExpectCoerced({{Date{43832.25}, ad::kDBDate, 0, Date{43832}},
                 {Date{43832.25}, ad::kDBTime, 0, Date{0.25}},
                 {Date{43832.25}, ad::kDBTimeStamp, 0, Date{43832.25}}});
}

TEST(Coercion, TextBecomesADateFromTheIsoFormOnly) {
  ExpectCoerced(
      {{L"2020-01-02", ad::kDBTimeStamp, 0, Date{43832}}, {L"02/01/2020", ad::kDBTimeStamp, 0, std::nullopt}});
}

TEST(Coercion, ASingleIsRoundedToItsPrecisionAndRange) {
  ExpectCoerced({{0.1, ad::kSingle, 0, 0.1F}, {1e300, ad::kSingle, 0, std::nullopt}});
}

TEST(Coercion, ADecimalKeepsTheDigitsOfWhatBecomesOne) {
  ExpectCoerced({{L"123456789012345678.5", ad::kNumeric, 0, Decimal{.low = 1234567890123456785, .scale = 1}},
                 {L"1e3", ad::kDecimal, 0, Decimal{.low = 1000}},
                 {std::int64_t{-9007199254740993}, ad::kDecimal, 0, Decimal{.low = 9007199254740993, .negative = true}},
                 {std::uint64_t{18446744073709551615U}, ad::kDecimal, 0, Decimal{.low = 18446744073709551615U}},
                 {0.1F, ad::kDecimal, 0, Decimal{.low = 1, .scale = 1}},
                 {-2.25, ad::kDecimal, 0, Decimal{.low = 225, .scale = 2, .negative = true}},
                 {Currency{5}, ad::kDecimal, 0, Decimal{.low = 5, .scale = 4}},
                 {Empty{}, ad::kDecimal, 0, Decimal{}},
                 {1e30, ad::kDecimal, 0, std::nullopt},
                 {std::numeric_limits<double>::infinity(), ad::kDecimal, 0, std::nullopt},
                 {L"doze", ad::kDecimal, 0, std::nullopt}});
}

TEST(Coercion, ACurrencyIsRoundedToItsFourDecimalsAndRange) {
  ExpectCoerced({{12.5, ad::kCurrency, 0, Currency{125000}},
                 {L"-0.00015", ad::kCurrency, 0, Currency{-2}},
                 {L"922337203685477.5807", ad::kCurrency, 0, Currency{9223372036854775807}},
                 {L"922337203685477.5808", ad::kCurrency, 0, std::nullopt}});
}

TEST(Coercion, AnUnsignedBigIntegerHasOneBitMoreAndNoSign) {
  ExpectCoerced({{7, ad::kUnsignedBigInt, 0, std::int64_t{7}},
                 {L"18446744073709551615", ad::kUnsignedBigInt, 0, std::uint64_t{18446744073709551615U}},
                 {-1, ad::kUnsignedBigInt, 0, std::nullopt},
                 {L"18446744073709551616", ad::kUnsignedBigInt, 0, std::nullopt},
                 {std::uint64_t{18446744073709551615U}, ad::kBigInt, 0, std::nullopt}});
}

TEST(Coercion, ExactNumbersBecomeTheOtherTypesToo) {
  ExpectCoerced({{Decimal{.low = 25, .scale = 1}, ad::kInteger, 0, 2},
                 {Currency{35000}, ad::kInteger, 0, 4},
                 {Decimal{.low = 9007199254740993}, ad::kBigInt, 0, std::int64_t{9007199254740993}},
                 {Decimal{.low = 25, .scale = 1}, ad::kDouble, 0, 2.5},
                 {0.5F, ad::kDouble, 0, 0.5},
                 {Decimal{.low = 25, .scale = 1}, ad::kSingle, 0, 2.5F},
                 {Currency{1}, ad::kBoolean, 0, true},
                 {Decimal{.low = 438322500, .scale = 4}, ad::kDBTimeStamp, 0, Date{43832.25}}});
}

}  // namespace
}  // namespace kodra::odbc
