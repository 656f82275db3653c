// Makes a text fit into a box: it wraps, then shrinks, and at last is cut.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "console/formats/pages/typeface.h"

namespace kodra::console::labels {

// The distance from one line to the next.
pages::Length LineHeight(pages::Length letters);

struct FittedText {
  std::vector<std::wstring> lines;
  pages::Length letters = 0;  // their size
  bool isCut = false;         // the last line ends in an ellipsis

  pages::Length Height() const { return static_cast<pages::Length>(lines.size()) * LineHeight(letters); }
};

struct LetterSizes {
  pages::Length usual, smallest;
};

// The printable text broken at blanks into lines that fit into the box, in letters of the usual size or the largest
// smaller one. A text that does not fit in the smallest letters is broken within words and cut. The box has room for
// a line of the smallest letters.
FittedText Fit(std::wstring_view text, pages::Face face, LetterSizes letters, pages::Size box);

// The same, on one line.
FittedText FitLine(std::wstring_view text, pages::Face face, LetterSizes letters, pages::Length width);

}  // namespace kodra::console::labels
