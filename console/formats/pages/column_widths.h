// The widths of a table's columns.
#pragma once

#include <span>
#include <vector>

#include "console/formats/pages/length.h"

namespace kodra::console::pages {

// What a column needs: for its widest text on one line, and for its widest word.
struct ColumnNeed {
  Length text = 0, word = 0;
};

// Widths that add up to `width`. Each column is at least as wide as its widest word; only if these do not fit side by
// side, the widest columns are narrower. What is left over goes first to long texts.
std::vector<Length> ColumnWidths(std::span<const ColumnNeed> needs, Length width);

}  // namespace kodra::console::pages
