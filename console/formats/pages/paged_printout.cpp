#include "console/formats/pages/paged_printout.h"

#include <algorithm>
#include <numeric>

#include "console/formats/pages/chart.h"
#include "console/formats/pages/page_style.h"
#include "console/formats/pages/text_lines.h"

namespace kodra::console::pages {
namespace {

using namespace style;

// Draws nothing: for a layout that only counts pages.
class NoCanvas final : public Canvas {
 public:
  void BeginPage(Size) override {}
  void Text(Point, std::wstring_view, const TextStyle&) override {}
  void Line(Point, Point, const LineStyle&) override {}
  void Fill(std::span<const Rectangle>, Colour) override {}
  void Draw(const Picture&, Rectangle) override {}
  void Finish() override {}
};

// A copy on one half of an A4 page, above or below the line to cut.
constexpr Length kHalf = kA4.height / 2;
constexpr Length kLowerTop = kHalf + 8_mm;
// The lower half has less room, because of the foot of the page.
constexpr Length kHalfRoom = kA4.height - kBottomMargin - kLowerTop;

Length WidthOf(const Line& line, Length size) {
  Length width = 0;
  for (const Run& run : line) width += TextWidth(run.text, run.face, size);
  return width;
}

std::vector<Run> RunsOf(const std::vector<Fact>& facts) {
  std::vector<Run> runs;
  for (const Fact& fact : facts) {
    if (!runs.empty()) runs.back().text += L" ·";
    runs.push_back({fact.caption + L":", Face::kBold});
    runs.push_back({fact.text, Face::kRegular});
  }
  return runs;
}

// Part of a table's row: one line of each cell, or a line across all of them.
struct Slice {
  struct Placed {
    Length x;
    Line line;
  };
  std::vector<Placed> lines;
  TextStyle letters;
  Length above = 0, below = 0;  // the room between the letters and the next slices
  Length Height() const { return above + LineHeight(letters.size) + below; }
};

using Slices = std::vector<Slice>;

Length HeightOf(const Slices& slices) {
  Length height = 0;
  for (const Slice& slice : slices) height += slice.Height();
  return height;
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

// Fills the pages of one copy from top to bottom.
class Layout {
 public:
  struct Paper {
    Size size;
    std::wstring_view title;
    const Letterhead& letterhead;
  };

  // `pages` is the number of the copy's pages, for the foot.
  Layout(Canvas& canvas, const Paper& paper, int pages)
      : canvas_(canvas), paper_(paper), pages_(pages), width_(paper.size.width - 2 * kSideMargin) {}

  void Put(const PagedPrintout::Copy& copy) {
    for (const PagedPrintout::Block& block : copy) std::visit([&](const auto& each) { Put(each); }, block);
  }

  void NextPage() {
    canvas_.BeginPage(paper_.size);
    ++page_;
    y_ = kTopMargin;
    const TextStyle letters = {.size = kFootSize, .colour = kMuted};
    const Length base = paper_.size.height - kBottomMargin / 2;
    const std::wstring number = L"Página " + std::to_wstring(page_) + L" de " + std::to_wstring(pages_);
    const Length right = kSideMargin + width_ - TextWidth(number, letters.face, letters.size);
    std::wstring left = Printable(paper_.title);
    if (!paper_.letterhead.issued.empty()) left += L" · emitido em " + paper_.letterhead.issued;
    canvas_.Text({kSideMargin, base}, Shortened(left, letters.face, letters.size, right - kSideMargin - 5_mm), letters);
    canvas_.Text({right, base}, number, letters);
  }

  void MoveTo(Length y) { y_ = y; }
  int Pages() const { return page_; }
  Length Used() const { return y_ - kTopMargin; }

 private:
  Length Room() const { return paper_.size.height - kBottomMargin - y_; }
  Length WholePage() const { return paper_.size.height - kBottomMargin - kTopMargin; }
  // Goes to a new page unless there is so much room on this one.
  void Need(Length height) {
    if (height > Room() && y_ > kTopMargin) NextPage();
  }

  // Draws a line of text at the present height.
  void Draw(const Line& line, Length x, Length top, const TextStyle& letters) {
    const Length letterHeight = Ascent(letters.size) + Descent(letters.size);
    const Length base = top + (LineHeight(letters.size) - letterHeight) / 2 + Ascent(letters.size);
    for (const Run& run : line) {
      canvas_.Text({x, base}, run.text, {run.face, letters.size, letters.colour});
      x += TextWidth(run.text, run.face, letters.size);
    }
  }

  void PutText(const std::vector<Run>& runs, const TextStyle& letters) {
    for (const Line& line : Wrapped(runs, letters.size, width_)) {
      Need(LineHeight(letters.size));
      Draw(line, kSideMargin, y_, letters);
      y_ += LineHeight(letters.size);
    }
    y_ += 1_mm;
  }

  void PutLetterhead() {
    const auto& [organisation, logo, issued] = paper_.letterhead;
    if (!logo && organisation.empty()) return;
    Length height = LineHeight(kBlockSize), left = kSideMargin;
    if (logo) {
      const std::int64_t dotsWide = logo->width, dotsHigh = logo->height;
      height = static_cast<Length>(std::min<std::int64_t>(kLogoHeight, kLogoWidth * dotsHigh / dotsWide));
      const auto width = static_cast<Length>(height * dotsWide / dotsHigh);
      canvas_.Draw(*logo, {left, y_, width, height});
      left += width + 4_mm;
    }
    const Run name = {Printable(organisation), Face::kBold};
    const std::vector<Line> lines = Wrapped({&name, 1}, kBlockSize, kSideMargin + width_ - left);
    const Length text = LineHeight(kBlockSize) * static_cast<Length>(lines.size());
    height = std::max(height, text);
    Length top = y_ + (height - text) / 2;
    for (const Line& line : lines) {
      Draw(line, left, top, {.face = Face::kBold, .size = kBlockSize, .colour = kInk});
      top += LineHeight(kBlockSize);
    }
    y_ += height + 3_mm;
  }

  void Put(const PageHead& heading) {
    PutLetterhead();
    PutText({{heading.title, Face::kBold}}, {.face = Face::kBold, .size = kTitleSize, .colour = kAccent});
    for (const std::wstring& line : heading.lines) PutText({{line}}, {.size = kTextSize, .colour = kMuted});
    for (const Fact& fact : heading.facts) PutText(RunsOf({fact}), {.size = kTextSize, .colour = kInk});
    y_ += 1_mm;
  }

  void Put(const PagedPrintout::TextBlock& block) {
    y_ += 1_mm;
    PutText({{block.text}}, {.size = kTextSize, .colour = kInk});
  }

  void Put(const Fact& note) {
    y_ += 1_mm;
    PutText(RunsOf({note}), {.size = kSmallSize, .colour = kMuted});
  }

  void Put(const PagedPrintout::ChartBlock& chart) {
    y_ += 5_mm;
    Need(ChartHeight(chart.bars.size()));
    DrawChart(canvas_, {kSideMargin, y_}, chart.caption, chart.bars);
    y_ += ChartHeight(chart.bars.size());
  }

  void Put(const PagedPrintout::SignatureBlock& block) {
    Need(kSigningRoom + 2 * LineHeight(kSmallSize));
    y_ += kSigningRoom;
    const auto count = static_cast<Length>(block.captions.size());
    const Length each = (width_ - (count - 1) * kSignatureGap) / count;
    Length left = kSideMargin;
    for (const std::wstring& caption : block.captions) {
      canvas_.Line({left, y_}, {left + each, y_}, {.width = kThinRule, .colour = kInk});
      const TextStyle letters = {.size = kSmallSize, .colour = kMuted};
      Draw({{Shortened(caption, letters.face, letters.size, each)}}, left, y_ + kCellTop, letters);
      left += each + kSignatureGap;
    }
    y_ += kCellTop + LineHeight(kSmallSize);
  }

  void Put(const PagedPrintout::Table& table) {
    const std::vector<Length> widths = ColumnWidths(table.needs, width_);
    const Slices captions = CaptionSlices(table.columns, widths);
    const Length captionHeight = HeightOf(captions);
    y_ += 2_mm;
    bool isBegun = false;
    std::size_t stripe = 0;
    for (std::size_t i = 0; i < table.rows.size(); ++i) {
      const TableRow& row = table.rows[i];
      const Slices slices = RowSlices(row, widths);
      Length needed = HeightOf(slices);
      if (row.style == RowStyle::kBlock && i + 1 < table.rows.size())
        needed += kBlockGap + HeightOf(RowSlices(table.rows[i + 1], widths));
      const Length captionsToo = isBegun ? 0 : captionHeight;
      // A row that is higher than a page begins where the table is.
      const bool isTooHigh = needed > WholePage() - captionHeight;
      if (captionsToo + (isTooHigh ? slices.front().Height() : needed) > Room()) {
        NextPage();
        isBegun = false;
      }
      if (!isBegun) PutCaptions(captions);
      isBegun = true;
      if (row.style == RowStyle::kBlock) y_ += kBlockGap;
      if (row.style == RowStyle::kSum) Rule(kThinRule, kRule);
      if (row.style == RowStyle::kTotal) Rule(kThickRule, kAccent);
      stripe = row.style == RowStyle::kPlain ? stripe + 1 : 0;
      PutRow(slices, row.style == RowStyle::kPlain && stripe % 2 == 0, captions);
    }
    if (!isBegun) {
      Need(captionHeight);
      PutCaptions(captions);
    }
    y_ += 2_mm;
  }

  static constexpr Length kBlockGap = 2.5_mm;

  void Rule(Length width, Colour colour) {
    canvas_.Line({kSideMargin, y_}, {kSideMargin + width_, y_}, {.width = width, .colour = colour});
  }

  void PutSlices(std::span<const Slice> slices) {
    for (const Slice& slice : slices) {
      for (const auto& [x, line] : slice.lines) Draw(line, kSideMargin + x, y_ + slice.above, slice.letters);
      y_ += slice.Height();
    }
  }

  void PutCaptions(const Slices& captions) {
    if (captions.empty()) return;
    PutSlices(captions);
    Rule(kThickRule, kAccent);
  }

  // A row that does not fit on the page goes on on the next ones.
  void PutRow(std::span<const Slice> slices, bool isStriped, const Slices& captions) {
    while (!slices.empty()) {
      std::size_t count = 0;
      Length height = 0;
      while (count < slices.size() && (count == 0 || height + slices[count].Height() <= Room()))
        height += slices[count++].Height();
      const Rectangle area = {kSideMargin, y_, width_, height};
      if (isStriped) canvas_.Fill({&area, 1}, kStripe);
      PutSlices(slices.first(count));
      slices = slices.subspan(count);
      if (slices.empty()) break;
      NextPage();
      PutCaptions(captions);
    }
  }

  Canvas& canvas_;
  Paper paper_;
  int pages_;
  Length width_;
  int page_ = 0;
  Length y_ = 0;
};

Length WidthInCell(const Run& run, Length size) { return TextWidth(run.text, run.face, size) + 2 * kCellSide; }

// Widens what a column needs so that a text fits.
void Widen(ColumnNeed& need, const Run& run, Length size, bool isWhole) {
  const Length text = WidthInCell(run, size);
  need.text = std::max(need.text, text);
  need.word = std::max(need.word, isWhole ? text : WidestWord(run, size) + 2 * kCellSide);
}

}  // namespace

void PagedPrintout::Begin(std::wstring_view title, bool landscape) {
  title_ = title;
  if (landscape) std::swap(size_.width, size_.height);
}

void PagedPrintout::Head(const PageHead& heading) {
  PageHead printable = {Printable(heading.title)};
  for (const std::wstring& line : heading.lines) printable.lines.push_back(Printable(line));
  for (const auto& [caption, text] : heading.facts) printable.facts.push_back({Printable(caption), Printable(text)});
  copies_.back().emplace_back(std::move(printable));
}

void PagedPrintout::Paragraph(std::wstring_view text) { copies_.back().emplace_back(TextBlock{Printable(text)}); }

void PagedPrintout::OpenTable(const std::vector<TableColumn>& columns) {
  Table table = {columns, std::vector<ColumnNeed>(columns.size()), {}};
  for (std::size_t i = 0; i < columns.size(); ++i) {
    table.columns[i].caption = Printable(columns[i].caption);
    Widen(table.needs[i], {table.columns[i].caption, Face::kBold}, kSmallSize, false);
  }
  copies_.back().emplace_back(std::move(table));
}

void PagedPrintout::Row(const TableRow& row) {
  Table& table = OpenedTable();
  TableRow printable = {{}, {}, row.style};
  printable.cells.reserve(row.cells.size());
  for (const Cell& cell : row.cells) printable.cells.push_back({Printable(cell.text), cell.isNumber, cell.isWhole});
  for (const auto& [caption, text] : row.details) printable.details.push_back({Printable(caption), Printable(text)});
  if (row.cells.size() == table.columns.size()) {
    const TextStyle letters = LettersOf(row.style);
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
      const Cell& cell = printable.cells[i];
      Widen(table.needs[i], {cell.text, letters.face}, letters.size, cell.isWhole || cell.isNumber);
    }
  }
  table.rows.push_back(std::move(printable));
}

void PagedPrintout::Chart(std::wstring_view caption, const std::vector<Bar>& bars) {
  if (!bars.empty()) copies_.back().emplace_back(ChartBlock{std::wstring(caption), bars});
}

void PagedPrintout::Note(const Fact& note) {
  copies_.back().emplace_back(Fact{Printable(note.caption), Printable(note.text)});
}

void PagedPrintout::Signatures(const std::vector<std::wstring>& captions) {
  SignatureBlock block;
  for (const std::wstring& caption : captions) block.captions.push_back(Printable(caption));
  copies_.back().emplace_back(std::move(block));
}

void PagedPrintout::End() {
  const Layout::Paper paper = {size_, title_, letterhead_};
  std::vector<int> pages;
  bool isHalf = copies_.size() == 2;
  for (const Copy& copy : copies_) {
    NoCanvas none;
    Layout layout(none, paper, 0);
    layout.NextPage();
    layout.Put(copy);
    pages.push_back(layout.Pages());
    isHalf = isHalf && layout.Pages() == 1 && layout.Used() <= kHalfRoom;
  }
  if (isHalf) {
    Layout layout(canvas_, paper, 1);
    layout.NextPage();
    layout.Put(copies_.front());
    canvas_.Line({0, kHalf}, {size_.width, kHalf}, {.width = kThinRule, .colour = kRule, .dashed = true});
    layout.MoveTo(kLowerTop);
    layout.Put(copies_.back());
  } else {
    for (std::size_t i = 0; i < copies_.size(); ++i) {
      Layout layout(canvas_, paper, pages[i]);
      layout.NextPage();
      layout.Put(copies_[i]);
    }
  }
  canvas_.Finish();
}

}  // namespace kodra::console::pages
