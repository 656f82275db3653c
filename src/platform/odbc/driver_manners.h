// What a driver needs beyond ODBC's common rules, told by its name.
//
// SQLite's driver, measured with 0.9998: without its StepAPI key it reads a whole result into memory before the first
// row. With it rows are stepped, but then every expression column is described as varchar(255), where a result read
// whole is described after its first row. Declared sizes bind nothing, neither do declared types: a varchar(20) may
// give 500 characters, a date any text. In a block of several rows a cell cut off by its buffer cannot be read again.
// MariaDB's driver, measured with 3.1.15: it describes types and sizes truly and has no streaming; it keeps the result.
#pragma once

#include <string>

namespace kodra::platform::odbc {

// The connection string with the keys that make the driver stream its rows, unless it holds them already.
std::wstring WithStreaming(const std::wstring& odbcConnectionString);

// True when declared types and sizes say nothing sure about a value. `driverName` is what SQL_DRIVER_NAME gives.
bool TypesVaryByRow(const std::wstring& driverName);

// True for a statement that may run twice without changing anything, so that it can be run for a description.
bool OnlyReads(const std::wstring& statement);

}  // namespace kodra::platform::odbc
