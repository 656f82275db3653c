// Texts on several lines.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "console/formats/pages/typeface.h"

namespace kodra::console::pages {

// Printable text in one weight.
struct Run {
  std::wstring text;
  Face face = Face::kRegular;
  bool operator==(const Run&) const = default;
};

using Line = std::vector<Run>;

// The runs, one after the other, broken at blanks into lines that are at most `width` wide. Only a word that is wider
// than that is broken inside. No text is no line.
std::vector<Line> Wrapped(std::span<const Run> runs, Length size, Length width);

// The width of the widest word.
Length WidestWord(const Run& text, Length size);

// The text, or its beginning and an ellipsis if the whole is wider than `width`.
std::wstring Shortened(std::wstring_view text, Face face, Length size, Length width);

}  // namespace kodra::console::pages
