#include "values/decimal.h"
#include "values/characters.h"

#include <algorithm>
#include <array>
#include <limits>

namespace kodra::values {
namespace {

constexpr int kMostDecimals = 28;
constexpr int kCurrencyDecimals = 4;

// The 96 bits of a decimal in three parts, the lowest first.
using Parts = std::array<std::uint32_t, 3>;

Parts PartsOf(const Decimal& number) {
  return {static_cast<std::uint32_t>(number.low), static_cast<std::uint32_t>(number.low >> 32), number.high};
}

void SetParts(Decimal& number, const Parts& parts) {
  number.low = std::uint64_t{parts[1]} << 32 | parts[0];
  number.high = parts[2];
}

// Divides by ten and returns the digit that is left over.
std::uint32_t TakeLastDigit(Decimal& number) {
  Parts parts = PartsOf(number);
  std::uint64_t rest = 0;
  for (auto part = parts.rbegin(); part != parts.rend(); ++part) {
    rest = rest << 32 | *part;
    *part = static_cast<std::uint32_t>(rest / 10);
    rest %= 10;
  }
  SetParts(number, parts);
  return static_cast<std::uint32_t>(rest);
}

// Multiplies by `factor` and adds `digit`; false, with the number as it was, when 96 bits do not hold the result.
bool MultiplyAndAdd(Decimal& number, std::uint32_t factor, std::uint32_t digit) {
  Parts parts = PartsOf(number);
  std::uint64_t carry = digit;
  for (std::uint32_t& part : parts) {
    carry += std::uint64_t{part} * factor;
    part = static_cast<std::uint32_t>(carry);
    carry >>= 32;
  }
  if (carry != 0) return false;
  SetParts(number, parts);
  return true;
}

bool AppendDigit(Decimal& number, std::uint32_t digit) { return MultiplyAndAdd(number, 10, digit); }

bool IsZero(const Decimal& number) { return number.low == 0 && number.high == 0; }

// Whether the digits that are cut off round the one before them up: halves go to the even neighbour.
bool RoundsUp(const Decimal& number, std::uint32_t firstCut, bool moreCut) {
  return firstCut > 5 || (firstCut == 5 && (moreCut || number.low % 2 != 0));
}

// Reads the digits after the point as far as the number holds them, and rounds by the others. False when the rounding
// takes the whole part beyond 96 bits.
bool AppendDecimals(Decimal& number, std::wstring_view digits) {
  std::size_t read = 0;
  while (read < digits.size() && number.scale < kMostDecimals &&
         AppendDigit(number, static_cast<std::uint32_t>(digits[read] - L'0'))) {
    ++read;
    ++number.scale;
  }
  if (read == digits.size()) return true;
  const bool more = digits.find_first_not_of(L'0', read + 1) != digits.npos;
  if (!RoundsUp(number, static_cast<std::uint32_t>(digits[read] - L'0'), more)) return true;
  if (MultiplyAndAdd(number, 1, 1)) return true;
  if (number.scale == 0) return false;
  // All 96 bits are set, so the last digit is a 5 and rounds up with those after it; with one decimal fewer it fits.
  TakeLastDigit(number);
  --number.scale;
  return MultiplyAndAdd(number, 1, 1);
}

}  // namespace

Decimal ToDecimal(Currency amount) {
  Decimal number;
  number.negative = amount.tenThousandths < 0;
  number.low = static_cast<std::uint64_t>(amount.tenThousandths);
  if (number.negative) number.low = 0 - number.low;
  number.scale = kCurrencyDecimals;
  return number;
}

std::optional<Currency> ToCurrency(const Decimal& number) {
  Decimal tenThousandths = number;
  for (; tenThousandths.scale < kCurrencyDecimals; ++tenThousandths.scale)
    if (!AppendDigit(tenThousandths, 0)) return std::nullopt;
  tenThousandths.scale -= kCurrencyDecimals;
  const std::optional<std::int64_t> whole = RoundToInteger(tenThousandths);
  if (!whole) return std::nullopt;
  return Currency{*whole};
}

std::optional<Decimal> ParseDecimal(std::wstring_view text) {
  Decimal number;
  number.negative = text.starts_with(L'-');
  if (number.negative) text.remove_prefix(1);
  const std::size_t point = std::min(text.find(L'.'), text.size());
  const std::wstring_view whole = text.substr(0, point);
  const std::wstring_view decimals = text.substr(std::min(point + 1, text.size()));
  if (whole.empty() && decimals.empty()) return std::nullopt;
  if (!std::all_of(whole.begin(), whole.end(), IsDigit) || !std::all_of(decimals.begin(), decimals.end(), IsDigit))
    return std::nullopt;
  for (const wchar_t digit : whole)
    if (!AppendDigit(number, static_cast<std::uint32_t>(digit - L'0'))) return std::nullopt;
  if (!AppendDecimals(number, decimals)) return std::nullopt;
  return number;
}

Decimal WithoutTrailingZeros(Decimal number) {
  for (Decimal shorter = number; number.scale > 0 && TakeLastDigit(shorter) == 0; number = shorter) --shorter.scale;
  return number;
}

std::wstring PlainText(const Decimal& number) {
  Decimal rest = WithoutTrailingZeros(number);
  std::wstring text;
  const auto scale = static_cast<std::size_t>(rest.scale);
  // From the last digit to the first; a zero is written before the point when there is nothing else.
  while (!IsZero(rest) || text.size() <= scale) text += static_cast<wchar_t>(L'0' + TakeLastDigit(rest));
  if (scale > 0) text.insert(scale, 1, L'.');
  if (number.negative && !IsZero(number)) text += L'-';
  std::reverse(text.begin(), text.end());
  return text;
}

double ToDouble(const Decimal& number) {
  constexpr double kTwoTo64 = 18446744073709551616.0;
  double divisor = 1;
  for (int i = 0; i < number.scale; ++i) divisor *= 10;
  const double magnitude = (number.high * kTwoTo64 + static_cast<double>(number.low)) / divisor;
  return number.negative ? -magnitude : magnitude;
}

std::optional<std::int64_t> RoundToInteger(const Decimal& number) {
  Decimal whole = number;
  std::uint32_t cut = 0;
  bool moreCut = false;
  for (; whole.scale > 0; --whole.scale) {
    moreCut = moreCut || cut != 0;
    cut = TakeLastDigit(whole);
  }
  if (RoundsUp(whole, cut, moreCut)) MultiplyAndAdd(whole, 1, 1);
  constexpr std::uint64_t kMost = std::numeric_limits<std::int64_t>::max();
  if (whole.high != 0 || whole.low > kMost + (number.negative ? 1 : 0)) return std::nullopt;
  return static_cast<std::int64_t>(number.negative ? 0 - whole.low : whole.low);
}

}  // namespace kodra::values
