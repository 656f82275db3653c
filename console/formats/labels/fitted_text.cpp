#include "console/formats/labels/fitted_text.h"

#include <algorithm>

namespace kodra::console::labels {
namespace {

using namespace pages;

constexpr Length kStep = 0.1_mm;

// How many letters of a text fit into the width, at least one.
std::size_t FittingLetters(std::wstring_view text, Face face, Length letters, Length width) {
  std::size_t count = 1;
  while (count < text.size() && TextWidth(text.substr(0, count + 1), face, letters) <= width) ++count;
  return count;
}

// The lines of a text that is broken at blanks, and within words that are wider than a line.
std::vector<std::wstring> Wrapped(std::wstring_view text, Face face, Length letters, Length width) {
  std::vector<std::wstring> lines;
  while (!text.empty()) {
    std::wstring_view word = text.substr(0, text.find(L' '));
    text.remove_prefix(std::min(word.size() + 1, text.size()));
    if (word.empty()) continue;
    if (!lines.empty()) {
      const std::wstring longer = lines.back() + L' ' + std::wstring(word);
      if (TextWidth(longer, face, letters) <= width) {
        lines.back() = longer;
        continue;
      }
    }
    for (std::size_t count; !word.empty(); word.remove_prefix(count)) {
      count = FittingLetters(word, face, letters, width);
      lines.emplace_back(word.substr(0, count));
    }
  }
  return lines;
}

bool HasWordWiderThan(Length width, std::wstring_view text, Face face, Length letters) {
  while (!text.empty()) {
    const std::wstring_view word = text.substr(0, text.find(L' '));
    text.remove_prefix(std::min(word.size() + 1, text.size()));
    if (TextWidth(word, face, letters) > width) return true;
  }
  return false;
}

// The line with an ellipsis at its end.
std::wstring Cut(std::wstring line, Face face, Length letters, Length width) {
  while (!line.empty() && TextWidth(line + L'…', face, letters) > width) line.pop_back();
  line.erase(line.find_last_not_of(L' ') + 1);
  return line + L'…';
}

}  // namespace

Length LineHeight(Length letters) { return Ascent(letters) + Descent(letters); }

FittedText Fit(std::wstring_view text, Face face, LetterSizes letters, Size box) {
  const std::wstring printable = Printable(text);
  for (Length size = letters.usual;; size = std::max(letters.smallest, size - kStep)) {
    FittedText fitted = {Wrapped(printable, face, size, box.width), size};
    const bool isLast = size == letters.smallest;
    if (fitted.Height() <= box.height && (isLast || !HasWordWiderThan(box.width, printable, face, size))) return fitted;
    if (!isLast) continue;
    const auto lines = static_cast<std::size_t>(std::max(1, box.height / LineHeight(size)));
    fitted.lines.resize(lines);
    fitted.lines.back() = Cut(fitted.lines.back(), face, size, box.width);
    fitted.isCut = true;
    return fitted;
  }
}

FittedText FitLine(std::wstring_view text, Face face, LetterSizes letters, Length width) {
  const std::wstring printable = Printable(text);
  if (printable.empty()) return {};
  Length size = letters.usual;
  while (size > letters.smallest && TextWidth(printable, face, size) > width)
    size = std::max(letters.smallest, size - kStep);
  if (TextWidth(printable, face, size) <= width) return {{printable}, size};
  return {{Cut(printable, face, size, width)}, size, true};
}

}  // namespace kodra::console::labels
