// Reads the rows of a report with all their columns, once, from the first to the last.
//
//   RowSource source(OpenReport(method, …), method);
//   for (std::vector<Value> values; source.Next(values);) …
#pragma once

#include <memory>
#include <vector>

#include "console/formats/row_writer.h"
#include "console/reports/report_methods.h"
#include "frame/report_call.h"

namespace kodra::console {

class RowSource {
 public:
  // A report with nothing to list may return null; the source then has the columns of the guide and no row. REQUIRES:
  // `rows` was not moved since the method returned it.
  RowSource(frame::ReportRows rows, const reports::ReportMethod& method);

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

// The kind of a column of that ADO data type (DataTypeEnum). Where the guide says that a column has dates, it also says
// whether they have a time of day: databases without a type for days alone would show midnight everywhere.
ColumnKind KindOfType(std::int32_t adoType);

}  // namespace kodra::console
