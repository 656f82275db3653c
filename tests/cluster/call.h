// One call of a report, from a new client to the last row.
#pragma once

#include <cstddef>
#include <string>

#include "odbc/engine/surroundings.h"
#include "tests/engines/cases.h"
#include "tests/raised.h"

namespace kodra::tests {

// A native machine with the sibling components.
class Machine : public odbc::Surroundings {
 public:
  Machine();
};

// What the client received: the rows until the end or an error.
struct Answer {
  Raised error;
  std::size_t rows = 0;
  std::size_t hash = 0;  // of the columns and of the rows in any order: equal keys of an ORDER BY leave it open
  bool operator==(const Answer&) const = default;
};
std::ostream& operator<<(std::ostream& out, const Answer& answer);

// Opens the report of a case; raises what the report raises.
frame::ReportRows Open(const engines::Case& wanted, const std::wstring& connectionString, Machine& machine);

// Opens it and reads all rows.
Answer Call(const engines::Case& wanted, const std::wstring& connectionString);

}  // namespace kodra::tests
