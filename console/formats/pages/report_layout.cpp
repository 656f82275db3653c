#include "console/formats/pages/report_layout.h"

#include "console/command_line/usage_error.h"
#include "console/formats/pages/listing_writer.h"
#include "console/formats/pages/statistics_writer.h"
#include "values/utf8.h"

namespace kodra::console::pages {

std::unique_ptr<RowWriter> NewReportLayout(const guide::Report& report, Printout& printout) {
  if (report.page.kind == guide::PageKind::kListing) return std::make_unique<ListingWriter>(printout);
  if (report.page.kind == guide::PageKind::kStatistic) return std::make_unique<StatisticsWriter>(printout);
  return nullptr;
}

const guide::Report& ReportOf(const Heading& heading) {
  const guide::Report* report = guide::Find(heading.className, heading.method);
  if (report == nullptr)
    throw UsageError(values::ToUtf8(L"o relatório " + heading.className + L"." + heading.method + L" não tem página"));
  return *report;
}

}  // namespace kodra::console::pages
