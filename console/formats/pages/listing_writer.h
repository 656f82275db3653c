// A listing as a page to print on A4: title, headings repeated on every sheet, page numbers. Each row is
// written at once.
#pragma once

#include "console/formats/html/preview_row.h"
#include "console/formats/output.h"
#include "console/formats/row_writer.h"
#include "console/reports/guide.h"

namespace kodra::console::html {

class ListingWriter final : public RowWriter {
 public:
  // `issued` is when the listing was made, as it is printed. REQUIRES: `output` outlives the writer; the report of
  // Begin is a listing.
  ListingWriter(Output& output, std::wstring issued) : output_(output), issued_(std::move(issued)) {}

  void Begin(const Heading& heading, std::span<const Column> columns) override;
  void Row(std::span<const Value> values) override;
  void End() override;

 private:
  // Writes everything above the rows; texts that are the same in all of them are taken from the first.
  void OpenTable(const RowReader& first);
  std::string DetailsHtml(const RowReader& row) const;

  Output& output_;
  std::wstring issued_;
  const guide::Report* report_ = nullptr;
  std::vector<const guide::Column*> shown_;  // in the table
  std::vector<const guide::Column*> details_;
  Heading heading_;
  std::vector<Column> columns_;
  std::uint64_t rows_ = 0;
};

}  // namespace kodra::console::html
