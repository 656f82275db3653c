#include "console/formats/labels/label_writer.h"

#include "console/formats/pages/html_canvas.h"
#include "console/formats/pages/pdf_canvas.h"

namespace kodra::console::labels {

std::unique_ptr<pages::Canvas> NewCanvas(pages::PageFormat format, Output& output, std::wstring_view title) {
  if (format == pages::PageFormat::kPdf) return std::make_unique<pages::PdfCanvas>(output, title);
  return std::make_unique<pages::HtmlCanvas>(output, title);
}

void LabelWriter::Begin(const Heading& heading, std::span<const Column> columns) {
  columns_.assign(columns.begin(), columns.end());
  maker_ = LabelMakerOf(heading, options_.containerModules);
  canvas_ = NewCanvas(format_, output_, heading.title);
  printer_ = std::make_unique<LabelPrinter>(*canvas_, options_.print);
}

void LabelWriter::Row(std::span<const Value> values) {
  Label label = maker_(RowReader(columns_, values));
  if (!options_.organisation.empty()) label.organisation = options_.organisation;
  printer_->Print(label);
}

}  // namespace kodra::console::labels
