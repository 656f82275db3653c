// What a database says about itself through ODBC: whether it accepts a statement, which is prepared but not run, and
// which indexes its tables have.
//
//   const auto inspector = OdbcInspector::Open(connectionString);
//   if (inspector != nullptr) inspector->Prepare(L"SELECT COD_DEPTO FROM DEPTO");
//
// It has a connection of its own. Used by the thread that made it.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "odbc/engine/connection.h"

namespace kodra::console {

class OdbcInspector {
 public:
  // Null for a connection string of an OLE DB provider other than ODBC's, which has none of this. Raises what the
  // driver raises.
  static std::unique_ptr<OdbcInspector> Open(const std::wstring& connectionString);

  // The name and version that the database has for itself, and the name of the database in it; empty where the driver
  // does not say.
  std::string Product() const;
  std::string DatabaseName() const;

  // Has the database check a statement without running it. Raises what the database raises.
  void Prepare(const std::wstring& statement);

  // The columns of each index of a table and of its primary key, in upper case and in the order of the index. Raises
  // what the driver raises.
  std::vector<std::vector<std::string>> Indexes(const std::string& table);

  // The number of characters that each text column of the list accepts, in the order of the list. Raises what the
  // database raises.
  std::vector<std::int64_t> Lengths(const std::wstring& table, const std::vector<std::wstring>& columns);

 private:
  explicit OdbcInspector(std::unique_ptr<odbc::Connection> connection) : connection_(std::move(connection)) {}

  std::unique_ptr<odbc::Connection> connection_;
};

}  // namespace kodra::console
