#include "console/formats/pages/text_lines.h"

#include <algorithm>

namespace kodra::console::pages {
namespace {

// Calls `take` with each word of a text.
template <class Take>
void ForEachWord(std::wstring_view text, Take take) {
  while (!text.empty()) {
    const std::wstring_view word = text.substr(0, text.find(L' '));
    text.remove_prefix(std::min(word.size() + 1, text.size()));
    if (!word.empty()) take(word);
  }
}

// As many letters of a word as are not wider than `width`, at least one.
std::size_t FittingLetters(std::wstring_view word, Face face, std::int64_t units) {
  std::size_t count = 1;
  while (count < word.size() && TextUnits(word.substr(0, count + 1), face) <= units) ++count;
  return count;
}

class Wrapper {
 public:
  // Measures in the units of the font, so that a text fits exactly where TextWidth says so.
  Wrapper(Length size, Length width) : width_(std::int64_t{width} * kUnitsPerEm / size) {}

  void Add(std::wstring_view word, Face face) {
    std::int64_t wide = TextUnits(word, face);
    const std::int64_t blank = lines_.empty() ? 0 : TextUnits(L" ", lines_.back().back().face);
    if (!lines_.empty() && used_ + blank + wide <= width_) {
      Run& last = lines_.back().back();
      last.text += L' ';
      if (last.face == face)
        last.text += word;
      else
        lines_.back().push_back({std::wstring(word), face});
      used_ += blank + wide;
      return;
    }
    while (wide > width_) {
      const std::size_t count = FittingLetters(word, face, width_);
      if (count == word.size()) break;
      lines_.push_back({{std::wstring(word.substr(0, count)), face}});
      word.remove_prefix(count);
      wide = TextUnits(word, face);
    }
    lines_.push_back({{std::wstring(word), face}});
    used_ = wide;
  }

  std::vector<Line> Lines() { return std::move(lines_); }

 private:
  std::int64_t width_;
  std::vector<Line> lines_;
  std::int64_t used_ = 0;  // of the last line
};

}  // namespace

std::vector<Line> Wrapped(std::span<const Run> runs, Length size, Length width) {
  Wrapper wrapper(size, width);
  for (const Run& run : runs) ForEachWord(run.text, [&](std::wstring_view word) { wrapper.Add(word, run.face); });
  return wrapper.Lines();
}

Length WidestWord(const Run& text, Length size) {
  Length widest = 0;
  ForEachWord(text.text, [&](std::wstring_view word) { widest = std::max(widest, TextWidth(word, text.face, size)); });
  return widest;
}

std::wstring Shortened(std::wstring_view text, Face face, Length size, Length width) {
  if (TextWidth(text, face, size) <= width) return std::wstring(text);
  std::wstring shortened;
  do {
    text.remove_suffix(1);
    shortened = std::wstring(text) + L'…';
  } while (text.size() > 1 && TextWidth(shortened, face, size) > width);
  return shortened;
}

}  // namespace kodra::console::pages
