// Writes the rows of a report in one format.
//
//   CsvWriter writer(output, {});
//   writer.Begin(heading, columns);
//   while (rows are left) writer.Row(values);
//   writer.End();
//
// Rows are written as they come, so that the memory a writer takes does not grow with their number, unless its own
// header says otherwise. A writer that is destroyed without End leaves what it wrote for its owner to discard.
#pragma once

#include <span>
#include <string>
#include <utility>
#include <vector>

#include "values/value.h"

namespace kodra::console {

// What a column holds, as the database declares it. A value may still be of another kind: a computed column is often
// declared as text, and SQLite lets a row differ from its column.
enum class ColumnKind {
  kText,
  kNumber,
  kDay,     // a date without a time of day
  kMoment,  // a date with one
  kFlag,
};

struct Column {
  std::wstring name;
  ColumnKind kind = ColumnKind::kText;
};

// What the rows are of.
struct Heading {
  std::wstring className;  // "CDeptoRpt"
  std::wstring method;     // "RelatorioDeptos"
  std::wstring title;      // for people: "Departamentos"
  // The parameters that were given, in the order of the report's own list: the name and the value as a person reads it.
  std::vector<std::pair<std::wstring, std::wstring>> parameters;
};

class RowWriter {
 public:
  virtual ~RowWriter() = default;

  // Called once and first. A report that returns no recordset has no columns.
  virtual void Begin(const Heading& heading, std::span<const Column> columns) = 0;
  // A value for each column.
  virtual void Row(std::span<const Value> values) = 0;
  // Called once and last, when every row has been written.
  virtual void End() = 0;
};

}  // namespace kodra::console
