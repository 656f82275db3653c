// A printout as one self-contained HTML page, which flows in a browser and which the browser divides into A4 pages to
// print. Each block and each row is written at once.
#pragma once

#include "console/formats/output.h"
#include "console/formats/pages/printout.h"

namespace kodra::console::html {

class HtmlPrintout final : public pages::Printout {
 public:
  // REQUIRES: `output` outlives the printout.
  HtmlPrintout(Output& output, pages::Letterhead letterhead) : output_(output), letterhead_(std::move(letterhead)) {}

  void Begin(std::wstring_view title, bool landscape) override;
  void Head(const pages::PageHead& head) override;
  void Paragraph(std::wstring_view text) override;
  void OpenTable(const std::vector<pages::TableColumn>& columns) override;
  void Row(const pages::TableRow& row) override;
  void CloseTable() override;
  void Chart(std::wstring_view caption, const std::vector<pages::Bar>& bars) override;
  void Note(const pages::Fact& note) override;
  void Signatures(const std::vector<std::wstring>& captions) override;
  void NextCopy() override;
  void End() override;

 private:
  Output& output_;
  pages::Letterhead letterhead_;
  std::size_t columns_ = 0;  // of the open table
  std::size_t rows_ = 0;     // plain ones, one after the other
};

}  // namespace kodra::console::html
