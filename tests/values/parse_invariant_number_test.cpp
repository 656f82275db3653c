#include <gtest/gtest.h>

#include "tests/odbc/print_value.h"
#include "values/numbers.h"

namespace kodra::values {
namespace {

// Texts and the values that they are read as.
void ExpectNumbers(std::initializer_list<std::pair<const wchar_t*, Value>> cases) {
  for (const auto& [text, value] : cases) EXPECT_EQ(ParseInvariantNumber(text), value) << text;
}

TEST(ParseInvariantNumber, TakesTheNarrowestTypeThatHoldsTheNumber) {
  ExpectNumbers({{L"-5", -5},
                 {L"007", 7},
                 {L"2147483647", 2147483647},
                 {L"2147483648", std::int64_t{2147483648}},
                 {L"-2147483649", std::int64_t{-2147483649}},
                 {L"18446744073709551615", std::uint64_t{18446744073709551615U}},
                 {L"18446744073709551616", 18446744073709551616.0},
                 {L"-9223372036854775809", -9223372036854775808.0}});
}

TEST(ParseInvariantNumber, APointOrAnExponentMakesADouble) {
  ExpectNumbers(
      {{L"1.0", 1.0}, {L"-0.5", -0.5}, {L".5", 0.5}, {L"5.", 5.0}, {L"1e3", 1000.0}, {L"25E-1", 2.5}, {L"0.1", 0.1}});
}

TEST(ParseInvariantNumber, TextThatOnlyLooksLikeANumberIsNone) {
  for (const wchar_t* text : {L"",    L" 5",  L"5 ",  L"+5",   L"--5",  L"-", L".",     L"1.2.3", L"e5",  L"1e", L"1e+",
                              L"1d2", L"inf", L"nan", L"0x10", L"&H10", L"٣", L"1e999", L"1,5",   L"R$5", L"(5)"}) {
    EXPECT_EQ(ParseInvariantNumber(text), std::nullopt) << text;
  }
  EXPECT_EQ(ParseInvariantNumber(std::wstring(1000, L'9')), std::nullopt);
}

TEST(ParseInvariantNumber, TooSmallANumberIsZero) { ExpectNumbers({{L"1e-400", 0.0}}); }

}  // namespace
}  // namespace kodra::values
