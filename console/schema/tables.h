// The tables and columns that the reports and the sibling components read, with their types: stated once, for the
// commands `esquema` and `verifica`.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kodra::console::schema {

enum class Kind { kText, kLongText, kNumber, kDate, kMoment };

struct Column {
  std::wstring_view name;
  Kind kind;
  int length = 0;  // characters of a kText
  // The report of operators fails for a longer text; 0 if any length is good.
  int longest = 0;
};

struct Table {
  std::wstring_view name;
  std::vector<Column> columns;
};

const std::vector<Table>& Tables();

// REQUIRES: the table has the column.
const Column& ColumnOf(std::wstring_view table, std::wstring_view column);

// The type of a column in the words of a database: VARCHAR2(10). REQUIRES: a code of Databases().
std::string TypeName(const Column& column, std::int32_t databaseCode);

}  // namespace kodra::console::schema
