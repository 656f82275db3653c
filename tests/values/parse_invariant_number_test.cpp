#include <gtest/gtest.h>

#include "tests/odbc/print_value.h"
#include "values/numbers.h"

namespace kodra::values {
namespace {

using Held = std::optional<Value>;

TEST(ParseInvariantNumber, TakesTheNarrowestTypeThatHoldsTheNumber) {
  EXPECT_EQ(ParseInvariantNumber(L"-5"), Held(-5));
  EXPECT_EQ(ParseInvariantNumber(L"007"), Held(7));
  EXPECT_EQ(ParseInvariantNumber(L"2147483647"), Held(2147483647));
  EXPECT_EQ(ParseInvariantNumber(L"2147483648"), Held(std::int64_t{2147483648}));
  EXPECT_EQ(ParseInvariantNumber(L"-2147483649"), Held(std::int64_t{-2147483649}));
  EXPECT_EQ(ParseInvariantNumber(L"18446744073709551615"), Held(std::uint64_t{18446744073709551615U}));
  EXPECT_EQ(ParseInvariantNumber(L"18446744073709551616"), Held(18446744073709551616.0));
  EXPECT_EQ(ParseInvariantNumber(L"-9223372036854775809"), Held(-9223372036854775808.0));
}

TEST(ParseInvariantNumber, APointOrAnExponentMakesADouble) {
  EXPECT_EQ(ParseInvariantNumber(L"1.0"), Held(1.0));
  EXPECT_EQ(ParseInvariantNumber(L"-0.5"), Held(-0.5));
  EXPECT_EQ(ParseInvariantNumber(L".5"), Held(0.5));
  EXPECT_EQ(ParseInvariantNumber(L"5."), Held(5.0));
  EXPECT_EQ(ParseInvariantNumber(L"1e3"), Held(1000.0));
  EXPECT_EQ(ParseInvariantNumber(L"25E-1"), Held(2.5));
  EXPECT_EQ(ParseInvariantNumber(L"0.1"), Held(0.1));
}

TEST(ParseInvariantNumber, WhatOnlyLooksLikeANumberIsNone) {
  for (const wchar_t* text : {L"",    L" 5",  L"5 ",  L"+5",   L"--5",  L"-", L".",     L"1.2.3", L"e5",  L"1e", L"1e+",
                              L"1d2", L"inf", L"nan", L"0x10", L"&H10", L"٣", L"1e999", L"1,5",   L"R$5", L"(5)"}) {
    EXPECT_EQ(ParseInvariantNumber(text), std::nullopt) << text;
  }
  EXPECT_EQ(ParseInvariantNumber(std::wstring(1000, L'9')), std::nullopt);
}

TEST(ParseInvariantNumber, TooSmallANumberIsZero) { EXPECT_EQ(ParseInvariantNumber(L"1e-400"), Held(0.0)); }

}  // namespace
}  // namespace kodra::values
