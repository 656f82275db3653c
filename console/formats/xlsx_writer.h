// A spreadsheet (Office Open XML) with one sheet. Its first row has the names of the columns; it stays visible and has
// a filter. Columns that continue the text of the one
// before them, as those of the event log, are hidden at the end of the sheet if they are empty in all rows.
//
// It is printed on A4, in landscape if it is wide, with all columns on the width of a page, the title and the names on
// every page, and page numbers.
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

struct XlsxOptions {
  // The captions of the guide instead of the names of the columns. A column without a caption keeps its name, and so do
  // columns that share one.
  bool captions = false;
};

// Returns a writer to the path; an existing file is replaced at End. The writer raises FileError for more rows than a
// sheet can have (1,048,575), for a text longer than a cell can hold (32,767 units of UTF-16), and when a file cannot
// be written.
std::unique_ptr<RowWriter> NewXlsxWriter(const std::wstring& path, XlsxOptions options);

}  // namespace kodra::console
