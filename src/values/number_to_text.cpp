#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "values/decimal.h"
#include "values/numbers.h"

namespace kodra::values {
namespace {

// The number of significant digits, which is also the largest number of decimals without an exponent;
// `firstWithExponent` is the first whole number that needs an exponent.
struct Precision {
  int digits;
  double firstWithExponent;
};
constexpr Precision kDouble = {15, 1e15};
constexpr Precision kSingle = {7, 1e7};

// A finite number's magnitude as significant digits without trailing zeros; the value of the first is digit *
// 10^exponent.
struct Scientific {
  std::wstring digits;
  int exponent = 0;
};

Scientific ToScientific(double magnitude, int significantDigits) {
  // "d.dddddddddddddde+xx", where the character after the first digit is the host's decimal point. std::to_chars would
  // make the DLL a quarter larger, and slower to load.
  std::array<char, 32> buffer{};
  std::snprintf(buffer.data(), buffer.size(), "%.*e", significantDigits - 1, magnitude);
  const std::string_view text = buffer.data();
  const std::size_t exponentAt = text.find('e');
  Scientific number;
  number.digits = static_cast<wchar_t>(text.front());
  number.digits.append(text.begin() + 2, text.begin() + exponentAt);
  number.digits.resize(number.digits.find_last_not_of(L'0') + 1);
  number.exponent = std::atoi(text.data() + exponentAt + 1);
  return number;
}

std::wstring WithComma(std::wstring digits, std::size_t whole) {
  if (digits.size() > whole) digits.insert(whole, 1, L',');
  return digits;
}

std::wstring WithExponent(const Scientific& number) {
  const std::wstring exponent = NumberToText(std::int32_t{std::abs(number.exponent)});
  std::wstring text = WithComma(number.digits, 1);
  text += number.exponent < 0 ? L"E-" : L"E+";
  if (exponent.size() < 2) text += L'0';
  return text + exponent;
}

bool NeedsExponent(const Scientific& number, int mostDigits) {
  if (number.exponent >= mostDigits || number.exponent <= -mostDigits) return true;
  const int decimals = static_cast<int>(number.digits.size()) - 1 - number.exponent;
  return decimals > mostDigits;
}

std::wstring Magnitude(double magnitude, const Precision& precision) {
  if (magnitude < precision.firstWithExponent && magnitude == std::trunc(magnitude)) {
    return NumberToText(static_cast<std::int64_t>(magnitude));
  }
  Scientific number = ToScientific(magnitude, precision.digits);
  if (NeedsExponent(number, precision.digits)) return WithExponent(number);
  if (number.exponent < 0)
    return L"0," + std::wstring(static_cast<std::size_t>(-number.exponent - 1), L'0') + number.digits;
  const auto whole = static_cast<std::size_t>(number.exponent) + 1;
  if (number.digits.size() < whole) number.digits.resize(whole, L'0');
  return WithComma(std::move(number.digits), whole);
}

std::wstring FloatingToText(double number, const Precision& precision) {
  if (std::isnan(number)) return L"-1,#IND";
  if (number == 0) return L"0";
  const std::wstring magnitude = std::isinf(number) ? L"1,#INF" : Magnitude(std::abs(number), precision);
  return number < 0 ? L'-' + magnitude : magnitude;
}

template <class Integer>
std::wstring IntegerToText(Integer number) {
  std::array<char, 20> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number).ptr;
  return {buffer.data(), end};
}

}  // namespace

std::wstring NumberToText(float number) { return FloatingToText(number, kSingle); }

std::wstring NumberToText(double number) { return FloatingToText(number, kDouble); }

std::wstring NumberToText(std::int32_t number) { return NumberToText(std::int64_t{number}); }

std::wstring NumberToText(std::int64_t number) { return IntegerToText(number); }

std::wstring NumberToText(std::uint64_t number) { return IntegerToText(number); }

std::wstring NumberToText(Currency number) { return NumberToText(ToDecimal(number)); }

std::wstring NumberToText(const Decimal& number) {
  std::wstring text = PlainText(number);
  std::ranges::replace(text, L'.', L',');
  return text;
}

}  // namespace kodra::values
