// The machine as the program reads reports on it: the surroundings that reports run in, and their rows with every
// column.
//
// There are two: over ODBC with the sibling components that come with the program (machine_odbc.cpp), and on Windows
// over ADO with the siblings that are installed (machine_windows.cpp).
#pragma once

#include <memory>
#include <vector>

#include "console/formats/row_writer.h"
#include "frame/report_class.h"
#include "platform/surroundings.h"

namespace kodra::console {

class Machine {
 public:
  virtual ~Machine() = default;
  virtual platform::Surroundings& Around() = 0;
  // Whether siblings belong to the machine and may be missing, rather than to the program.
  virtual bool SiblingsAreInstalled() const = 0;
};

// One at a time; its thread is the one that uses it.
std::unique_ptr<Machine> NewMachine();

// The rows of a report, read once from the first to the last.
class RowSource {
 public:
  virtual ~RowSource() = default;
  virtual const std::vector<Column>& Columns() const = 0;
  // Reads the next row into `values`, a value for each column; false when there is none. Raises what the reading
  // raises.
  virtual bool Next(std::vector<Value>& values) = 0;
};

// REQUIRES: `rows` come from a machine of NewMachine, are positioned where the report left them, and are not null.
std::unique_ptr<RowSource> NewRowSource(frame::ReportRows rows);

// What a column of an ADO data type (DataTypeEnum) holds.
ColumnKind KindOfType(std::int32_t adoType);

}  // namespace kodra::console
