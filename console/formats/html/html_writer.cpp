#include "console/formats/html/html_writer.h"

#include "console/command_line/usage_error.h"
#include "console/formats/pages/listing_writer.h"
#include "console/formats/pages/statistics_writer.h"
#include "console/reports/guide.h"
#include "values/utf8.h"

namespace kodra::console::html {

void HtmlWriter::Begin(const Heading& heading, std::span<const Column> columns) {
  const guide::Report* report = guide::Find(heading.className, heading.method);
  if (report == nullptr)
    throw UsageError(values::ToUtf8(L"o relatório " + heading.className + L"." + heading.method + L" não tem página"));
  if (report->page.kind == guide::PageKind::kListing)
    layout_ = std::make_unique<ListingWriter>(output_, options_.issued);
  else if (report->page.kind == guide::PageKind::kStatistic)
    layout_ = std::make_unique<StatisticsWriter>(output_, options_.issued);
  else
    layout_ = std::make_unique<LabelWriter>(output_, options_.labels);
  layout_->Begin(heading, columns);
}

}  // namespace kodra::console::html
