// A spreadsheet (Office Open XML): one sheet, its first row the names, which stay in sight and filter the rest.
//
// Every text is a text: one that begins with "=", "+", "-" or "@" is never a formula. Numbers and dates are a
// spreadsheet's own, dates shown as 31/12/2023. What its numbers cannot hold is written as text: dates before March
// 1900 and whole numbers beyond 15 digits.
//
// A text keeps every character: one that XML cannot hold is written as Office does, "_x0001_".
//
// Rows go to a temporary file of the library and from there, at End, to the path.
#pragma once

#include <memory>

#include "console/formats/row_writer.h"

namespace kodra::console {

// Writes a spreadsheet at a path; an existing file is replaced at End. The writer raises OutputError when a row or
// text is more than a sheet holds (1,048,575 rows, 32,767 characters) or the file cannot be written. On a system
// without the library this raises OutputError.
std::unique_ptr<RowWriter> NewXlsxWriter(const std::wstring& path);

}  // namespace kodra::console
