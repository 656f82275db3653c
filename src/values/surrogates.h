// The two units of 16 bits that UTF-16 writes for a character beyond U+FFFF: a high surrogate before a low one.
#pragma once

namespace kodra::values {

inline constexpr char32_t kFirstBeyondOneUnit = 0x10000;

constexpr bool IsHighSurrogate(char32_t unit) noexcept { return unit >= 0xD800 && unit <= 0xDBFF; }
constexpr bool IsLowSurrogate(char32_t unit) noexcept { return unit >= 0xDC00 && unit <= 0xDFFF; }

// REQUIRES: a high and a low surrogate.
constexpr char32_t CharacterOf(char32_t high, char32_t low) noexcept {
  return kFirstBeyondOneUnit + ((high - 0xD800) << 10U) + (low - 0xDC00);
}

// REQUIRES: the character is kFirstBeyondOneUnit or a later one.
constexpr char32_t HighSurrogateOf(char32_t character) noexcept {
  return 0xD800 + ((character - kFirstBeyondOneUnit) >> 10U);
}
constexpr char32_t LowSurrogateOf(char32_t character) noexcept {
  return 0xDC00 + ((character - kFirstBeyondOneUnit) & 0x3FFU);
}

}  // namespace kodra::values
