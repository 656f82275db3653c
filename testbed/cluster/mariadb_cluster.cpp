#include "testbed/cluster/mariadb_cluster.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <sstream>
#include <stdexcept>
#include <system_error>
#include <thread>

#include "testbed/mariadb/child_process.h"
#include "testbed/mariadb/server_parts.h"

namespace kodra::testbed {
namespace {

namespace fs = std::filesystem;

constexpr const char* kClient = "arquivo";
constexpr const char* kCheck = "saude";
constexpr const char* kProxyAddress = "127.0.0.10";
constexpr int kPort = 3306;
constexpr std::chrono::seconds kPatience{90};

// Whether a condition becomes true before the patience ends.
bool Becomes(const std::function<bool()>& condition) {
  const auto deadline = std::chrono::steady_clock::now() + kPatience;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > deadline) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
  }
  return true;
}

bool HasEnded(pid_t process) {
  siginfo_t ended{};
  waitid(P_PID, static_cast<id_t>(process), &ended, WEXITED | WNOHANG | WNOWAIT);
  return ended.si_pid != 0;
}

// The answer to a command of HAProxy's, which closes the connection after it.
std::string Answer(const std::string& socketPath, const std::string& command) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  socketPath.copy(address.sun_path, sizeof address.sun_path - 1);
  const int line = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  std::string answer;
  if (connect(line, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0 &&
      write(line, command.data(), command.size()) == static_cast<ssize_t>(command.size())) {
    char part[256];
    for (ssize_t count = 0; (count = read(line, part, sizeof part)) > 0;)
      answer.append(part, static_cast<std::size_t>(count));
  } else {
    answer = "haproxy não responde";
  }
  close(line);
  return answer;
}

bool AcceptsConnections(const char* address) {
  sockaddr_in target{};
  target.sin_family = AF_INET;
  target.sin_port = htons(kPort);
  inet_pton(AF_INET, address, &target.sin_addr);
  const int probe = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  const bool accepts = connect(probe, reinterpret_cast<sockaddr*>(&target), sizeof target) == 0;
  close(probe);
  return accepts;
}

// The servers find them there, too.
void RequireInPath(const std::string& program) {
  const char* path = std::getenv("PATH");
  std::istringstream folders(path == nullptr ? "" : path);
  for (std::string folder; std::getline(folders, folder, ':');)
    if (fs::exists(fs::path(folder) / program)) return;
  throw std::runtime_error("falta " + program + " no PATH: veja ./kodra setup cluster");
}

// The errors in the log of a server, which is long.
std::string Errors(const std::string& log) {
  std::istringstream lines(log);
  std::string errors;
  for (std::string line; std::getline(lines, line);)
    if (line.find("[ERROR]") != std::string::npos) errors += "\n" + line;
  return errors;
}

// The settings that every cluster needs, in the form of /etc/mysql/my.cnf.
std::string Settings(const std::string& name, const std::string& address, const std::string& folder) {
  std::ostringstream text;
  text << "[mariadbd]\n"
       << "datadir=" << folder << "/data\n"
       << "tmpdir=" << folder << "/temporary\n"
       << "secure-file-priv=" << folder << "/files\n"
       << "socket=" << folder << "/socket\n"
       << "pid-file=" << folder << "/pid\n"
       << "bind-address=" << address << "\nport=" << kPort << "\nskip-name-resolve\n"
       << "local-infile=0\nskip-symbolic-links\nread-only\n"
       << "default-time-zone=+00:00\n"
       << "innodb-buffer-pool-size=64M\ninnodb-log-file-size=32M\ninnodb-flush-log-at-trx-commit=0\n"
       << "binlog-format=ROW\ninnodb-autoinc-lock-mode=2\n"
       << "wsrep-on=ON\nwsrep-provider=/usr/lib/galera/libgalera_smm.so\n"
       << "wsrep-cluster-name=kodra\nwsrep-cluster-address=gcomm://127.0.0.1,127.0.0.2,127.0.0.3\n"
       << "wsrep-node-name=" << name << "\nwsrep-node-address=" << address << "\n"
       << "wsrep-sst-method=rsync\nwsrep-sst-receive-address=" << address << ":4444\n"
       << "wsrep-provider-options=\"gmcast.listen_addr=tcp://" << address << ":4567;ist.recv_addr=" << address
       << ":4568;ist.recv_bind=" << address << ":4568;gcache.size=64M\"\n";
  return text.str();
}

// A node takes connections when it has everything (4) or is sending its files to another (2): rsync stops only writers.
// A node that has lost the others refuses the statement.
std::string CheckScript(const std::string& options) {
  return "#!/bin/sh\n"
         "[ \"$(mariadb --defaults-file=" +
         options +
         " --host=\"$HAPROXY_SERVER_ADDR\" --port=\"$HAPROXY_SERVER_PORT\" --skip-column-names \\\n"
         "  --execute=\"select count(*) from information_schema.GLOBAL_STATUS where VARIABLE_NAME = "
         "'wsrep_local_state' "
         "and VARIABLE_VALUE in (2, 4)\")\" = 1 ]\n";
}

