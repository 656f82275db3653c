// What a report needs in an installation: tables, columns and sibling components.
//
// The needs are found in every statement that the report can send (every_statement.h).
#pragma once

#include "console/reports/report_methods.h"
#include "console/statements/tables_read.h"

namespace kodra::console {

struct Needs {
  std::vector<TableNeed> tables;
  // What the siblings read for the report.
  std::vector<TableNeed> siblingTables;
  // The ProgIDs of the siblings that it asks for. A log that it writes only on errors is not among them, because the
  // report works without it.
  std::vector<std::wstring> siblings;
};

// Everything that the report may read, whatever its parameters are, in the order in which it names it.
Needs NeedsOf(const reports::ReportMethod& method);

}  // namespace kodra::console
