#include "console/formats/html/html_writer.h"

#include "console/command_line/usage_error.h"
#include "console/formats/html/listing_writer.h"
#include "console/formats/html/statistics_writer.h"
#include "values/utf8.h"

namespace kodra::console::html {

void HtmlWriter::Begin(const Heading& heading, std::span<const Column> columns) {
  if (GivesLabels(heading))
    layout_ = std::make_unique<LabelWriter>(output_, options_.labels);
  else if (StatisticsGatherer::Knows(heading))
    layout_ = std::make_unique<StatisticsWriter>(output_, options_.issued);
  else if (FindListingLayout(heading.className, heading.method) != nullptr)
    layout_ = std::make_unique<ListingWriter>(output_, options_.issued);
  else
    throw UsageError(values::ToUtf8(L"o relatório " + heading.className + L"." + heading.method + L" não tem página"));
  layout_->Begin(heading, columns);
}

}  // namespace kodra::console::html
