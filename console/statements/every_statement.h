// Every statement that a report can send to a database, whatever its parameters and the rows of the database are.
//
// They are found by running the report without a database, with the siblings that come with this program, once for each
// form of its statements: with the samples of the guide, with each further sample, with rows and without.
#pragma once

#include "console/statements/capture.h"

namespace kodra::console {

struct EveryStatement {
  // Each different statement once, in the order of the first time.
  std::vector<Statement> ofReport;
  // What the siblings send for the report.
  std::vector<Statement> ofSiblings;
  // The ProgIDs of the siblings that it asks for. A log that it writes only on errors is not among them, because the
  // report works without it.
  std::vector<std::wstring> siblings;
};

// The statements in the dialect of a database. Raises what the report raises for a database without dialect.
EveryStatement EveryStatementOf(const reports::ReportMethod& method, std::int32_t databaseCode);

}  // namespace kodra::console
