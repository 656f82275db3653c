#include "testbed/mariadb/mariadb_server.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <thread>

#include "testbed/mariadb/child_process.h"

namespace kodra::testbed {
namespace {

namespace fs = std::filesystem;

constexpr std::wstring_view kUser = L"arquivo";
// No test may print it: the test runs search their logs for it.
constexpr std::wstring_view kPassword = L"NuncaMostrada";

std::string Contents(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("cannot read " + path.string());
  return {std::istreambuf_iterator<char>(file), {}};
}

// The standard library converts UTF-8 to wide text through std::filesystem.
std::wstring Wide(const std::string& utf8) { return fs::path(utf8).wstring(); }
std::string Utf8(std::wstring_view text) { return fs::path(text).string(); }

std::string Program(const char* path, const char* package) {
  if (!fs::exists(path)) throw std::runtime_error("no " + std::string(path) + ": install the package " + package);
  return path;
}

// The name of MariaDB's driver in the driver manager.
std::wstring DriverName() {
  std::istringstream known(fs::exists("/etc/odbcinst.ini") ? Contents("/etc/odbcinst.ini") : "");
  for (std::string line; std::getline(known, line);) {
    if (line.starts_with("[MariaDB") && line.ends_with("]")) return Wide(line.substr(1, line.size() - 2));
  }
  throw std::runtime_error("no MariaDB driver in /etc/odbcinst.ini: install the package odbc-mariadb");
}

// A port that was free a moment ago.
std::uint16_t FreePort() {
  const int probe = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t length = sizeof address;
  const bool bound = bind(probe, reinterpret_cast<sockaddr*>(&address), length) == 0 &&
                     getsockname(probe, reinterpret_cast<sockaddr*>(&address), &length) == 0;
  close(probe);
  if (!bound) throw std::runtime_error("no free port on 127.0.0.1");
  return ntohs(address.sin_port);
}

bool Answers(std::uint16_t port) {
  const int probe = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(port);
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  const bool answers = connect(probe, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
  close(probe);
  return answers;
}

// The client program's last message: before it the program repeats the statement, which may be long.
std::string Complaint(const std::string& output) {
  const std::size_t last = output.rfind("ERROR ");
  const std::size_t first = last == std::string::npos ? 0 : last;
  return output.substr(first, output.find_last_not_of('\n') + 1 - first);
}

std::vector<std::string> ServerCommand(const std::string& folder) {
  std::vector<std::string> command{Program("/usr/sbin/mariadbd", "mariadb-server-core"), "--no-defaults",
                                   "--datadir=" + folder + "/data", "--innodb-buffer-pool-size=128M",
                                   "--innodb-log-file-size=64M", "--innodb-flush-log-at-trx-commit=0",
                                   // The server's dates are UTC, as SQLite's are.
                                   "--default-time-zone=+00:00"};
  if (geteuid() == 0) command.emplace_back("--user=root");
  return command;
}

}  // namespace

MariaDbServer::MariaDbServer() : driver_(DriverName()) {
  std::string pattern = (fs::temp_directory_path() / "kodra-mariadb-XXXXXX").string();
  if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder: " + pattern);
  folder_ = pattern;
  try {
    MakeSystemTables();
    Start();
  } catch (...) {
    Stop();
    throw;
  }
}

MariaDbServer::~MariaDbServer() { Stop(); }

// What mariadb-install-db does, without the client programs that it needs: the server reads statements from its input,
// at least one per line, and ends.
void MariaDbServer::MakeSystemTables() const {
  fs::create_directory(folder_ + "/data");
  std::ofstream script(folder_ + "/system.sql");
  script << "create database mysql;\nuse mysql;\n";
  for (const char* name : {"mysql_system_tables.sql", "mysql_performance_tables.sql", "mysql_system_tables_data.sql"}) {
    script << Contents(fs::path("/usr/share/mysql") / name) << "\n";
  }
  script << "flush privileges;\n"
         << "create user '" << Utf8(kUser) << "'@'127.0.0.1' identified by '" << Utf8(kPassword) << "';\n"
         << "create user '" << Utf8(kUser) << "'@'localhost' identified by '" << Utf8(kPassword) << "';\n"
         << "grant all on *.* to '" << Utf8(kUser) << "'@'127.0.0.1';\n"
         << "grant all on *.* to '" << Utf8(kUser) << "'@'localhost';\n";
  script.close();
  std::vector<std::string> command = ServerCommand(folder_);
  command.emplace_back("--bootstrap");
  const int status = WaitFor(
      Spawn({.command = command, .input = folder_ + "/system.sql", .output = folder_ + "/log", .background = true}));
  if (status != 0)
    throw std::runtime_error("mariadbd could not make its system tables:\n" + Contents(folder_ + "/log"));
}

void MariaDbServer::Start() {
  // Another program may take the port between the check and the start.
  for (int attempt = 0; attempt < 3; ++attempt) {
    port_ = FreePort();
    std::vector<std::string> command = ServerCommand(folder_);
    command.push_back("--port=" + std::to_string(port_));
    command.push_back("--socket=" + folder_ + "/socket");
    command.push_back("--pid-file=" + folder_ + "/pid");
    command.emplace_back("--bind-address=127.0.0.1");
    process_ = Spawn({.command = command, .input = "/dev/null", .output = folder_ + "/log", .background = true});
    if (WaitUntilItAnswers()) {
      WriteClientOptions();
      return;
    }
    kill(process_, SIGKILL);
    WaitFor(process_);
    process_ = 0;
  }
  throw std::runtime_error("mariadbd did not start:\n" + Contents(folder_ + "/log"));
}

bool MariaDbServer::WaitUntilItAnswers() const {
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
  while (std::chrono::steady_clock::now() < deadline) {
    siginfo_t ended{};
    waitid(P_PID, static_cast<id_t>(process_), &ended, WEXITED | WNOHANG | WNOWAIT);
    if (ended.si_pid != 0) return false;
    if (Answers(port_)) return true;
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  return false;
}

void MariaDbServer::Stop() noexcept {
  if (process_ > 0) {
    // Its data are deleted with it, so it needs no orderly end.
    kill(process_, SIGKILL);
    while (waitpid(process_, nullptr, 0) < 0 && errno == EINTR) continue;
  }
  std::error_code ignored;
  fs::remove_all(folder_, ignored);
}

std::wstring MariaDbServer::ConnectionString(std::wstring_view database) const {
  return ConnectionString(database, kPassword);
}

std::wstring MariaDbServer::ConnectionString(std::wstring_view database, std::wstring_view password) const {
  std::wstring text = L"Driver={" + driver_ + L"};Server=127.0.0.1;Port=" + std::to_wstring(port_) + L";Database=";
  text.append(database).append(L";Uid=").append(kUser).append(L";Pwd=").append(password).append(L";");
  return text;
}

void MariaDbServer::CreateDatabase(std::wstring_view name) const {
  const std::string database = Utf8(name);
  RunClient(
      "--execute=drop database if exists " + database + "; create database " + database + " character set utf8mb4",
      "/dev/null");
}

void MariaDbServer::RunScript(std::wstring_view database, const std::string& path) const {
  if (!fs::exists(path)) throw std::runtime_error(path + ": no such file");
  RunClient("--database=" + Utf8(database), path);
}

void MariaDbServer::WriteClientOptions() const {
  std::ofstream options(folder_ + "/client.cnf");
  options << "[client]\nprotocol=tcp\nhost=127.0.0.1\nport=" << port_ << "\nuser=" << Utf8(kUser)
          << "\npassword=" << Utf8(kPassword) << "\ndefault-character-set=utf8mb4\n";
}

void MariaDbServer::RunClient(const std::string& option, const std::string& input) const {
  const std::string output = folder_ + "/client.log";
  fs::remove(output);
  const int status = WaitFor(Spawn({.command = {Program("/usr/bin/mariadb", "mariadb-client-core"),
                                                "--defaults-file=" + folder_ + "/client.cnf", option},
                                    .input = input,
                                    .output = output}));
  if (status != 0) throw std::runtime_error(input + ": " + Complaint(Contents(output)));
}

}  // namespace kodra::testbed
