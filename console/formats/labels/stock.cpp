#include "console/formats/labels/stock.h"

#include <fmt/format.h>
#include <algorithm>

#include "console/formats/labels/millimetres.h"

namespace kodra::console::labels {
namespace {

using namespace pages;

constexpr Size kLetter = {215'900, 279'400};

// A sheet whose labels are centred on the page, without a gap between rows.
Stock Centred(std::string name, Size page, int columns, int rows, Size label, Length gap) {
  const Length used = columns * label.width + (columns - 1) * gap;
  return {
      std::move(name), page, columns, rows, label, {(page.width - used) / 2, (page.height - rows * label.height) / 2},
      {gap, 0}};
}

}  // namespace

const std::vector<Stock>& BuiltInStocks() {
  static const std::vector<Stock> stocks = {
      Centred("a4-2x4", kA4, 2, 4, {99.1_mm, 67.7_mm}, 2.5_mm),
      Centred("a4-2x7", kA4, 2, 7, {99.1_mm, 38.1_mm}, 2.5_mm),
      Centred("a4-3x7", kA4, 3, 7, {63.5_mm, 38.1_mm}, 2.5_mm),
      Centred("a4-3x8", kA4, 3, 8, {70_mm, 37_mm}, 0_mm),
      Centred("a4-1x2", kA4, 1, 2, {199.6_mm, 143.5_mm}, 0_mm),
      Centred("carta-2x5", kLetter, 2, 5, {101.6_mm, 50.8_mm}, 4.8_mm),
      Centred("carta-3x10", kLetter, 3, 10, {66.7_mm, 25.4_mm}, 3.1_mm),
      // docs/guia.pt-BR.md has the sources of these measures.
      {"pimaco-6180", kLetter, 3, 10, {66.7_mm, 25.4_mm}, {4.8_mm, 12.7_mm}, {3.1_mm, 0}},
      {"pimaco-a4262", kA4, 2, 8, {99_mm, 33.9_mm}, {4.7_mm, 12.9_mm}, {2.6_mm, 0}},
      {"pimaco-a4355", kA4, 3, 9, {63.5_mm, 31_mm}, {7.2_mm, 9_mm}, {2.55_mm, 0}},
      {"pimaco-a4356", kA4, 3, 11, {63.5_mm, 25.4_mm}, {7.2_mm, 8.8_mm}, {2.55_mm, 0}},
      {"pimaco-a4361", kA4, 3, 6, {63.5_mm, 46.5_mm}, {7.2_mm, 9.1_mm}, {2.55_mm, 0}},
      {"pimaco-a4364", kA4, 3, 4, {63.5_mm, 71.9_mm}, {7.2_mm, 4.7_mm}, {2.55_mm, 0}},
  };
  return stocks;
}

Rectangle CellOf(const Stock& stock, int label) {
  const int column = label % stock.columns;
  const int row = label / stock.columns;
  return {stock.margin.width + column * (stock.label.width + stock.gap.width),
          stock.margin.height + row * (stock.label.height + stock.gap.height), stock.label.width, stock.label.height};
}

Length DistanceToEdge(const Stock& stock) {
  const Rectangle last = CellOf(stock, stock.Labels() - 1);
  return std::min(
      {stock.margin.width, stock.margin.height, stock.page.width - last.Right(), stock.page.height - last.Bottom()});
}

std::string Described(const Stock& stock) {
  if (stock.IsRoll())
    return fmt::format("{}: uma etiqueta de {} mm por página", stock.name, MillimetresText(stock.label));
  return fmt::format("{}: {} x {} etiquetas de {} mm em página de {} mm, margens de {} mm, vãos de {} mm", stock.name,
                     stock.columns, stock.rows, MillimetresText(stock.label), MillimetresText(stock.page),
                     MillimetresText(stock.margin), MillimetresText(stock.gap));
}

}  // namespace kodra::console::labels
