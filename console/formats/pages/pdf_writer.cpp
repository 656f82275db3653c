#include "console/formats/pages/pdf_writer.h"

#include "console/command_line/usage_error.h"
#include "console/formats/cell_text.h"
#include "console/formats/pages/paged_printout.h"
#include "console/formats/pages/report_layout.h"
#include "values/utf8.h"

namespace kodra::console::pages {

void PdfWriter::Begin(const Heading& heading, std::span<const Column> columns) {
  const guide::Report& report = ReportOf(heading);
  canvas_ = std::make_unique<PdfCanvas>(output_, values::FromUtf8(report.page.title));
  printout_ = std::make_unique<PagedPrintout>(*canvas_, letterhead_);
  layout_ = NewReportLayout(report, *printout_);
  if (!layout_) layout_ = std::make_unique<labels::LabelWriter>(output_, PageFormat::kPdf, labels_);
  layout_->Begin(heading, columns);
}

void PdfWriter::Row(std::span<const Value> values) {
  if (++rows_ > kMostPdfRows) {
    throw UsageError(values::ToUtf8(L"um pdf comporta até " + CountText(kMostPdfRows) +
                                    L" linhas; escolha menos linhas, ou o formato csv ou xlsx"));
  }
  layout_->Row(values);
}

}  // namespace kodra::console::pages
