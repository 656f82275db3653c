#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "text/numbers.h"

namespace kodra::text {
namespace {

constexpr int kSignificantDigits = 15;
constexpr int kMostDecimals = 15;
// The first whole number that needs more digits than are significant.
constexpr double kFirstWithExponent = 1e15;

// A finite number's magnitude as significant digits without trailing zeros; the first has the value digit *
// 10^exponent.
struct Decimal {
  std::wstring digits;
  int exponent = 0;
};

Decimal ToDecimal(double magnitude) {
  // "d.dddddddddddddde+xx", where the character after the first digit is the host's decimal point. The standard's own
  // conversion would make the component a quarter larger.
  std::array<char, 32> buffer{};
  std::snprintf(buffer.data(), buffer.size(), "%.*e", kSignificantDigits - 1, magnitude);
  const std::string_view text = buffer.data();
  const std::size_t exponentAt = text.find('e');
  Decimal decimal;
  decimal.digits = static_cast<wchar_t>(text.front());
  decimal.digits.append(text.begin() + 2, text.begin() + exponentAt);
  decimal.digits.resize(decimal.digits.find_last_not_of(L'0') + 1);
  decimal.exponent = std::atoi(text.data() + exponentAt + 1);
  return decimal;
}

std::wstring WithComma(std::wstring digits, std::size_t whole) {
  if (digits.size() > whole) digits.insert(whole, 1, L',');
  return digits;
}

std::wstring WithExponent(const Decimal& decimal) {
  const std::wstring exponent = NumberToText(std::int32_t{std::abs(decimal.exponent)});
  std::wstring text = WithComma(decimal.digits, 1);
  text += decimal.exponent < 0 ? L"E-" : L"E+";
  if (exponent.size() < 2) text += L'0';
  return text + exponent;
}

bool NeedsExponent(const Decimal& decimal) {
  if (decimal.exponent >= kSignificantDigits || decimal.exponent <= -kMostDecimals) return true;
  const int decimals = static_cast<int>(decimal.digits.size()) - 1 - decimal.exponent;
  return decimals > kMostDecimals;
}

std::wstring Magnitude(double magnitude) {
  if (magnitude < kFirstWithExponent && magnitude == std::trunc(magnitude)) {
    return NumberToText(static_cast<std::int64_t>(magnitude));
  }
  Decimal decimal = ToDecimal(magnitude);
  if (NeedsExponent(decimal)) return WithExponent(decimal);
  if (decimal.exponent < 0)
    return L"0," + std::wstring(static_cast<std::size_t>(-decimal.exponent - 1), L'0') + decimal.digits;
  const auto whole = static_cast<std::size_t>(decimal.exponent) + 1;
  if (decimal.digits.size() < whole) decimal.digits.resize(whole, L'0');
  return WithComma(std::move(decimal.digits), whole);
}

}  // namespace

std::wstring NumberToText(double number) {
  if (std::isnan(number)) return L"-1,#IND";
  if (number == 0) return L"0";
  const std::wstring magnitude = std::isinf(number) ? L"1,#INF" : Magnitude(std::abs(number));
  return number < 0 ? L'-' + magnitude : magnitude;
}

std::wstring NumberToText(std::int32_t number) { return NumberToText(std::int64_t{number}); }

std::wstring NumberToText(std::int64_t number) {
  std::array<char, 20> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number).ptr;
  return {buffer.data(), end};
}

}  // namespace kodra::text
