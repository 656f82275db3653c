// What a driver needs beyond ODBC's common rules, told by its name.
//
// SQLite's driver, measured with 0.9998: without its StepAPI key it reads a whole result into memory before the first
// row. With it rows are stepped, but then every expression column is described as varchar(255), where a result read
// whole is described after its first row. Declared sizes bind nothing, neither do declared types: a varchar(20) may
// give 500 characters, a date any text. In a block of several rows a cell cut off by its buffer cannot be read again.
// MariaDB's driver, measured with 3.1.15: it describes types and sizes truly and has no streaming; it keeps the result.
// It takes a UTF-16 unit whose low byte is D8 to DB for the first of a surrogate pair: of a text with an "Ú" it tells
// one unit too few, cuts long ones short, and reads beyond the end of a parameter or a statement. The lengths of its
// UTF-8 are true.
#pragma once

#include <string>
#include <string_view>

namespace kodra::odbc {

// The connection string with the keys that make the driver stream its rows, unless it holds them already.
std::wstring WithStreaming(const std::wstring& odbcConnectionString);

// True when declared types and sizes say nothing sure about a value. `driverName` is what SQL_DRIVER_NAME gives.
bool TypesVaryByRow(const std::wstring& driverName);

// True when text must be exchanged as UTF-8, because the driver miscounts wide text. A connection string that names a
// character set of its own leaves it to the driver what narrow text is, and so to wide text.
bool TextIsUtf8(const std::wstring& driverName, const std::wstring& odbcConnectionString);

// How many units beyond the end of a wide text MariaDB's driver may read: a statement is followed by as many blanks.
std::size_t UnitsReadBeyond(std::u16string_view text);

// True for a statement that may run twice without changing anything, so that it can be run for a description.
bool OnlyReads(const std::wstring& statement);

}  // namespace kodra::odbc
