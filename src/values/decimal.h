// Exact decimal numbers, automation's Currency and Decimal: their parts, their rounding and their text.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "values/value.h"

namespace kodra::values {

Decimal ToDecimal(Currency amount);
// Nothing for an amount beyond a Currency; halves go to the even neighbour.
std::optional<Currency> ToCurrency(const Decimal& number);

// Reads digits with an optional "-" and decimal point. Decimals beyond the 28 that a Decimal has, or beyond its 96
// bits, are rounded, halves to the even neighbour. Returns nothing for a whole part beyond 96 bits and for a text that
// is not a number.
std::optional<Decimal> ParseDecimal(std::wstring_view text);

// The number without the zeros that end its decimals.
Decimal WithoutTrailingZeros(Decimal number);
// Every digit, with a decimal point and without zeros at the end of the decimals: "-12.5", "0.0001", "100".
std::wstring PlainText(const Decimal& number);

double ToDouble(const Decimal& number);
// The whole number, halves to the even neighbour; nothing beyond 64 bits.
std::optional<std::int64_t> RoundToInteger(const Decimal& number);

}  // namespace kodra::values
