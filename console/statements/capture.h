// Captures the statements that a report sends, without a database.
//
// The real report method runs with placeholders for the sibling components. Each statement that it opens is recorded
// and returns no rows, or one row of nulls if the report fails without rows.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "console/reports/report_methods.h"
#include "frame/parameter_object.h"

namespace kodra::console {

struct Statement {
  std::wstring text;
  // The values of its parameter markers, in order.
  std::vector<std::wstring> parameters;
};

struct Captured {
  // In the order in which the report sends them.
  std::vector<Statement> statements;
  // The ProgIDs of the components that it asked for, each once, in the order of the first request.
  std::vector<std::wstring> components;
};

// Raises what the report raises.
Captured Capture(const reports::ReportMethod& method, std::int32_t databaseCode, frame::ParameterObject& parameters);

}  // namespace kodra::console
