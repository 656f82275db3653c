// Label stock: sheets of labels, and rolls for label printers, where each label is a page.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "console/formats/pages/length.h"

namespace kodra::console::labels {

struct Stock {
  std::string name;  // as people choose it: "a4-2x7" has two columns and seven rows
  pages::Size page;
  int columns, rows;
  pages::Size label;
  pages::Size margin;  // from the left and the upper edge of the page to the first label
  pages::Size gap;     // between columns and between rows

  int Labels() const { return columns * rows; }
  bool IsRoll() const { return label == page; }
  bool operator==(const Stock&) const = default;
};

// The stock that has a name from the start; the first is the usual one.
const std::vector<Stock>& BuiltInStocks();

// The place of a label on its page. Labels are counted from 0, row by row.
pages::Rectangle CellOf(const Stock& stock, int label);

// The distance between the labels and the nearest edge of the page.
pages::Length DistanceToEdge(const Stock& stock);

// Reads the measures of stock: "100x50mm" is a roll, and a sheet is written in full, with the measures in any order:
//
//   pagina=210x297 colunas=2 linhas=7 etiqueta=99,1x38,1 margem=4,65x15,15 vao=2,5x0
//
// Without margin or gap there is none, and without columns and rows there is one. Raises UsageError if the text is not
// such a description, a label does not fit on the page, or labels overlap.
Stock ParseStock(const std::string& name, std::string_view text);

// Reads a file of stock, one per line: its name, "=" and its measures. Empty lines and lines that begin with "#" or ";"
// do not count. Raises UsageError, with the file's name and the line, as ParseStock does, and for a name that is not
// new.
std::vector<Stock> ParseStocks(const std::string& fileName, std::string_view text);

// One line for people: "a4-2x7: 2 x 7 etiquetas de 99,1 x 38,1 mm em página de 210 x 297 mm, …".
std::string Described(const Stock& stock);

}  // namespace kodra::console::labels
