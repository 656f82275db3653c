// What a statement reads, taken from its text.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kodra::console {

struct TableNeed {
  std::wstring table;
  std::vector<std::wstring> columns;
};

// The tables behind FROM and JOIN, in the order of the statement, each with the columns that the statement names. A
// table of the database system itself, such as SYS.DUAL, does not count.
//
// It understands the form that the statements of the reports and of their siblings have: names are qualified with an
// alias, or belong to the one table that has no alias; an alias means the same table throughout. Raises
// std::logic_error for a statement of another form.
std::vector<TableNeed> TablesRead(std::wstring_view statement);

// Adds tables and columns that are not there yet.
void AddNeeds(std::vector<TableNeed>& needs, const std::vector<TableNeed>& more);

}  // namespace kodra::console
