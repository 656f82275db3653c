// A MariaDB server of the test program's own: started at first use, on 127.0.0.1 and a free port, with its data in a
// temporary folder; stopped by its own process id when the program ends, whichever way it ends.
//
//   MariaDbServer& server = MariaDbServer::Instance();
//   server.CreateDatabase(L"arq");
//   server.RunScript(L"arq", "/path/to/schema.sql");
//   connection.SetConnectionString(server.ConnectionString(L"arq"));
//
// Needs Debian's packages mariadb-server-core (the server alone: its system tables are made from the SQL files it
// comes with) and odbc-mariadb. What is missing raises std::runtime_error with what to install.
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kodra::tests {

class MariaDbServer {
 public:
  static MariaDbServer& Instance();

  MariaDbServer(const MariaDbServer&) = delete;
  MariaDbServer& operator=(const MariaDbServer&) = delete;

  std::uint16_t Port() const { return port_; }
  // "Driver={…};Server=127.0.0.1;Port=…;Database=…;Uid=…;Pwd=…;" for a user who may do everything.
  std::wstring ConnectionString(std::wstring_view database) const;
  // The same with another password.
  std::wstring ConnectionString(std::wstring_view database, std::wstring_view password) const;

  // Makes a database anew, empty, its character set utf8mb4.
  void CreateDatabase(std::wstring_view name) const;
  // Runs the statements of a UTF-8 script in a database; a failure names the statement.
  void RunScript(std::wstring_view database, const std::string& path) const;

 private:
  MariaDbServer();
  ~MariaDbServer();

  void MakeSystemTables() const;
  void Start();
  bool WaitUntilItAnswers() const;
  void Stop() noexcept;

  std::string folder_;
  std::wstring driver_;
  std::uint16_t port_ = 0;
  pid_t process_ = 0;
};

// The statements of a script: separated by ";", which counts for nothing inside quotes and comments. Comments are left
// out, as are empty statements.
std::vector<std::string> SplitScript(std::string_view script);

}  // namespace kodra::tests