// A connection that a node refuses goes to another one, at once. After two failed checks a node gets no more, and the
// calls on it are ended, because a machine without power does not end them itself. A check may take as long as `inter`.
constexpr const char* kProxySettings = R"(  external-check
  insecure-fork-wanted
defaults
  mode tcp
  timeout connect 3s
  timeout client 1h
  timeout server 1h
  retries 3
  option redispatch 1
)";

}  // namespace

MariaDbCluster::MariaDbCluster()
    : driver_(DriverName()),
      clientPassword_(NewPassword()),
      rootPassword_(NewPassword()),
      checkPassword_(NewPassword()),
      folder_(NewFolder("kodra-cluster")),
      user_(ServersUser()) {
  try {
    for (const char* program : {"haproxy", "wsrep_sst_rsync", "rsync"}) RequireInPath(program);
    AdmitServer(folder_, user_);
    for (int node = 1; node <= kNodes; ++node) MakeNode(node);
    MakeFirstTables();
    for (int node = 1; node <= kNodes; ++node) Start(node);
    StartProxy();
  } catch (...) {
    Stop();
    throw;
  }
}

MariaDbCluster::~MariaDbCluster() { Stop(); }

void MariaDbCluster::WriteForServers(const std::string& path, const std::string& text) const {
  PrivateFile(path) << text;
  if (user_ && chown(path.c_str(), *user_, *user_) != 0)
    throw std::system_error(errno, std::generic_category(), "não foi possível entregar ao servidor " + path);
}

void MariaDbCluster::MakeNode(int number) {
  Node& node = At(number);
  node.name = "no" + std::to_string(number);
  node.address = "127.0.0." + std::to_string(number);
  node.folder = folder_ + "/" + node.name;
  MakeServerFolder(node.folder, user_);
  WriteForServers(node.folder + "/server.cnf", Settings(node.name, node.address, node.folder));
  PrivateFile(folder_ + "/" + node.name + ".cnf")
      << ClientOptions("root", rootPassword_) << "protocol=socket\nsocket=" << node.folder << "/socket\n";
}

// Only the first node gets them; the others get its files when they join.
void MariaDbCluster::MakeFirstTables() const {
  const auto account = [](const char* name, const std::string& password) {
    return "create user '" + std::string(name) + "'@'127.0.0.%' identified by '" + password + "';\n";
  };
  MakeSystemTables(
      {ServerProgram(), "--defaults-file=" + At(1).folder + "/server.cnf", "--wsrep-on=OFF", "--bootstrap"}, folder_,
      user_, AccountOfRoot(rootPassword_) + account(kClient, clientPassword_) + account(kCheck, checkPassword_));
}

std::string MariaDbCluster::PositionOf(const Node& node) const {
  if (fs::is_empty(node.folder + "/data")) return {};
  const std::string log = folder_ + "/recovery.log";
  fs::remove(log);
  WaitFor(Spawn({.command = {ServerProgram(), "--defaults-file=" + node.folder + "/server.cnf", "--wsrep-recover"},
                 .input = "/dev/null",
                 .output = log,
                 .user = user_,
                 .background = true}));
  std::istringstream lines(Contents(log));
  constexpr std::string_view kWords = "Recovered position: ";
  for (std::string line; std::getline(lines, line);) {
    if (const std::size_t at = line.find(kWords); at != std::string::npos) return line.substr(at + kWords.size());
  }
  throw std::runtime_error("mariadbd não encontra a posição do nó " + node.name + ":" + Errors(Contents(log)));
}

void MariaDbCluster::Start(int number) {
  Node& node = At(number);
  std::vector<std::string> command = {ServerProgram(), "--defaults-file=" + node.folder + "/server.cnf"};
  bool isFirst = true;
  for (const Node& other : nodes_) isFirst = isFirst && other.process == 0;
  if (isFirst) {
    command.emplace_back("--wsrep-new-cluster");
  } else if (const std::string position = PositionOf(node); !position.empty()) {
    command.push_back("--wsrep-start-position=" + position);
  }
  const std::string log = folder_ + "/" + node.name + ".log";
  fs::remove(log);
  node.process = Spawn({.command = command, .input = "/dev/null", .output = log, .user = user_, .background = true});
  WaitUntilSynced(number);
  if (proxy_ != 0) TellProxy(node, "ready");
}

void MariaDbCluster::WaitUntilSynced(int number) const {
  const auto isSynced = [&] {
    if (HasEnded(At(number).process))
      throw std::runtime_error("o nó " + At(number).name + " terminou:" + Errors(LogOf(number)));
    // Until the server has made its socket, the client program has nothing to say but that.
    if (!fs::exists(At(number).folder + "/socket")) return false;
    try {
      return Administer(number, "show status like 'wsrep_local_state'") == "wsrep_local_state\t4\n";
    } catch (const std::runtime_error&) {
      return false;
    }
  };
  if (!Becomes(isSynced))
    throw std::runtime_error("o nó " + At(number).name + " não entrou no cluster:" + Errors(LogOf(number)));
}

