// A table's rows as slices, between which a page may end.
#pragma once

#include <vector>

#include "console/formats/pages/canvas.h"
#include "console/formats/pages/page_style.h"
#include "console/formats/pages/printout.h"
#include "console/formats/pages/text_lines.h"

namespace kodra::console::pages {

// Part of a table's row: one line of each cell, or a line across all of them.
struct Slice {
  struct Placed {
    Length x;
    Line line;
  };
  std::vector<Placed> lines;
  TextStyle letters;
  Length above = 0, below = 0;  // white space over and under the letters
  Length Height() const { return above + style::LineHeight(letters.size) + below; }
};

using Slices = std::vector<Slice>;

Length HeightOf(const Slices& slices);

// The captions above a table; none if all of them are empty.
Slices CaptionSlices(const std::vector<TableColumn>& columns, const std::vector<Length>& widths);
// A row and its details.
Slices RowSlices(const TableRow& row, const std::vector<Length>& widths);

TextStyle LettersOf(RowStyle style);

// "Operador: Ana · Data: 1/2/2024", the captions in bold letters.
std::vector<Run> RunsOf(const std::vector<Fact>& facts);

}  // namespace kodra::console::pages
