#include "testbed/mariadb/server_parts.h"

#include <fcntl.h>
#include <sys/random.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <system_error>

#include "testbed/mariadb/child_process.h"

namespace kodra::testbed {
namespace {

namespace fs = std::filesystem;

// Every password begins with it. No test may print one: the test runs search their logs for this text.
constexpr std::string_view kPasswordsBeginning = "NuncaMostrada";
// The servers' user and group when this program is root's: Debian reserves the number; no account has it.
constexpr uid_t kUserWithoutAccount = 65530;

std::string Program(const char* path, const char* package) {
  if (!fs::exists(path)) throw std::runtime_error("falta " + std::string(path) + ": instale o pacote " + package);
  return path;
}

// The last message of the client program, without the statement that the program repeats before it.
std::string Complaint(const std::string& output) {
  const std::size_t last = output.rfind("ERROR ");
  const std::size_t first = last == std::string::npos ? 0 : last;
  return output.substr(first, output.find_last_not_of('\n') + 1 - first);
}

}  // namespace

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

std::string Contents(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("não foi possível ler " + path);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::ofstream PrivateFile(const std::string& path) {
  close(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
  return std::ofstream(path, std::ios::binary);
}

std::wstring Wide(const std::string& utf8) { return fs::path(utf8).wstring(); }
std::string Utf8(std::wstring_view text) { return fs::path(text).string(); }

std::string ServerProgram() { return Program("/usr/sbin/mariadbd", "mariadb-server-core"); }

std::wstring DriverName() {
  std::istringstream known(fs::exists("/etc/odbcinst.ini") ? Contents("/etc/odbcinst.ini") : "");
  for (std::string line; std::getline(known, line);) {
    if (line.starts_with("[MariaDB") && line.ends_with("]")) return Wide(line.substr(1, line.size() - 2));
  }
  throw std::runtime_error("o driver do MariaDB não consta de /etc/odbcinst.ini: instale o pacote odbc-mariadb");
}

std::optional<uid_t> ServersUser() {
  if (geteuid() == 0) return kUserWithoutAccount;
  return std::nullopt;
}

std::string NewFolder(const std::string& name) {
  std::string pattern = (fs::temp_directory_path() / (name + "-XXXXXX")).string();
  if (mkdtemp(pattern.data()) == nullptr)
    throw std::system_error(errno, std::generic_category(), "não foi possível criar a pasta " + pattern);
  return pattern;
}

void AdmitServer(const std::string& folder, std::optional<uid_t> user) {
  if (!user) return;
  if (chown(folder.c_str(), 0, *user) != 0)
    throw std::system_error(errno, std::generic_category(), "não foi possível abrir ao servidor " + folder);
  fs::permissions(folder, fs::perms::owner_all | fs::perms::group_exec);
}

void MakeServerFolder(const std::string& folder, std::optional<uid_t> user) {
  for (const std::string& each : {folder, folder + "/data", folder + "/temporary", folder + "/files"}) {
    fs::create_directory(each);
    fs::permissions(each, fs::perms::owner_all);
    if (user && chown(each.c_str(), *user, *user) != 0)
      throw std::system_error(errno, std::generic_category(), "não foi possível entregar ao servidor " + each);
  }
}

std::string AccountOfRoot(const std::string& password) {
  return "create user 'root'@'localhost' identified by '" + password +
         "';\ngrant all on *.* to 'root'@'localhost' with grant option;\n";
}

// What mariadb-install-db does, without the client programs that it needs. The accounts without a password that the
// system tables start with are removed.
void MakeSystemTables(const std::vector<std::string>& bootstrapCommand, const std::string& folder,
                      std::optional<uid_t> user, const std::string& accounts) {
  const std::string path = folder + "/system.sql";
  std::ofstream script = PrivateFile(path);
  script << "create database mysql;\nuse mysql;\n";
  for (const char* name : {"mysql_system_tables.sql", "mysql_performance_tables.sql", "mysql_system_tables_data.sql"}) {
    script << Contents((fs::path("/usr/share/mysql") / name).string()) << "\n";
  }
  script << "delete from global_priv where User = 'root';\n"
         << "delete from proxies_priv;\n"
         << "flush privileges;\n"
         << accounts;
  script.close();
  const int status = WaitFor(
      Spawn({.command = bootstrapCommand, .input = path, .output = folder + "/log", .user = user, .background = true}));
  fs::remove(path);
  if (status != 0)
    throw std::runtime_error("mariadbd não conseguiu criar suas tabelas de sistema:\n" + Contents(folder + "/log"));
}

std::string ClientOptions(const std::string& user, const std::string& password) {
  return "[client]\nuser=" + user + "\npassword=" + password + "\ndefault-character-set=utf8mb4\n";
}

std::string RunClient(const std::vector<std::string>& options, const std::string& input, const std::string& output) {
  std::vector<std::string> command = {Program("/usr/bin/mariadb", "mariadb-client-core")};
  command.insert(command.end(), options.begin(), options.end());
  fs::remove(output);
  const int status = WaitFor(Spawn({.command = command, .input = input, .output = output}));
  std::string printed = Contents(output);
  if (status != 0) throw std::runtime_error(input + ": " + Complaint(printed));
  return printed;
}

}  // namespace kodra::testbed
