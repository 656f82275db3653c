#include "console/formats/pages/table_slices.h"

#include <algorithm>
#include <numeric>

namespace kodra::console::pages {
namespace {

using namespace style;

Length WidthOf(const Line& line, Length size) {
  Length width = 0;
  for (const Run& run : line) width += TextWidth(run.text, run.face, size);
  return width;
}

// The lines of several cells as slices.
class CellLines {
 public:
  CellLines(const std::vector<Length>& widths, TextStyle letters) : widths_(widths), letters_(letters) {}

  void Add(const std::wstring& text, bool isNumber) {
    Put(text, widths_[cell_], isNumber);
    left_ += widths_[cell_++];
  }
  void AddAcross(const std::wstring& text) { Put(text, std::accumulate(widths_.begin(), widths_.end(), 0), false); }

  Slices Take() {
    if (slices_.empty()) slices_.push_back({{}, letters_});
    slices_.front().above = kCellTop;
    slices_.back().below = kCellTop;
    return std::move(slices_);
  }

 private:
  void Put(const std::wstring& text, Length width, bool isNumber) {
    const Run run = {text, letters_.face};
    const std::vector<Line> lines = Wrapped({&run, 1}, letters_.size, width - 2 * kCellSide);
    if (slices_.size() < lines.size()) slices_.resize(lines.size(), {{}, letters_});
    for (std::size_t i = 0; i < lines.size(); ++i) {
      const Length indent = isNumber ? width - kCellSide - WidthOf(lines[i], letters_.size) : kCellSide;
      slices_[i].lines.push_back({left_ + indent, lines[i]});
    }
  }

  const std::vector<Length>& widths_;
  TextStyle letters_;
  Slices slices_;
  std::size_t cell_ = 0;
  Length left_ = 0;
};

}  // namespace

std::vector<Run> RunsOf(const std::vector<Fact>& facts) {
  std::vector<Run> runs;
  for (const Fact& fact : facts) {
    if (!runs.empty()) runs.back().text += L" ·";
    runs.push_back({fact.caption + L":", Face::kBold});
    runs.push_back({fact.text, Face::kRegular});
  }
  return runs;
}

Length HeightOf(const Slices& slices) {
  Length height = 0;
  for (const Slice& slice : slices) height += slice.Height();
  return height;
}

Slices CaptionSlices(const std::vector<TableColumn>& columns, const std::vector<Length>& widths) {
  if (std::ranges::all_of(columns, &std::wstring::empty, &TableColumn::caption)) return {};
  CellLines cells(widths, {.face = Face::kBold, .size = kSmallSize, .colour = kAccent});
  for (const TableColumn& column : columns) cells.Add(column.caption, column.isNumber);
  return cells.Take();
}

TextStyle LettersOf(RowStyle style) {
  return {.face = style == RowStyle::kPlain ? Face::kRegular : Face::kBold,
          .size = style == RowStyle::kBlock ? kBlockSize : kTextSize,
          .colour = kInk};
}

Slices RowSlices(const TableRow& row, const std::vector<Length>& widths) {
  CellLines cells(widths, LettersOf(row.style));
  if (row.cells.size() == widths.size()) {
    for (const Cell& cell : row.cells) cells.Add(cell.text, cell.isNumber);
  } else {
    cells.AddAcross(row.cells.front().text);
  }
  Slices slices = cells.Take();
  const TextStyle small = {.size = kSmallSize, .colour = kMuted};
  const Length width = std::accumulate(widths.begin(), widths.end(), 0) - 2 * kCellSide;
  for (const Line& line : Wrapped(RunsOf(row.details), kSmallSize, width))
    slices.push_back({{{kCellSide, line}}, small});
  slices.back().below = kCellTop;
  return slices;
}

}  // namespace kodra::console::pages
