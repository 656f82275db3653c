#include "testbed/mariadb/mariadb_server.h"

#include <signal.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <stdexcept>
#include <system_error>
#include <thread>
#include <utility>

#include "testbed/mariadb/child_process.h"
#include "testbed/mariadb/server_parts.h"

namespace kodra::testbed {
namespace {

namespace fs = std::filesystem;

constexpr const char* kClient = "arquivo";
constexpr const char* kRoot = "root";  // the server's, not the machine's

bool Answers(const std::string& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  path.copy(address.sun_path, sizeof address.sun_path - 1);
  const int probe = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  const bool answers = connect(probe, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
  close(probe);
  return answers;
}

}  // namespace

MariaDbServer::MariaDbServer(std::string bufferPool)
    : bufferPool_(std::move(bufferPool)),
      driver_(DriverName()),
      clientPassword_(NewPassword()),
      rootPassword_(NewPassword()),
      folder_(NewFolder("kodra-mariadb")),
      serverFolder_(folder_ + "/server"),
      socket_(serverFolder_ + "/socket"),
      user_(ServersUser()) {
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
  MakeServerFolder(serverFolder_, user_);
  AdmitServer(folder_, user_);
}

std::vector<std::string> MariaDbServer::ServerCommand() const {
  return {ServerProgram(), "--no-defaults", "--skip-networking", "--datadir=" + serverFolder_ + "/data",
          "--tmpdir=" + serverFolder_ + "/temporary",
          // Statements could read and write files only in this folder, which stays empty.
          "--secure-file-priv=" + serverFolder_ + "/files", "--local-infile=0", "--skip-symbolic-links",
          "--innodb-buffer-pool-size=" + bufferPool_, "--innodb-log-file-size=64M",
          "--innodb-flush-log-at-trx-commit=0",
          // The server's dates are UTC, as SQLite's are.
          "--default-time-zone=+00:00"};
}

void MariaDbServer::MakeSystemTables() const {
  std::vector<std::string> command = ServerCommand();
  command.emplace_back("--bootstrap");
  testbed::MakeSystemTables(command, folder_, user_,
                            AccountOfRoot(rootPassword_) + "create user '" + kClient + "'@'localhost' identified by '" +
                                clientPassword_ + "';\n");
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
  PrivateFile(OptionsOf(user)) << ClientOptions(user, password) << "protocol=socket\nsocket=" << socket_ << "\n";
}

void MariaDbServer::RunClient(const std::string& user, const std::string& option, const std::string& input) const {
  testbed::RunClient({"--defaults-file=" + OptionsOf(user), option}, input, folder_ + "/client.log");
}

}  // namespace kodra::testbed
