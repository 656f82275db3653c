#include "tests/db/sqlite_file.h"

namespace kodra::tests {

SqliteFile::SqliteFile() : path_(folder_.Path().wstring() + L"/depósito.db") {
  connection_.SetConnectionString(ConnectionString());
  connection_.Open(L"", L"", platform::ad::kUnspecified);
}

SqliteFile::~SqliteFile() { connection_.Close(); }

std::wstring SqliteFile::ConnectionString() const { return L"Driver={SQLite3};Database=" + path_ + L";"; }

void SqliteFile::Run(const std::wstring& statement) { connection_.Execute(statement, platform::ad::kCmdText); }

}  // namespace kodra::tests
