// The component's text of a value, compared with automation's text in Brazilian Portuguese.
//
// Where Wine is known to differ from Windows, the value is listed with both texts and the reason.
#include <gtest/gtest.h>

#include <cfloat>
#include <limits>

#include "ado/variant.h"
#include "tests/wine/automation.h"
#include "values/convert.h"
#include "values/numbers.h"

namespace kodra::ado {
namespace {

constexpr LCID kBrazilian = 0x0416;

// Automation's text of a value.
std::wstring AutomationText(const VARIANT& variant) {
  face::Var text;
  const HRESULT hr =
      VariantChangeTypeEx(text.put(), const_cast<VARIANT*>(&variant), kBrazilian, VARIANT_LOCALBOOL, VT_BSTR);
  EXPECT_EQ(S_OK, hr);
  return text.type() == VT_BSTR ? std::wstring(text.raw().bstrVal, SysStringLen(text.raw().bstrVal)) : L"";
}

// The component's text of the same value.
std::wstring OurText(const VARIANT& variant) { return values::ToTextOrEmpty(ToValue(variant)); }

struct Written {
  Value value;
  std::wstring_view text;
};

constexpr std::uint64_t kLow = std::numeric_limits<std::uint64_t>::max();
constexpr std::uint32_t kHigh = std::numeric_limits<std::uint32_t>::max();

TEST(ValueText, IsAutomationsOwn) {
  const Written cases[] = {
      {Empty{}, L""},
      {true, L"Verdadeiro"},
      {false, L"Falso"},
      {std::int32_t{-2147483647 - 1}, L"-2147483648"},
      {std::numeric_limits<std::int64_t>::min(), L"-9223372036854775808"},
      {kLow, L"18446744073709551615"},
      {0.1F, L"0,1"},
      {-0.0F, L"0"},
      {0.5F, L"0,5"},
      {1.0F / 3, L"0,3333333"},
      {1234.5678F, L"1234,568"},
      {9999999.0F, L"9999999"},
      {1e7F, L"1E+07"},
      {16777216.0F, L"1,677722E+07"},
      {-3.4028235e38F, L"-3,402823E+38"},
      {1e-20F, L"1E-20"},
      {0.1, L"0,1"},
      {2.0 / 3, L"0,666666666666667"},
      {123456789012345.0, L"123456789012345"},
      {1e15, L"1E+15"},
      {-1.5e300, L"-1,5E+300"},
      {Currency{}, L"0"},
      {Currency{123400}, L"12,34"},
      {Currency{10000000}, L"1000"},
      {Currency{-1}, L"-0,0001"},
      {Currency{std::numeric_limits<std::int64_t>::max()}, L"922337203685477,5807"},
      {Currency{std::numeric_limits<std::int64_t>::min()}, L"-922337203685477,5808"},
      {Decimal{}, L"0"},
      {Decimal{.low = 1500, .scale = 3}, L"1,5"},
      {Decimal{.low = 1000}, L"1000"},
      {Decimal{.low = 1000, .scale = 3}, L"1"},
      {Decimal{.low = 123456789012345678U}, L"123456789012345678"},
      {Decimal{.low = 123456789012345678U, .scale = 20, .negative = true}, L"-0,00123456789012345678"},
      {Decimal{.low = 1, .scale = 28}, L"0,0000000000000000000000000001"},
      {Decimal{.low = kLow, .high = kHigh}, L"79228162514264337593543950335"},
      {Decimal{.low = kLow, .high = kHigh, .scale = 28, .negative = true}, L"-7,9228162514264337593543950335"},
      {Date{45291}, L"31/12/2023"},
      {L"já é texto", L"já é texto"},
  };
  for (const auto& [value, expected] : cases) {
    SCOPED_TRACE(testing::PrintToString(std::wstring(expected)));
    const ScopedVariant variant(value);
    EXPECT_EQ(expected, OurText(*variant));
    EXPECT_EQ(expected, AutomationText(*variant));
  }
}

TEST(ValueText, OfSmallIntegersIsAutomationsOwn) {
  const auto check = [](VARTYPE type, LONGLONG number, const wchar_t* expected) {
    VARIANT variant;
    VariantInit(&variant);
    variant.llVal = number;
    variant.vt = type;
    EXPECT_EQ(expected, OurText(variant)) << type;
    EXPECT_EQ(expected, AutomationText(variant)) << type;
  };
  check(VT_I1, -128, L"-128");
  check(VT_UI1, 255, L"255");
  check(VT_I2, -32768, L"-32768");
  check(VT_UI2, 65535, L"65535");
  check(VT_UI4, 4294967295, L"4294967295");
  check(VT_INT, -1, L"-1");
  check(VT_UINT, 4294967295, L"4294967295");
}

// The client sets the precision of the processor's calculations: 53 bits by default, 64 in programs built with Delphi
// and GCC. The first number would be rounded twice by a multiplication with 64 bits.
TEST(ValueText, IsReadAsTheNearestNumberInEveryClient) {
  const unsigned before = _controlfp(0, 0);
  for (const unsigned precision : {_PC_53, _PC_64}) {
    _controlfp(precision, _MCW_PC);
    EXPECT_EQ(115100940185e15, values::ParseNumber(L"115100940185e15"));
    EXPECT_EQ(115100940185e15, values::LeadingNumber(L"115100940185e15"));
    EXPECT_EQ(std::optional<Value>(115100940185e15), values::ParseInvariantNumber(L"115100940185e15"));
    EXPECT_EQ(0.1, values::ParseNumber(L"0,1"));
    EXPECT_EQ(9007199254740992.0, values::ParseNumber(L"9007199254740993"));
    EXPECT_EQ(L"0,666666666666667", OurText(*ScopedVariant(2.0 / 3)));
  }
  _controlfp(before, _MCW_PC);
}

TEST(ValueText, IsThatOfWindowsWhereWineDiffers) {
  // Wine writes an exponent only for numbers smaller than 0,0001; Windows writes one when the decimals, including the
  // zeros after the comma, are more than the type has significant digits.
  const struct {
    Value value;
    std::wstring_view windows;
    std::wstring_view wine;
  } cases[] = {
      {1.0F / 30, L"3,333334E-02", L"0,03333334"},
      {0.00001F, L"0,00001", L"1E-05"},
      {75.0 / 999, L"7,50750750750751E-02", L"0,0750750750750751"},
      {3.5 / 42, L"8,33333333333333E-02", L"0,0833333333333333"},
      {0.00001, L"0,00001", L"1E-05"},
  };
  for (const auto& [value, windows, wine] : cases) {
    const ScopedVariant variant(value);
    EXPECT_EQ(windows, OurText(*variant));
    const std::wstring automation = AutomationText(*variant);
    EXPECT_TRUE(automation == windows || automation == wine) << testing::PrintToString(automation);
  }
}

}  // namespace
}  // namespace kodra::ado
