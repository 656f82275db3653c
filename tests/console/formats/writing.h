// Rows that a test makes, and the text that a format writes for them.
#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "console/formats/output.h"
#include "console/formats/row_writer.h"

namespace kodra::console {

using Cells = std::vector<Value>;

inline Heading ReportOfDepartments() { return {L"CDeptoRpt", L"RelatorioDeptos", L"Departamentos", {}}; }

inline void WriteTo(RowWriter& writer, const std::vector<Column>& columns, std::initializer_list<Cells> rows) {
  writer.Begin(ReportOfDepartments(), columns);
  for (const Cells& cells : rows) writer.Row(cells);
  writer.End();
}

// Returns the whole text that a writer with these options writes.
template <class Writer, class... Options>
std::string Written(const std::vector<Column>& columns, std::initializer_list<Cells> rows, Options... options) {
  TextOutput output;
  Writer writer(output, options...);
  WriteTo(writer, columns, rows);
  return output.Text();
}

// 31 December 2023, and the same at 10:20:30.
inline constexpr Date kDay = {45291};
inline constexpr Date kMoment = {45291 + (10 * 3600 + 20 * 60 + 30) / 86400.0};

}  // namespace kodra::console
