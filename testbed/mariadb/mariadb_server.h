// A private MariaDB server, which listens on a socket in a temporary folder and on no port. Nobody but this program's
// user and root can enter the folder. The server ends with the object, and at the latest with this program,
// however it ends.
//
//   MariaDbServer server;
//   server.CreateDatabase(L"arquivo");
//   server.RunScript(L"arquivo", "/path/to/schema.sql");
//   connection.SetConnectionString(server.ConnectionString(L"arquivo"));
//
// When root runs this program, the server runs as a user that has no account, so that a client of the server has no
// access to root's files. Each server has passwords of its own.
//
// Needs Debian's packages mariadb-server-core (only the server: its system tables are made from the SQL files that come
// with it), mariadb-client-core and odbc-mariadb. A missing one raises std::runtime_error that says what to install.
#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kodra::testbed {

class MariaDbServer {
 public:
  // Takes about a second. The buffer pool is the memory for data, such as "128M" or "2G". REQUIRES: the thread lives as
  // long as the server should.
  explicit MariaDbServer(std::string bufferPool = "128M");
  ~MariaDbServer();
  MariaDbServer(const MariaDbServer&) = delete;
  MariaDbServer& operator=(const MariaDbServer&) = delete;

  // "Driver={…};Server=localhost;Socket=…;Database=…;Uid=…;Pwd=…;" for the client, who may do everything in the
  // databases made by CreateDatabase, and nothing else.
  std::wstring ConnectionString(std::wstring_view database) const;
  // The same with another password, and for another user.
  std::wstring ConnectionString(std::wstring_view database, std::wstring_view password) const;
  std::wstring ConnectionString(std::wstring_view database, std::wstring_view user, std::wstring_view password) const;

  // Creates an empty database, with the character set utf8mb4; an existing one of that name is dropped. The client may
  // also create databases whose names begin with this one and an underscore.
  void CreateDatabase(std::wstring_view name) const;
  // Runs a UTF-8 script in a database, as the client. A failure raises std::runtime_error with the line and the
  // server's message.
  void RunScript(std::wstring_view database, const std::string& path) const;
  // Runs statements as the administrator of the server, who may create users. A failure raises std::runtime_error with
  // the server's message.
  void Administer(std::string_view statements) const;

 private:
  void MakeFolders();
  std::vector<std::string> ServerCommand() const;
  void MakeSystemTables() const;
  void Start();
  bool WaitUntilItAnswers() const;
  // The file with the client program's settings for a user.
  std::string OptionsOf(const std::string& user) const;
  void WriteClientOptions(const std::string& user, const std::string& password) const;
  // Runs the client program as a user, with an option and its input from a file.
  void RunClient(const std::string& user, const std::string& option, const std::string& input) const;
  void Stop() noexcept;

  std::string bufferPool_;
  std::wstring driver_;
  std::string clientPassword_;
  std::string rootPassword_;
  std::string folder_;        // settings, passwords and logs
  std::string serverFolder_;  // what the server's own user reads and writes
  std::string socket_;
  std::optional<uid_t> user_;  // the server's, when it is not this program's
  pid_t process_ = 0;
};

}  // namespace kodra::testbed
