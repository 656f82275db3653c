#include "client/preview/html_writer.h"

#include "client/preview/listing_writer.h"
#include "client/preview/statistics_writer.h"
#include "client/usage_error.h"
#include "platform/odbc/utf8.h"

namespace kodra::client::preview {

void HtmlWriter::Begin(const Heading& heading, std::span<const Column> columns) {
  if (GivesLabels(heading))
    layout_ = std::make_unique<LabelWriter>(output_, options_.labels);
  else if (StatisticsGatherer::Knows(heading))
    layout_ = std::make_unique<StatisticsWriter>(output_, options_.issued);
  else if (FindListingLayout(heading.className, heading.method) != nullptr)
    layout_ = std::make_unique<ListingWriter>(output_, options_.issued);
  else
    throw UsageError(
        platform::odbc::ToUtf8(L"o relatório " + heading.className + L"." + heading.method + L" não tem página"));
  layout_->Begin(heading, columns);
}

}  // namespace kodra::client::preview
