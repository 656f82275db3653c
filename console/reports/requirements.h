// What each report needs of an installation: tables, columns and sibling components.
//
// Everything that a report may read counts, whatever its parameters ask for this time.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "console/reports/report_methods.h"

namespace kodra::console {

struct TableNeed {
  std::wstring table;
  std::vector<std::wstring> columns;
  bool operator==(const TableNeed&) const = default;
};

struct Requirement {
  std::wstring_view className;
  std::wstring_view method;
  // "TABLE: COLUMN COLUMN; TABLE: COLUMN".
  std::wstring_view tables;
  // What its siblings read in its name, as those that come with this program do.
  std::wstring_view siblingTables;
  // The ProgIDs, with blanks between them. Each report needs kConnectionSibling besides. A log that is only written on
  // errors is none of them: reports get along without it.
  std::wstring_view siblings;
};

inline constexpr std::wstring_view kConnectionSibling = L"KodraConexao.StrCon";

// In the order of reports::ReportMethods().
std::span<const Requirement> Requirements();

// The lists of a requirement, taken apart.
std::vector<TableNeed> TablesIn(std::wstring_view list);
std::vector<std::wstring> WordsIn(std::wstring_view list);

}  // namespace kodra::console
