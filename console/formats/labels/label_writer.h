// The rows of a report of labels as pages of labels, HTML or PDF.
#pragma once

#include <memory>

#include "console/formats/labels/label_printer.h"
#include "console/formats/output.h"
#include "console/formats/pages/page_format.h"
#include "console/formats/row_writer.h"

namespace kodra::console::labels {

struct LabelOptions {
  PrintOptions print = {};
  // On every label, in place of the one in its row; empty for that one.
  std::wstring organisation = {};
  // Called once, for labels of containers only; without it they list no modules.
  std::function<ContainerModules()> containerModules = {};
};

// A canvas of that format. REQUIRES: `output` outlives the canvas.
std::unique_ptr<pages::Canvas> NewCanvas(pages::PageFormat format, Output& output, std::wstring_view title);

class LabelWriter final : public RowWriter {
 public:
  // REQUIRES: `output` outlives the writer; the options are as LabelPrinter requires them; the report of Begin has
  // labels.
  LabelWriter(Output& output, pages::PageFormat format, LabelOptions options)
      : output_(output), format_(format), options_(std::move(options)) {}

  void Begin(const Heading& heading, std::span<const Column> columns) override;
  void Row(std::span<const Value> values) override;
  void End() override { printer_->Finish(); }

 private:
  Output& output_;
  pages::PageFormat format_;
  LabelOptions options_;
  std::vector<Column> columns_;
  LabelMaker maker_;
  std::unique_ptr<pages::Canvas> canvas_;
  std::unique_ptr<LabelPrinter> printer_;
};

}  // namespace kodra::console::labels
