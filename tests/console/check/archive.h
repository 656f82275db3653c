// Archives with the tables of the sample archive that a test may change.
#pragma once

#include <string>
#include <vector>

#include "tests/db/sample.h"

namespace kodra::console {

// The connection string of a new archive without rows, after these statements have run in it. It exists until the next
// call.
std::wstring NewArchiveOn(tests::Engine engine, const std::vector<std::wstring>& statements);

// The same for an archive whose tables have no keys.
std::wstring NewArchiveWithoutKeysOn(tests::Engine engine, const std::vector<std::wstring>& statements);

// The statements that add this many rows to a table, each with a number in one column.
std::vector<std::wstring> Rows(const std::wstring& table, const std::wstring& column, int thousands);

// The statements that add this many documents, which have nothing but a code.
std::vector<std::wstring> Documents(int thousands);

}  // namespace kodra::console
