// The rows of a report as the program reads them: with every column, once from the first to the last.
#pragma once

#include <memory>
#include <vector>

#include "console/formats/row_writer.h"
#include "frame/report_call.h"

namespace kodra::console {

class RowSource {
 public:
  // REQUIRES: `rows` are where the report left them, and not null.
  explicit RowSource(frame::ReportRows rows);

  const std::vector<Column>& Columns() const { return columns_; }
  // Reads the next row into `values`, a value for each column; false when there is none. Raises what the reading
  // raises.
  bool Next(std::vector<Value>& values);

 private:
  frame::ReportRows rows_;
  std::vector<std::unique_ptr<platform::Field>> fields_;
  std::vector<Column> columns_;
  bool started_ = false;
};

// What a column of an ADO data type (DataTypeEnum) holds.
ColumnKind KindOfType(std::int32_t adoType);

}  // namespace kodra::console
