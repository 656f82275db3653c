#include "testbed/mariadb/mariadb_server.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/random.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <system_error>
#include <thread>

#include "testbed/mariadb/child_process.h"

namespace kodra::testbed {
namespace {

namespace fs = std::filesystem;

constexpr const char* kClient = "arquivo";
constexpr const char* kRoot = "root";  // the server's, not the machine's
// Every password begins with it. No test may print one: the test runs search their logs for this text.
constexpr std::string_view kPasswordsBeginning = "NuncaMostrada";
// The server's user and group when this program is root's: Debian reserves the number; no account has it.
constexpr uid_t kUserWithoutAccount = 65530;

std::string Contents(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("não foi possível ler " + path.string());
  return {std::istreambuf_iterator<char>(file), {}};
}

// A new file that only this program's user may read.
std::ofstream PrivateFile(const fs::path& path) {
  close(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
  return std::ofstream(path, std::ios::binary);
}

std::string NewPassword() {
  std::array<unsigned char, 16> bytes{};
  if (getentropy(bytes.data(), bytes.size()) != 0)
    throw std::system_error(errno, std::generic_category(), "não foi possível sortear uma senha");
  std::string password(kPasswordsBeginning);
  for (const unsigned char byte : bytes) {
    password += "0123456789abcdef"[byte / 16];
    password += "0123456789abcdef"[byte % 16];
  }
  return password;
}

// The standard library converts UTF-8 to wide text through std::filesystem.
std::wstring Wide(const std::string& utf8) { return fs::path(utf8).wstring(); }
std::string Utf8(std::wstring_view text) { return fs::path(text).string(); }

std::string Program(const char* path, const char* package) {
  if (!fs::exists(path)) throw std::runtime_error("falta " + std::string(path) + ": instale o pacote " + package);
  return path;
}

// The name of MariaDB's driver in the driver manager.
std::wstring DriverName() {
  std::istringstream known(fs::exists("/etc/odbcinst.ini") ? Contents("/etc/odbcinst.ini") : "");
  for (std::string line; std::getline(known, line);) {
    if (line.starts_with("[MariaDB") && line.ends_with("]")) return Wide(line.substr(1, line.size() - 2));
  }
  throw std::runtime_error("o driver do MariaDB não consta de /etc/odbcinst.ini: instale o pacote odbc-mariadb");
}

bool Answers(const std::string& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  path.copy(address.sun_path, sizeof address.sun_path - 1);
  const int probe = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  const bool answers = connect(probe, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
  close(probe);
  return answers;
}

// The last message of the client program, without the statement that the program repeats before it.
std::string Complaint(const std::string& output) {
  const std::size_t last = output.rfind("ERROR ");
  const std::size_t first = last == std::string::npos ? 0 : last;
  return output.substr(first, output.find_last_not_of('\n') + 1 - first);
}

}  // namespace

MariaDbServer::MariaDbServer() : driver_(DriverName()), clientPassword_(NewPassword()), rootPassword_(NewPassword()) {
  std::string pattern = (fs::temp_directory_path() / "kodra-mariadb-XXXXXX").string();
  if (mkdtemp(pattern.data()) == nullptr)
    throw std::system_error(errno, std::generic_category(), "não foi possível criar a pasta " + pattern);
  folder_ = pattern;
  serverFolder_ = folder_ + "/server";
  socket_ = serverFolder_ + "/socket";
  if (geteuid() == 0) user_ = kUserWithoutAccount;
  try {
    MakeFolders();
    MakeSystemTables();
    Start();
  } catch (...) {
    Stop();
    throw;
  }
}

MariaDbServer::~MariaDbServer() { Stop(); }

void MariaDbServer::MakeFolders() {
  for (const std::string& folder :
       {serverFolder_, serverFolder_ + "/data", serverFolder_ + "/temporary", serverFolder_ + "/files"}) {
    fs::create_directory(folder);
    fs::permissions(folder, fs::perms::owner_all);
    if (user_ && chown(folder.c_str(), *user_, *user_) != 0)
      throw std::system_error(errno, std::generic_category(), "não foi possível entregar ao servidor " + folder);
  }
  if (!user_) return;
  // The server passes through to its own folder, and can neither list nor change this one.
  if (chown(folder_.c_str(), 0, *user_) != 0)
    throw std::system_error(errno, std::generic_category(), "não foi possível abrir ao servidor " + folder_);
  fs::permissions(folder_, fs::perms::owner_all | fs::perms::group_exec);
}

std::vector<std::string> MariaDbServer::ServerCommand() const {
  return {Program("/usr/sbin/mariadbd", "mariadb-server-core"), "--no-defaults", "--skip-networking",
          "--datadir=" + serverFolder_ + "/data", "--tmpdir=" + serverFolder_ + "/temporary",
          // Statements could read and write files only in this folder, which stays empty.
          "--secure-file-priv=" + serverFolder_ + "/files", "--local-infile=0", "--skip-symbolic-links",
          "--innodb-buffer-pool-size=128M", "--innodb-log-file-size=64M", "--innodb-flush-log-at-trx-commit=0",
          // The server's dates are UTC, as SQLite's are.
          "--default-time-zone=+00:00"};
}

// What mariadb-install-db does, without the client programs that it needs: the server reads statements from its input,
// at least one per line, and ends. The accounts without a password that the system tables start with are removed.
void MariaDbServer::MakeSystemTables() const {
  const std::string path = folder_ + "/system.sql";
  std::ofstream script = PrivateFile(path);
  script << "create database mysql;\nuse mysql;\n";
  for (const char* name : {"mysql_system_tables.sql", "mysql_performance_tables.sql", "mysql_system_tables_data.sql"}) {
    script << Contents(fs::path("/usr/share/mysql") / name) << "\n";
  }
  script << "delete from global_priv where User = '" << kRoot << "';\n"
         << "delete from proxies_priv;\n"
         << "flush privileges;\n"
         << "create user '" << kRoot << "'@'localhost' identified by '" << rootPassword_ << "';\n"
         << "grant all on *.* to '" << kRoot << "'@'localhost' with grant option;\n"
         << "create user '" << kClient << "'@'localhost' identified by '" << clientPassword_ << "';\n";
  script.close();
  std::vector<std::string> command = ServerCommand();
  command.emplace_back("--bootstrap");
  const int status = WaitFor(
      Spawn({.command = command, .input = path, .output = folder_ + "/log", .user = user_, .background = true}));
  fs::remove(path);
  if (status != 0)
    throw std::runtime_error("mariadbd não conseguiu criar suas tabelas de sistema:\n" + Contents(folder_ + "/log"));
}

void MariaDbServer::Start() {
  std::vector<std::string> command = ServerCommand();
  command.push_back("--socket=" + socket_);
  command.push_back("--pid-file=" + serverFolder_ + "/pid");
  process_ =
      Spawn({.command = command, .input = "/dev/null", .output = folder_ + "/log", .user = user_, .background = true});
  if (!WaitUntilItAnswers())
    throw std::runtime_error("não foi possível iniciar mariadbd:\n" + Contents(folder_ + "/log"));
  WriteClientOptions(kRoot, rootPassword_);
  WriteClientOptions(kClient, clientPassword_);
}

bool MariaDbServer::WaitUntilItAnswers() const {
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
  while (std::chrono::steady_clock::now() < deadline) {
    siginfo_t ended{};
    waitid(P_PID, static_cast<id_t>(process_), &ended, WEXITED | WNOHANG | WNOWAIT);
    if (ended.si_pid != 0) return false;
    if (Answers(socket_)) return true;
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  return false;
}

void MariaDbServer::Stop() noexcept {
  if (process_ > 0) {
    // Its data is deleted too, so it need not shut down cleanly.
    kill(process_, SIGKILL);
    while (waitpid(process_, nullptr, 0) < 0 && errno == EINTR) continue;
  }
  std::error_code ignored;
  fs::remove_all(folder_, ignored);
}

std::wstring MariaDbServer::ConnectionString(std::wstring_view database) const {
  return ConnectionString(database, Wide(clientPassword_));
}

std::wstring MariaDbServer::ConnectionString(std::wstring_view database, std::wstring_view password) const {
  return ConnectionString(database, Wide(kClient), password);
}

std::wstring MariaDbServer::ConnectionString(std::wstring_view database, std::wstring_view user,
                                             std::wstring_view password) const {
  std::wstring text = L"Driver={" + driver_ + L"};Server=localhost;Socket=" + Wide(socket_) + L";Database=";
  text.append(database).append(L";Uid=").append(user).append(L";Pwd=").append(password).append(L";");
  return text;
}

void MariaDbServer::Administer(std::string_view statements) const {
  RunClient(kRoot, "--execute=" + std::string(statements), "/dev/null");
}

void MariaDbServer::CreateDatabase(std::wstring_view name) const {
  const std::string database = Utf8(name);
  const std::string client = std::string("'") + kClient + "'@'localhost'";
  RunClient(kRoot,
            "--execute=drop database if exists " + database + "; create database " + database +
                " character set utf8mb4; grant all on `" + database + "`.* to " + client + "; grant all on `" +
                database + "\\_%`.* to " + client,
            "/dev/null");
}

void MariaDbServer::RunScript(std::wstring_view database, const std::string& path) const {
  if (!fs::exists(path)) throw std::runtime_error(path + ": o arquivo não existe");
  RunClient(kClient, "--database=" + Utf8(database), path);
}

std::string MariaDbServer::OptionsOf(const std::string& user) const { return folder_ + "/" + user + ".cnf"; }

void MariaDbServer::WriteClientOptions(const std::string& user, const std::string& password) const {
  PrivateFile(OptionsOf(user)) << "[client]\nprotocol=socket\nsocket=" << socket_ << "\nuser=" << user
                               << "\npassword=" << password << "\ndefault-character-set=utf8mb4\n";
}

void MariaDbServer::RunClient(const std::string& user, const std::string& option, const std::string& input) const {
  const std::string output = folder_ + "/client.log";
  fs::remove(output);
  const int status = WaitFor(Spawn(
      {.command = {Program("/usr/bin/mariadb", "mariadb-client-core"), "--defaults-file=" + OptionsOf(user), option},
       .input = input,
       .output = output}));
  if (status != 0) throw std::runtime_error(input + ": " + Complaint(Contents(output)));
}

}  // namespace kodra::testbed
