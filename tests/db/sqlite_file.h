// An SQLite database file in a temporary folder, deleted with the object. It is created and filled through ODBC.
//
//   SqliteFile file;
//   file.Run(L"create table DEPTO(COD_DEPTO char(5))");
//   connection.SetConnectionString(file.ConnectionString());
#pragma once

#include <string>

#include "odbc/engine/connection.h"
#include "tests/db/temporary_folder.h"

namespace kodra::tests {

class SqliteFile {
 public:
  SqliteFile();
  ~SqliteFile();
  SqliteFile(const SqliteFile&) = delete;
  SqliteFile& operator=(const SqliteFile&) = delete;

  const std::wstring& Path() const { return path_; }
  // For ODBC and for ADO clients.
  std::wstring ConnectionString() const;
  // Runs one statement.
  void Run(const std::wstring& statement);
  // Open until the object is destroyed.
  odbc::Connection& Connection() { return connection_; }

 private:
  TemporaryFolder folder_;
  std::wstring path_;
  odbc::Connection connection_;
};

}  // namespace kodra::tests
