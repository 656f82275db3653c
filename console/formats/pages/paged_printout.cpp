#include "console/formats/pages/paged_printout.h"

#include <algorithm>

#include "console/formats/pages/chart.h"
#include "console/formats/pages/page_style.h"
#include "console/formats/pages/table_slices.h"

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

  void Put(std::span<const PagedPrintout::Block> copy) {
    for (; !copy.empty(); copy = copy.subspan(1)) {
      if (IsTable(copy.front())) below_ = SignedRoom(copy.subspan(1));
      std::visit([&](const auto& each) { Put(each); }, copy.front());
    }
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
  static bool IsTable(const PagedPrintout::Block& block) { return std::holds_alternative<PagedPrintout::Table>(block); }

  // The room that these blocks take if they are short and end with signatures: nobody signs a page that has nothing
  // else.
  Length SignedRoom(std::span<const PagedPrintout::Block> blocks) const {
    if (blocks.empty() || !std::holds_alternative<PagedPrintout::SignatureBlock>(blocks.back())) return 0;
    if (std::ranges::any_of(blocks, IsTable)) return 0;
    NoCanvas none;
    Layout below(none, paper_, 0);
    below.NextPage();
    below.Put(blocks);
    return below.Pages() == 1 && below.Used() <= WholePage() / 2 ? below.Used() : 0;
  }

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
    Need(kSigningRoom + kCellTop + LineHeight(kSmallSize));
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
    y_ += kTableGap;
    bool isBegun = false;
    std::size_t stripe = 0;
    for (std::size_t i = 0; i < table.rows.size(); ++i) {
      const TableRow& row = table.rows[i];
      const Slices slices = RowSlices(row, widths);
      Length needed = HeightOf(slices);
      if (i + 1 == table.rows.size()) needed += kTableGap + below_;
      if (row.style == RowStyle::kBlock && i + 1 < table.rows.size())
        needed += kBlockGap + HeightOf(RowSlices(table.rows[i + 1], widths));
      const Length captionsToo = isBegun ? 0 : captionHeight;
      // A row that is higher than a page starts on this one and continues on the next.
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
    y_ += kTableGap;
  }

  static constexpr Length kTableGap = 2_mm;
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

  // A row that does not fit on the page continues on the next ones.
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
  Length below_ = 0;  // what must be on the same page as the end of the present table
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
