#include "console/formats/display_width.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "values/surrogates.h"

namespace kodra::console {
namespace {

struct Range {
  char32_t first, last;
};

// Combining marks, and characters that only join others or set their direction.
constexpr auto kZeroWidth = std::to_array<Range>({
    {0x0300, 0x036F},
    {0x0483, 0x0489},
    {0x1AB0, 0x1AFF},
    {0x1DC0, 0x1DFF},
    {0x200B, 0x200F},
    {0x202A, 0x202E},
    {0x2060, 0x2064},
    {0x20D0, 0x20FF},
    {0xFE00, 0xFE0F},
    {0xFE20, 0xFE2F},
    {0xFEFF, 0xFEFF},
});
constexpr auto kDoubleWidth = std::to_array<Range>({
    {0x1100, 0x115F},
    {0x2E80, 0x303E},
    {0x3041, 0xA4CF},
    {0xAC00, 0xD7A3},
    {0xF900, 0xFAFF},
    {0xFE30, 0xFE6F},
    {0xFF00, 0xFF60},
    {0xFFE0, 0xFFE6},
    {0x1F300, 0x1F64F},
    {0x1F680, 0x1F6FF},
    {0x1F900, 0x1F9FF},
    {0x20000, 0x3FFFD},
});

template <std::size_t kCount>
bool IsIn(const std::array<Range, kCount>& ranges, char32_t character) {
  return std::ranges::any_of(ranges, [=](Range r) { return character >= r.first && character <= r.last; });
}

}  // namespace

std::size_t DisplayWidth(std::wstring_view text) {
  std::size_t width = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    auto character = static_cast<char32_t>(text[i]);
    if (values::IsHighSurrogate(character) && i + 1 < text.size() &&
        values::IsLowSurrogate(static_cast<char32_t>(text[i + 1])))
      character = values::CharacterOf(character, static_cast<char32_t>(text[++i]));
    if (character < 0x300) {
      ++width;
    } else if (!IsIn(kZeroWidth, character)) {
      width += IsIn(kDoubleWidth, character) ? 2 : 1;
    }
  }
  return width;
}

}  // namespace kodra::console
