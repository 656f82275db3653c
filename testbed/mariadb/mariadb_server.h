// A private MariaDB server: on 127.0.0.1 and a free port, with its data in a temporary folder. The server ends with the
// object, and at the latest with this program, whichever way it ends.
//
//   MariaDbServer server;
//   server.CreateDatabase(L"arquivo");
//   server.RunScript(L"arquivo", "/path/to/schema.sql");
//   connection.SetConnectionString(server.ConnectionString(L"arquivo"));
//
// Needs Debian's packages mariadb-server-core (only the server: its system tables are made from the SQL files that come
// with it), mariadb-client-core and odbc-mariadb. A missing one raises std::runtime_error that says what to install.
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace kodra::testbed {

class MariaDbServer {
 public:
  // Takes about a second. REQUIRES: the thread lives as long as the server should.
  MariaDbServer();
  ~MariaDbServer();
  MariaDbServer(const MariaDbServer&) = delete;
  MariaDbServer& operator=(const MariaDbServer&) = delete;

  std::uint16_t Port() const { return port_; }
  // "Driver={…};Server=127.0.0.1;Port=…;Database=…;Uid=…;Pwd=…;" for a user who may do everything.
  std::wstring ConnectionString(std::wstring_view database) const;
  // The same with another password.
  std::wstring ConnectionString(std::wstring_view database, std::wstring_view password) const;

  // Makes an empty database, with the character set utf8mb4; an existing one of that name is dropped.
  void CreateDatabase(std::wstring_view name) const;
  // Runs a UTF-8 script in a database. A failure raises std::runtime_error with the line and the server's message.
  void RunScript(std::wstring_view database, const std::string& path) const;

 private:
  void MakeSystemTables() const;
  void Start();
  bool WaitUntilItAnswers() const;
  void WriteClientOptions() const;
  // Runs the client program with an option and its input from a file.
  void RunClient(const std::string& option, const std::string& input) const;
  void Stop() noexcept;

  std::string folder_;
  std::wstring driver_;
  std::uint16_t port_ = 0;
  pid_t process_ = 0;
};

}  // namespace kodra::testbed
