#include "values/upper.h"

#include <algorithm>

namespace kodra::values {
namespace {

// Lower-case characters beyond ASCII from first to last, every step-th of them, whose upper-case form lies `offset`
// away.
struct LowerRange {
  wchar_t first;
  wchar_t last;
  int step;
  int offset;
};

constexpr LowerRange kLowerRanges[] = {
    {0x00E0, 0x00F6, 1, -32},  // à–ö
    {0x00F8, 0x00FE, 1, -32},  // ø–þ
    {0x00FF, 0x00FF, 1, 121},  // ÿ
    {0x0101, 0x012F, 2, -1},   // ā–į
    {0x0133, 0x0137, 2, -1},   // ĳ–ķ
    {0x013A, 0x0148, 2, -1},   // ĺ–ň
    {0x014B, 0x0177, 2, -1},   // ŋ–ŷ
    {0x017A, 0x017E, 2, -1},   // ź–ž
    {0x03AC, 0x03AC, 1, -38},  // ά
    {0x03AD, 0x03AF, 1, -37},  // έ–ί
    {0x03B1, 0x03C1, 1, -32},  // α–ρ
    {0x03C3, 0x03CB, 1, -32},  // σ–ϋ
    {0x03CC, 0x03CC, 1, -64},  // ό
    {0x03CD, 0x03CE, 1, -63},  // ύ–ώ
    {0x0430, 0x044F, 1, -32},  // а–я
    {0x0450, 0x045F, 1, -80},  // ѐ–џ
};

}  // namespace

wchar_t UpperCaseBeyondAscii(wchar_t character) noexcept {
  for (const LowerRange& range : kLowerRanges) {
    if (character < range.first) break;
    if (character <= range.last && (character - range.first) % range.step == 0)
      return static_cast<wchar_t>(character + range.offset);
  }
  return character;
}

std::wstring UpperCase(std::wstring_view text) {
  std::wstring upper(text);
  for (wchar_t& character : upper) character = UpperCase(character);
  return upper;
}

bool EqualIgnoringCase(std::wstring_view one, std::wstring_view other) noexcept {
  return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                    [](wchar_t a, wchar_t b) { return UpperCase(a) == UpperCase(b); });
}

std::wstring FirstUpper(std::wstring_view text) { return UpperCase(text.substr(0, 1)); }

std::wstring_view Trim(std::wstring_view text) noexcept {
  const std::size_t first = text.find_first_not_of(L' ');
  if (first == std::wstring_view::npos) return {};
  return text.substr(first, text.find_last_not_of(L' ') - first + 1);
}

}  // namespace kodra::values
