// The letters of printed pages: Liberation Sans, whose letters are as wide as Arial's, in two weights.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "console/formats/pages/length.h"

namespace kodra::console::pages {

enum class Face { kRegular, kBold };

// The font file.
std::span<const unsigned char> FontFile(Face face);

// A text as it is printed: "?" for each character that the pages cannot show, and a blank for each line end and tab.
std::wstring Printable(std::wstring_view text);

// How wide a printable text is on one line, exactly, in kUnitsPerEm-ths of the size of the letters.
inline constexpr int kUnitsPerEm = 2048;
std::int64_t TextUnits(std::wstring_view text, Face face);

// The same, rounded up, in letters of that size. May be called by several threads at once.
Length TextWidth(std::wstring_view text, Face face, Length size);

// How far the highest letters, with their accents, reach above the base line, and the lowest below it.
Length Ascent(Length size);
Length Descent(Length size);

}  // namespace kodra::console::pages
