#include "console/formats/html/html_writer.h"

#include "console/formats/html/html_printout.h"
#include "console/formats/pages/report_layout.h"

namespace kodra::console::html {

void HtmlWriter::Begin(const Heading& heading, std::span<const Column> columns) {
  printout_ = std::make_unique<HtmlPrintout>(output_, options_.letterhead);
  layout_ = pages::NewReportLayout(pages::ReportOf(heading), *printout_);
  if (!layout_) layout_ = std::make_unique<labels::LabelWriter>(output_, pages::PageFormat::kHtml, options_.labels);
  layout_->Begin(heading, columns);
}

}  // namespace kodra::console::html
