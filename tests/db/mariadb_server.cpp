#include "db/mariadb_server.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <thread>

#include "platform/erro.h"
#include "platform/odbc/connection.h"

namespace kodra::tests {
namespace {

namespace fs = std::filesystem;

constexpr std::wstring_view kUser = L"arquivo";
constexpr std::wstring_view kPassword = L"senha do teste";

std::string Contents(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("cannot read " + path.string());
  return {std::istreambuf_iterator<char>(file), {}};
}

// std::filesystem is the standard library's way from UTF-8 to wide text.
std::wstring Wide(const std::string& utf8) { return fs::path(utf8).wstring(); }

fs::path ServerProgram() {
  for (const char* path : {"/usr/sbin/mariadbd", "/usr/libexec/mariadbd", "/usr/sbin/mysqld"}) {
    if (fs::exists(path)) return path;
  }
  throw std::runtime_error("no mariadbd: install the package mariadb-server-core");
}

// The name under which the driver manager knows MariaDB's driver.
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

// Starts a program with its input from one file and its output into another. The program dies with this process.
pid_t Spawn(const std::vector<std::string>& command, const std::string& input, const std::string& output) {
  std::vector<char*> arguments;
  arguments.reserve(command.size() + 1);
  for (const std::string& argument : command) arguments.push_back(const_cast<char*>(argument.c_str()));
  arguments.push_back(nullptr);
  const pid_t parent = getpid();
  const pid_t child = fork();
  if (child != 0) return child;
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (getppid() != parent) _exit(127);
  const int in = open(input.c_str(), O_RDONLY | O_CLOEXEC);
  const int out = open(output.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
  dup2(in, STDIN_FILENO);
  dup2(out, STDOUT_FILENO);
  dup2(out, STDERR_FILENO);
  execv(arguments[0], arguments.data());
  _exit(127);
}

std::vector<std::string> ServerCommand(const std::string& folder) {
  std::vector<std::string> command{ServerProgram().string(),        "--no-defaults",
                                   "--datadir=" + folder + "/data", "--innodb-buffer-pool-size=32M",
                                   "--innodb-log-file-size=8M",     "--innodb-flush-log-at-trx-commit=0"};
  if (geteuid() == 0) command.emplace_back("--user=root");
  return command;
}

std::string Utf8(std::wstring_view text) { return fs::path(text).string(); }

}  // namespace

MariaDbServer& MariaDbServer::Instance() {
  static MariaDbServer server;
  return server;
}

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

// What mariadb-install-db does, without the client programs it needs: the server reads statements, one a line at
// least, from its input and ends.
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
  const pid_t process = Spawn(command, folder_ + "/system.sql", folder_ + "/log");
  int status = 0;
  waitpid(process, &status, 0);
  if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
    throw std::runtime_error("mariadbd could not make its system tables:\n" + Contents(folder_ + "/log"));
  }
}

void MariaDbServer::Start() {
  // Another program may take the port between the look and the start.
  for (int attempt = 0; attempt < 3; ++attempt) {
    port_ = FreePort();
    std::vector<std::string> command = ServerCommand(folder_);
    command.push_back("--port=" + std::to_string(port_));
    command.push_back("--socket=" + folder_ + "/socket");
    command.push_back("--pid-file=" + folder_ + "/pid");
    command.emplace_back("--bind-address=127.0.0.1");
    process_ = Spawn(command, "/dev/null", folder_ + "/log");
    if (WaitUntilItAnswers()) return;
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
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
    kill(process_, SIGTERM);
    waitpid(process_, nullptr, 0);
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
  platform::odbc::Connection connection;
  connection.Open(ConnectionString(L""), L"", L"", platform::ad::kUnspecified);
  connection.Execute(L"drop database if exists " + std::wstring(name), platform::ad::kCmdText);
  connection.Execute(L"create database " + std::wstring(name) + L" character set utf8mb4", platform::ad::kCmdText);
}

void MariaDbServer::RunScript(std::wstring_view database, const std::string& path) const {
  platform::odbc::Connection connection;
  connection.Open(ConnectionString(database), L"", L"", platform::ad::kUnspecified);
  for (const std::string& statement : SplitScript(Contents(path))) {
    // The driver sets the character set itself and refuses to be told.
    if (statement.starts_with("SET NAMES") || statement.starts_with("set names")) continue;
    try {
      connection.Execute(Wide(statement), platform::ad::kCmdText);
    } catch (const platform::Erro& erro) {
      throw std::runtime_error(path + ": " + Utf8(erro.Description()) + "\n" + statement.substr(0, 300));
    }
  }
}

std::vector<std::string> SplitScript(std::string_view script) {
  std::vector<std::string> statements;
  std::string current;
  const auto finish = [&] {
    const std::size_t first = current.find_first_not_of(" \t\r\n");
    if (first != std::string::npos) {
      statements.push_back(current.substr(first, current.find_last_not_of(" \t\r\n") - first + 1));
    }
    current.clear();
  };
  const auto skipTo = [&](std::size_t from, std::string_view end) {
    const std::size_t found = script.find(end, from);
    return found == std::string_view::npos ? script.size() : found + end.size();
  };
  for (std::size_t i = 0; i < script.size();) {
    const char c = script[i];
    if (c == '\'' || c == '"' || c == '`') {
      std::size_t end = i + 1;
      while (end < script.size() && script[end] != c) end += script[end] == '\\' ? 2 : 1;
      end = std::min(end + 1, script.size());
      current.append(script.substr(i, end - i));
      i = end;
    } else if (script.substr(i, 3) == "-- " || script.substr(i, 3) == "--\n" || c == '#') {
      i = skipTo(i, "\n");
      current.push_back('\n');
    } else if (script.substr(i, 2) == "/*" && script.substr(i, 3) != "/*!") {
      i = skipTo(i, "*/");
      current.push_back(' ');
    } else if (c == ';') {
      finish();
      ++i;
    } else {
      current.push_back(c);
      ++i;
    }
  }
  finish();
  return statements;
}

}  // namespace kodra::tests
