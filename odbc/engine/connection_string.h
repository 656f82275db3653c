// Converts an OLE DB connection string to the ODBC driver's.
//
//   Provider=MSDASQL.1;Extended Properties="Driver={SQLite3};Database=/tmp/a.db";User ID=ana;Password=x;
//   becomes  Driver={SQLite3};Database=/tmp/a.db;UID=ana;PWD=x;
//
//   Provider, Persist Security Info   dropped
//   Extended Properties               its content is inserted
//   User ID, Password                 UID, PWD
//   Initial Catalog                   DATABASE, unless the string names one
//   Data Source                       DSN; dropped when the string names a Driver or a DSN
//   everything else                   unchanged
//
// Keys are compared without regard to letter case. A value may be in double or single quotes (removed, and doubled ones
// inside made single) or in braces (kept). Empty pairs are skipped. A pair without "=", an unclosed value, and Extended
// Properties inside Extended Properties raise 80040E73.
#pragma once

#include <string>

namespace kodra::odbc {

// A user or password that is not empty replaces the string's own.
std::wstring ToOdbcConnectionString(const std::wstring& text, const std::wstring& user, const std::wstring& password);

}  // namespace kodra::odbc
