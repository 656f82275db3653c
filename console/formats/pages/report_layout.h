// The layout of a report's pages.
#pragma once

#include <memory>

#include "console/formats/pages/printout.h"
#include "console/formats/row_writer.h"
#include "console/reports/guide.h"

namespace kodra::console::pages {

// The writer that describes a report's rows to a printout, or null for labels, which have layouts of their own.
// REQUIRES: the printout outlives the writer.
std::unique_ptr<RowWriter> NewReportLayout(const guide::Report& report, Printout& printout);

// The guide's entry of the report. Raises UsageError for a heading that names no report.
const guide::Report& ReportOf(const Heading& heading);

}  // namespace kodra::console::pages
