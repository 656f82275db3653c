#include "console/formats/pages/typeface.h"

#define STB_TRUETYPE_IMPLEMENTATION
#define STBTT_STATIC
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wunused-function"
#include <stb/stb_truetype.h>
#pragma GCC diagnostic pop

#include <array>
#include <cstdint>

#include "console/formats/pages/letters.h"

extern "C" {
extern const unsigned char kLiberationSansRegular[];
extern const unsigned kLiberationSansRegularSize;
extern const unsigned char kLiberationSansBold[];
extern const unsigned kLiberationSansBoldSize;
}

namespace kodra::console::pages {
namespace {

// In the units of Liberation Sans.
constexpr int kAscent = 1854, kDescent = 434;

stbtt_fontinfo Opened(std::span<const unsigned char> file) {
  stbtt_fontinfo font;
  stbtt_InitFont(&font, file.data(), 0);
  return font;
}

const stbtt_fontinfo& Font(Face face) {
  static const std::array<stbtt_fontinfo, 2> fonts = {Opened(FontFile(Face::kRegular)), Opened(FontFile(Face::kBold))};
  return fonts[static_cast<std::size_t>(face)];
}

}  // namespace

std::span<const unsigned char> FontFile(Face face) {
  if (face == Face::kBold) return {kLiberationSansBold, kLiberationSansBoldSize};
  return {kLiberationSansRegular, kLiberationSansRegularSize};
}

std::wstring Printable(std::wstring_view text) {
  std::wstring printable(text);
  for (wchar_t& character : printable) {
    if (character == L'\t' || character == L'\n' || character == L'\r') character = L' ';
    // Both weights have the same letters.
    if (LetterOf(character).byte == 0 || stbtt_FindGlyphIndex(&Font(Face::kRegular), character) == 0) character = L'?';
  }
  return printable;
}

std::int64_t TextUnits(std::wstring_view text, Face face) {
  std::int64_t units = 0;
  for (const wchar_t character : text) {
    int advance = 0;
    stbtt_GetCodepointHMetrics(&Font(face), character, &advance, nullptr);
    units += advance;
  }
  return units;
}

Length TextWidth(std::wstring_view text, Face face, Length size) {
  return static_cast<Length>((TextUnits(text, face) * size + kUnitsPerEm - 1) / kUnitsPerEm);
}

Length Ascent(Length size) { return (size * kAscent + kUnitsPerEm - 1) / kUnitsPerEm; }
Length Descent(Length size) { return (size * kDescent + kUnitsPerEm - 1) / kUnitsPerEm; }

}  // namespace kodra::console::pages
