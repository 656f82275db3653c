// A report's rows as one self-contained page to print: a listing, a statistic or sheets of labels, depending on the
// report.
#pragma once

#include <memory>

#include "console/formats/labels/label_writer.h"
#include "console/formats/pages/printout.h"

namespace kodra::console::html {

struct HtmlOptions {
  labels::LabelOptions labels = {};
  pages::Letterhead letterhead = {};
};

class HtmlWriter final : public RowWriter {
 public:
  // REQUIRES: `output` outlives the writer.
  HtmlWriter(Output& output, HtmlOptions options) : output_(output), options_(std::move(options)) {}

  // Raises UsageError for a heading that names no report.
  void Begin(const Heading& heading, std::span<const Column> columns) override;
  void Row(std::span<const Value> values) override { layout_->Row(values); }
  void End() override { layout_->End(); }

 private:
  Output& output_;
  HtmlOptions options_;
  std::unique_ptr<pages::Printout> printout_;
  std::unique_ptr<RowWriter> layout_;
};

}  // namespace kodra::console::html
