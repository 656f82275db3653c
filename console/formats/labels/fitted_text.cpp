#include "console/formats/labels/fitted_text.h"

#include <algorithm>

#include "console/formats/pages/text_lines.h"

namespace kodra::console::labels {
namespace {

using namespace pages;

constexpr Length kStep = 0.1_mm;

std::vector<std::wstring> LinesOf(const Run& text, Length letters, Length width) {
  std::vector<std::wstring> lines;
  for (const Line& line : Wrapped({&text, 1}, letters, width)) lines.push_back(line.front().text);
  return lines;
}

// Keeps that many lines, the last of which ends in an ellipsis in place of those that follow.
void Cut(FittedText& text, std::size_t lines, Face face, Length width) {
  std::wstring last = text.lines[lines - 1];
  for (std::size_t line = lines; line < text.lines.size(); ++line) last += L' ' + text.lines[line];
  text.lines.resize(lines);
  text.lines.back() = Shortened(last, face, text.letters, width);
  text.isCut = true;
}

}  // namespace

Length LineHeight(Length letters) { return Ascent(letters) + Descent(letters); }

FittedText Fit(std::wstring_view text, Face face, LetterSizes letters, Size box) {
  const Run run = {Printable(text), face};
  for (Length size = letters.usual; size > letters.smallest; size -= kStep) {
    FittedText fitted = {LinesOf(run, size, box.width), size};
    if (fitted.Height() <= box.height && WidestWord(run, size) <= box.width) return fitted;
  }
  FittedText fitted = {LinesOf(run, letters.smallest, box.width), letters.smallest};
  const auto lines = static_cast<std::size_t>(std::max(1, box.height / LineHeight(letters.smallest)));
  if (fitted.lines.size() > lines) Cut(fitted, lines, face, box.width);
  return fitted;
}

FittedText FitLine(std::wstring_view text, Face face, LetterSizes letters, Length width) {
  const std::wstring printable = Printable(text);
  if (printable.empty()) return {};
  for (Length size = letters.usual; size > letters.smallest; size -= kStep) {
    if (TextWidth(printable, face, size) <= width) return {{printable}, size};
  }
  const std::wstring line = Shortened(printable, face, letters.smallest, width);
  return {{line}, letters.smallest, line != printable};
}

}  // namespace kodra::console::labels
