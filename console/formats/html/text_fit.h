// The size of letters that lets a text stand in a box, without a browser to ask.
#pragma once

#include <string>
#include <string_view>

namespace kodra::console::html {

// A box on paper, in millimetres.
struct Box {
  double width, height;
};

// How far one line's base stands from the next, in letter sizes: what the pages' style says of every fitted text.
inline constexpr double kLineHeight = 1.15;

struct FittedText {
  std::wstring text;  // shortened with an ellipsis when it stands nowhere in full
  double size;        // of the letters, in millimetres
};

// The widths are those of the sans-serif faces that the pages ask for, rounded up, for bold letters when `bold`.
// The size is at most `largest` and at least `smallest`; a text that needs smaller letters is cut.
FittedText FitText(std::wstring_view text, Box box, double largest, double smallest, bool bold = false);

// The same on one line that is never wrapped.
FittedText FitLine(std::wstring_view text, double width, double largest, double smallest, bool bold = false);

// Whether a text wrapped at blanks stands in the box in letters of that size.
bool Stands(std::wstring_view text, Box box, double size, bool bold = false);

}  // namespace kodra::console::html