void MariaDbCluster::StartProxy() {
  const std::string folder = folder_ + "/proxy";
  MakeServerFolder(folder, user_);
  WriteForServers(folder + "/check.cnf", ClientOptions(kCheck, checkPassword_));
  WriteForServers(folder + "/check", CheckScript(folder + "/check.cnf"));
  fs::permissions(folder + "/check", fs::perms::owner_exec, fs::perm_options::add);
  std::ostringstream settings;
  settings << "global\n  stats socket " << folder << "/admin level admin\n"
           << kProxySettings << "listen arquivo\n  bind " << kProxyAddress << ":" << kPort
           << "\n  balance leastconn\n  option external-check\n  external-check path \"/usr/bin:/bin\"\n"
           << "  external-check command " << folder << "/check\n"
           << "  default-server check inter 3s fastinter 1s fall 2 rise 1 on-marked-down shutdown-sessions\n";
  for (const Node& node : nodes_) settings << "  server " << node.name << " " << node.address << ":" << kPort << "\n";
  WriteForServers(folder + "/haproxy.cfg", settings.str());
  proxy_ = Spawn({.command = {"haproxy", "-db", "-f", folder + "/haproxy.cfg"},
                  .input = "/dev/null",
                  .output = folder_ + "/proxy.log",
                  .user = user_,
                  .background = true});
  const auto answers = [&] {
    if (HasEnded(proxy_)) throw std::runtime_error("haproxy não iniciou:\n" + Contents(folder_ + "/proxy.log"));
    return AcceptsConnections(kProxyAddress);
  };
  if (!Becomes(answers)) throw std::runtime_error("haproxy não responde:\n" + Contents(folder_ + "/proxy.log"));
}

void MariaDbCluster::TellProxy(const Node& node, const std::string& state) const {
  const std::string answer =
      Answer(folder_ + "/proxy/admin", "set server arquivo/" + node.name + " state " + state + "\n");
  if (answer != "\n") throw std::runtime_error("haproxy: " + answer);
}

void MariaDbCluster::Load(const std::string& database, const std::string& script) const {
  Administer(1, "create database " + database + " character set utf8mb4; grant select on `" + database + "`.* to '" +
                    kClient + "'@'127.0.0.%'");
  RunClient({"--defaults-file=" + folder_ + "/" + At(1).name + ".cnf", "--database=" + database}, script,
            folder_ + "/client.log");
  // A session that waits for the state of the cluster reads only when its node has everything that the others have.
  for (int node = 1; node <= kNodes; ++node)
    Administer(node, "set session wsrep_sync_wait = 1; show tables from " + database);
}

std::wstring MariaDbCluster::ConnectionString(std::wstring_view database) const {
  return ConnectionStringTo(kProxyAddress, database);
}

std::wstring MariaDbCluster::ConnectionString(std::wstring_view database, int node) const {
  return ConnectionStringTo(At(node).address, database);
}

std::wstring MariaDbCluster::ConnectionStringTo(const std::string& address, std::wstring_view database) const {
  return L"Driver={" + driver_ + L"};Server=" + Wide(address) + L";Port=" + std::to_wstring(kPort) + L";Database=" +
         std::wstring(database) + L";Uid=" + Wide(kClient) + L";Pwd=" + Wide(clientPassword_) + L";";
}

void MariaDbCluster::Kill(int number) {
  Node& node = At(number);
  // Its scripts are in its process group.
  kill(-node.process, SIGKILL);
  WaitFor(node.process);
  node.process = 0;
}

void MariaDbCluster::ShutDown(int number) {
  Node& node = At(number);
  // A node that is shutting down refuses statements before it refuses connections.
  TellProxy(node, "drain");
  const auto isIdle = [&] {
    return Administer(number, std::string("select count(*) from information_schema.PROCESSLIST where USER = '") +
                                  kClient + "'") == "0\n";
  };
  if (!Becomes(isIdle)) throw std::runtime_error("o nó " + node.name + " continua em uso");
  kill(node.process, SIGTERM);
  WaitFor(node.process);
  node.process = 0;
}

void MariaDbCluster::Empty(int node) const {
  for (const auto& entry : fs::directory_iterator(At(node).folder + "/data")) fs::remove_all(entry);
}

std::string MariaDbCluster::LogOf(int node) const { return Contents(folder_ + "/" + At(node).name + ".log"); }

std::string MariaDbCluster::Administer(int node, const std::string& statements) const {
  return RunClient({"--defaults-file=" + folder_ + "/" + At(node).name + ".cnf", "--skip-column-names", "--batch",
                    "--execute=" + statements},
                   "/dev/null", folder_ + "/client.log");
}

void MariaDbCluster::Stop() noexcept {
  for (const pid_t process : {proxy_, nodes_[0].process, nodes_[1].process, nodes_[2].process}) {
    if (process == 0) continue;
    kill(-process, SIGKILL);
    while (waitpid(process, nullptr, 0) < 0 && errno == EINTR) continue;
  }
  std::error_code ignored;
  fs::remove_all(folder_, ignored);
}

}  // namespace kodra::testbed
