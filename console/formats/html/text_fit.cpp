// Wraps a text by estimated letter widths, as a browser would.
#include "console/formats/html/text_fit.h"

#include <algorithm>
#include <cmath>

namespace kodra::console::html {
namespace {

constexpr double kStep = 0.95;  // the factor from one size to the next

// The width of a letter in letter sizes; a letter that is not listed is as wide as it is high.
double LetterWidth(wchar_t letter) {
  if (std::wstring_view(L" .,;:!|'ijlíìtf/\\()[]").find(letter) != std::wstring_view::npos) return 0.34;
  if (std::wstring_view(L"mwMW%@—…").find(letter) != std::wstring_view::npos) return 1.0;
  if ((letter >= L'a' && letter <= L'z') || (letter >= L'0' && letter <= L'9')) return 0.57;
  if (letter >= L'A' && letter <= L'Z') return 0.79;
  if (letter >= L'à' && letter <= L'ÿ') return 0.57;
  if (letter >= L'À' && letter <= L'Þ') return 0.79;
  return letter < 0x100 ? 0.62 : 1.05;
}

double WidthOf(std::wstring_view text, double size, bool bold) {
  double width = 0;
  for (const wchar_t letter : text) width += LetterWidth(letter);
  return width * size * (bold ? 1.08 : 1.0);
}

// How many lines a text takes when it wraps at blanks, and within a word that is wider than the box.
int Lines(std::wstring_view text, double width, double size, bool bold) {
  const double blank = WidthOf(L" ", size, bold);
  int lines = 1;
  double used = 0;
  while (!text.empty()) {
    const std::wstring_view word = text.substr(0, text.find(L' '));
    text.remove_prefix(std::min(word.size() + 1, text.size()));
    const double wide = WidthOf(word, size, bold);
    if (used > 0 && used + blank + wide > width) {
      ++lines;
      used = 0;
    }
    if (used > 0) used += blank;
    if (wide > width) {
      // A letter that does not fit goes to the next line whole, so a line is filled less than to its end.
      const double filled = std::max(width - size, size);
      const int more = static_cast<int>(std::ceil(wide / filled)) - 1;
      lines += more;
      used = wide - more * filled;
    } else {
      used += wide;
    }
  }
  return lines;
}

// The largest size at which a text fits, or the smallest size with as much of the text as fits.
template <class FitsAt>
FittedText Fit(std::wstring_view text, double largest, double smallest, FitsAt fitsAt) {
  for (double size = largest; size > smallest; size *= kStep) {
    if (fitsAt(text, size)) return {std::wstring(text), size};
  }
  std::wstring cut(text);
  while (text.size() > 1 && !fitsAt(cut, smallest)) {
    text.remove_suffix(1);
    cut = std::wstring(text) + L"…";
  }
  return {cut, smallest};
}

}  // namespace

bool Fits(std::wstring_view text, Box box, double size, bool bold) {
  return Lines(text, box.width, size, bold) * size * kLineHeight <= box.height;
}

FittedText FitText(std::wstring_view text, Box box, double largest, double smallest, bool bold) {
  largest = std::max(smallest, std::min(largest, box.height / kLineHeight));
  return Fit(text, largest, smallest,
             [&](std::wstring_view tried, double size) { return Fits(tried, box, size, bold); });
}

FittedText FitLine(std::wstring_view text, double width, double largest, double smallest, bool bold) {
  return Fit(text, largest, smallest,
             [&](std::wstring_view tried, double size) { return WidthOf(tried, size, bold) <= width; });
}

}  // namespace kodra::console::html
