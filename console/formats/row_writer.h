// Writes the rows of a report in one format.
//
//   CsvWriter writer(output, {});
//   writer.Begin(heading, columns);
//   while (rows are left) writer.Row(values);
//   writer.End();
//
// Each row is written at once, so that a writer's memory does not grow with the number of rows, unless its own header
// says otherwise. A writer may be destroyed without End; what it has written is then incomplete.
#pragma once

#include <span>
#include <string>
#include <utility>
#include <vector>

#include "values/value.h"

namespace kodra::console {

// The kind of a column's values, as the database declares it. A value may be of another kind: a computed column is
// often declared as text, and in SQLite a value need not have its column's type.
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

// The report that the rows belong to.
struct Heading {
  std::wstring className;  // "CDeptoRpt"
  std::wstring method;     // "RelatorioDeptos"
  std::wstring title;      // for people: "Departamentos"
  // The parameters that were given, in the order of the report's own list: name, and value as a person reads it.
  std::vector<std::pair<std::wstring, std::wstring>> parameters;
};

class RowWriter {
 public:
  virtual ~RowWriter() = default;

  // Called first, once.
  virtual void Begin(const Heading& heading, std::span<const Column> columns) = 0;
  // Takes one value for each column.
  virtual void Row(std::span<const Value> values) = 0;
  // Called last, once, after all rows.
  virtual void End() = 0;
};

}  // namespace kodra::console
