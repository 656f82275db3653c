// A report's rows as a PDF file: a listing or a statistic on A4 pages, or labels, depending on the report.
#pragma once

#include <memory>

#include "console/formats/labels/label_writer.h"
#include "console/formats/output.h"
#include "console/formats/pages/pdf_canvas.h"
#include "console/formats/pages/printout.h"
#include "console/formats/row_writer.h"

namespace kodra::console::pages {

// A listing of more rows is refused: its rows and pages are kept in memory until End.
inline constexpr std::uint64_t kMostPdfRows = 100'000;

class PdfWriter final : public RowWriter {
 public:
  // REQUIRES: `output` outlives the writer.
  PdfWriter(Output& output, Letterhead letterhead, labels::LabelOptions labels = {})
      : output_(output), letterhead_(std::move(letterhead)), labels_(std::move(labels)) {}

  // Raises UsageError for a heading that names no report.
  void Begin(const Heading& heading, std::span<const Column> columns) override;
  // Raises UsageError for a row beyond kMostPdfRows.
  void Row(std::span<const Value> values) override;
  void End() override { layout_->End(); }

 private:
  Output& output_;
  Letterhead letterhead_;
  labels::LabelOptions labels_;
  std::unique_ptr<PdfCanvas> canvas_;
  std::unique_ptr<Printout> printout_;
  std::unique_ptr<RowWriter> layout_;
  std::uint64_t rows_ = 0;
};

}  // namespace kodra::console::pages
