// Reads the rows of a report with all their columns, once, from the first to the last.
#pragma once

#include <memory>
#include <vector>

#include "console/formats/row_writer.h"
#include "frame/report_call.h"

namespace kodra::console {

class RowSource {
 public:
  // REQUIRES: `rows` is not null and was not moved since the report returned it.
  explicit RowSource(frame::ReportRows rows);

  const std::vector<Column>& Columns() const { return columns_; }
  // Reads the next row into `values`, one value for each column; returns false after the last row. Raises the errors of
  // the recordset.
  bool Next(std::vector<Value>& values);

 private:
  frame::ReportRows rows_;
  std::vector<std::unique_ptr<platform::Field>> fields_;
  std::vector<Column> columns_;
  bool started_ = false;
};

// The kind of a column of that ADO data type (DataTypeEnum).
ColumnKind KindOfType(std::int32_t adoType);

}  // namespace kodra::console
