// A printout as A4 pages: the captions of a table are repeated, the pages are numbered, and no row is split that fits
// on one page.
#pragma once

#include <string>
#include <variant>
#include <vector>

#include "console/formats/pages/canvas.h"
#include "console/formats/pages/column_widths.h"
#include "console/formats/pages/printout.h"

namespace kodra::console::pages {

class PagedPrintout final : public Printout {
 public:
  // The widths of the columns and the number of pages depend on all rows, which are kept in memory until End.
  // REQUIRES: `canvas` outlives the printout.
  PagedPrintout(Canvas& canvas, Letterhead letterhead) : canvas_(canvas), letterhead_(std::move(letterhead)) {}

  void Begin(std::wstring_view title, bool landscape) override;
  void Head(const PageHead& heading) override;
  void Paragraph(std::wstring_view text) override;
  void OpenTable(const std::vector<TableColumn>& columns) override;
  void Row(const TableRow& row) override;
  void CloseTable() override {}
  void Chart(std::wstring_view caption, const std::vector<Bar>& bars) override;
  void Note(const Fact& note) override;
  void Signatures(const std::vector<std::wstring>& captions) override;
  void NextCopy() override { copies_.emplace_back(); }
  void End() override;

  struct TextBlock {
    std::wstring text;
  };
  struct Table {
    std::vector<TableColumn> columns;
    std::vector<ColumnNeed> needs;  // one for each column
    std::vector<TableRow> rows;
  };
  struct ChartBlock {
    std::wstring caption;
    std::vector<Bar> bars;
  };
  struct SignatureBlock {
    std::vector<std::wstring> captions;
  };
  // A Fact is a note.
  using Block = std::variant<PageHead, TextBlock, Table, ChartBlock, Fact, SignatureBlock>;
  using Copy = std::vector<Block>;

 private:
  Table& OpenedTable() { return std::get<Table>(copies_.back().back()); }

  Canvas& canvas_;
  Letterhead letterhead_;
  std::wstring title_;
  Size size_ = kA4;
  std::vector<Copy> copies_ = std::vector<Copy>(1);
};

}  // namespace kodra::console::pages
