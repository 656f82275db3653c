#include "console/formats/pages/column_widths.h"

#include <algorithm>
#include <cstdint>

namespace kodra::console::pages {
namespace {

// Adds `length` to the widths in proportion to the shares, or in equal parts if there are no shares.
void Distribute(Length length, const std::vector<Length>& shares, std::vector<Length>& widths) {
  std::int64_t sum = 0;
  for (const Length share : shares) sum += share;
  Length left = length;
  for (std::size_t i = 0; i < widths.size(); ++i) {
    const auto count = static_cast<Length>(widths.size());
    const Length part = sum > 0 ? static_cast<Length>(std::int64_t{length} * shares[i] / sum) : length / count;
    widths[i] += part;
    left -= part;
  }
  // What is lost by rounding: a few thousandths of a millimetre.
  widths.back() += left;
}

// The widest that a column may be so that all of them fit.
Length GreatestWidth(std::vector<Length> words, Length width) {
  std::ranges::sort(words);
  auto left = static_cast<Length>(words.size());
  for (const Length word : words) {
    if (word > width / left) break;
    width -= word;
    --left;
  }
  return width / std::max(left, 1);
}

}  // namespace

std::vector<Length> ColumnWidths(std::span<const ColumnNeed> needs, Length width) {
  std::vector<Length> words, texts, beyond;
  Length wordSum = 0, textSum = 0;
  for (const ColumnNeed& need : needs) {
    words.push_back(need.word);
    texts.push_back(need.text);
    beyond.push_back(need.text - need.word);
    wordSum += need.word;
    textSum += need.text;
  }
  if (textSum <= width) {
    std::vector<Length> widths = texts;
    Distribute(width - textSum, texts, widths);
    return widths;
  }
  if (wordSum <= width) {
    std::vector<Length> widths = words;
    Distribute(width - wordSum, beyond, widths);
    return widths;
  }
  const Length greatest = GreatestWidth(words, width);
  Length sum = 0;
  for (Length& word : words) sum += word = std::min(word, greatest);
  words.back() += width - sum;
  return words;
}

}  // namespace kodra::console::pages
