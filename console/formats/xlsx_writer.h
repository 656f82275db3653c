// A spreadsheet (Office Open XML) with one sheet. Its first row has the names of the columns; it stays visible and has
// a filter.
//
// A text is always a text: one that begins with "=", "+", "-" or "@" is never a formula. It keeps every character; one
// that XML cannot contain is written as Office does, "_x0001_". Numbers and dates are numbers and dates of the
// spreadsheet, dates shown as 31/12/2023. Those that it cannot hold are written as text: dates before March 1900 or
// after 9999, and whole numbers of more than 15 digits.
//
// Rows are written to a temporary file of libxlsxwriter, and at End to the path.
#pragma once

#include <memory>

#include "console/formats/row_writer.h"

namespace kodra::console {

// Returns a writer to the path; an existing file is replaced at End. The writer raises OutputError for more rows than a
// sheet can have (1,048,575), for a text longer than a cell can hold (32,767 units of UTF-16), and when a file cannot
// be written.
std::unique_ptr<RowWriter> NewXlsxWriter(const std::wstring& path);

}  // namespace kodra::console
