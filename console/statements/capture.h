// The statements that a report sends, without a database.
//
// The real report method runs; what it opens is written down and has no rows, or, where it cannot go on without any,
// one row of nulls. Sibling components are placeholders.
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
  // The ProgIDs of the components that it asked for, each once, in the order of the asking.
  std::vector<std::wstring> components;
};

// Raises what the report raises.
Captured Capture(const reports::ReportMethod& method, std::int32_t databaseCode, frame::ParameterObject& parameters);

}  // namespace kodra::console
