// Finds the tables and columns that a statement reads, from its text.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kodra::console {

struct TableNeed {
  std::wstring table;
  std::vector<std::wstring> columns;
};

// The tables after FROM and JOIN, in the order of the statement, each with the columns that the statement names. Tables
// of the database system itself, such as SYS.DUAL, are left out.
//
// Reads only statements in the form that the reports and their siblings use: a name is qualified with an alias, or
// belongs to the one table without an alias; an alias means the same table throughout. Raises std::logic_error for a
// statement of another form.
std::vector<TableNeed> TablesRead(std::wstring_view statement);

// Adds the tables and columns that `needs` does not contain yet.
void AddNeeds(std::vector<TableNeed>& needs, const std::vector<TableNeed>& more);

}  // namespace kodra::console
