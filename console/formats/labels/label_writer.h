// Sheets of labels as a page to print: each label in its place, with the requested number of copies.
#pragma once

#include "console/formats/labels/label_content.h"
#include "console/formats/labels/label_sheet.h"
#include "console/formats/output.h"
#include "console/formats/row_writer.h"

namespace kodra::console::labels {

struct LabelOptions {
  const LabelSheet* sheet = &LabelSheets().front();
  int firstLabel = 1;  // the first free label of the first sheet, counted from 1, row by row
  int copies = 1;      // of every label, one after the other
  // Called once, for labels of containers only; without it they list no modules.
  std::function<ContainerModules()> containerModules = {};
};

class LabelWriter final : public RowWriter {
 public:
  // REQUIRES: `output` outlives the writer; the first label is on the sheet and there is at least one copy; the report
  // of Begin has labels.
  LabelWriter(Output& output, LabelOptions options) : output_(output), options_(std::move(options)) {}

  void Begin(const Heading& heading, std::span<const Column> columns) override;
  void Row(std::span<const Value> values) override;
  void End() override;

 private:
  void Place(const std::string& label);

  Output& output_;
  LabelOptions options_;
  LabelMaker maker_;
  std::vector<Column> columns_;
  int place_ = 0;
  bool sheetIsOpen_ = false;
};

// The HTML inside a label of that size.
std::string LabelHtml(const Label& label, const LabelSheet& sheet);

}  // namespace kodra::console::labels
