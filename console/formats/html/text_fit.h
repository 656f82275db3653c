// The size of letters at which a text fits into a box, estimated without a browser.
#pragma once

#include <string>
#include <string_view>

namespace kodra::console::html {

// A box on paper, in millimetres.
struct Box {
  double width, height;
};

// The distance from one line's base to the next, in letter sizes; the pages' style sets it for every fitted text.
inline constexpr double kLineHeight = 1.15;

struct FittedText {
  std::wstring text;  // shortened with an ellipsis if it does not fit in full
  double size;        // of the letters, in millimetres
};

// The widths are those of the sans-serif faces that the pages ask for, rounded up, for bold letters when `bold`.
// The size is at most `largest` and at least `smallest`; a text that needs smaller letters is cut.
FittedText FitText(std::wstring_view text, Box box, double largest, double smallest, bool bold = false);

// The same for a text on one line, without wrapping.
FittedText FitLine(std::wstring_view text, double width, double largest, double smallest, bool bold = false);

// Whether a text wrapped at blanks fits into the box in letters of that size.
bool Fits(std::wstring_view text, Box box, double size, bool bold = false);

}  // namespace kodra::console::html
