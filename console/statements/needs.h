// What a report needs of an installation: tables, columns and sibling components.
//
// It is learnt from the report itself: the method runs without a database, with the siblings that come with this
// program, once for each form of its statements.
#pragma once

#include "console/reports/report_methods.h"
#include "console/statements/tables_read.h"

namespace kodra::console {

struct Needs {
  std::vector<TableNeed> tables;
  // What its siblings read in its name.
  std::vector<TableNeed> siblingTables;
  // The ProgIDs that it asks for. A log that it only writes on errors is none of them: reports get along without it.
  std::vector<std::wstring> siblings;
};

// Everything that the report may read, whatever its parameters ask for, in the order in which it names it.
Needs NeedsOf(const reports::ReportMethod& method);

}  // namespace kodra::console
