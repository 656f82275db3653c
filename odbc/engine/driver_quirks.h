// What a driver needs beyond ODBC's common rules, found by its name.
//
// SQLite's driver, measured with 0.9998: without its StepAPI key it reads a whole result into memory before the first
// row. With the key it steps through the rows, but then it describes every expression column as varchar(255), while it
// describes a result read whole after its first row. Neither declared sizes nor declared types are binding: a
// varchar(20) may contain 500 characters, a date any text. In a block of several rows a cell that its buffer cut off
// cannot be read again. Its narrow text is the UTF-8 that the database stores; wide text is converted from it. Its
// SQLCancel closes the statement, which frees what a thread that runs it still uses.
// MariaDB's driver, measured with 3.1.15: it describes types and sizes correctly and has no streaming; it keeps the
// result. It mistakes a UTF-16 unit whose low byte is D8 to DB for the first of a surrogate pair: for a text with an
// "Ú" it reports one unit too few, truncates long ones, and reads beyond the end of a parameter or a statement. The
// lengths of its UTF-8 are correct.
#pragma once

#include <string>
#include <string_view>

namespace kodra::odbc {

// The connection string with the keys that make the driver stream its rows, unless it contains them already.
std::wstring WithStreaming(const std::wstring& odbcConnectionString);

// True when declared types and sizes say nothing reliable about a value. Text is then read as narrow text in UTF-8.
// `driverName` is the value of SQL_DRIVER_NAME.
bool TypesVaryByRow(const std::wstring& driverName);

// True when text must be exchanged as UTF-8, because the driver miscounts wide text. When the connection string names a
// character set of its own, the driver decides what narrow text is, so wide text is used.
bool TextIsUtf8(const std::wstring& driverName, const std::wstring& odbcConnectionString);

// True when a statement that one thread runs can be stopped by another.
bool CanBeCancelled(const std::wstring& driverName);

// How many units beyond the end of a wide text MariaDB's driver may read: a statement is followed by as many blanks.
std::size_t UnitsReadBeyond(std::u16string_view text);

// True for a statement that may run twice without changing anything, so that it can be run for a description.
bool OnlyReads(const std::wstring& statement);

}  // namespace kodra::odbc
