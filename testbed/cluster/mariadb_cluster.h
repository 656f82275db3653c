// A private cluster: three MariaDB servers that Galera keeps equal, and HAProxy, which passes each connection on to one
// that is up to date. The cluster ends with the object, and at the latest with this program, however it ends.
//
//   EnterPrivateNetwork();
//   MariaDbCluster cluster;
//   cluster.Load("arquivo", "/path/to/archive.sql");
//   connection.SetConnectionString(cluster.ConnectionString(L"arquivo"));
//   cluster.Kill(2);
//
// Nodes are numbered from 1 and listen on 127.0.0.1, 127.0.0.2 and 127.0.0.3; clients connect to 127.0.0.10. Everything
// runs in private folders and, when root runs this program, as a user that has no account. Nodes are read-only, and the
// client may only read.
//
// Needs Debian's packages mariadb-server-core, mariadb-client-core, odbc-mariadb, galera-4 and rsync; and in PATH
// haproxy, and the scripts wsrep_sst_… of mariadb-server.
#pragma once

#include <sys/types.h>

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kodra::testbed {

class MariaDbCluster {
 public:
  static constexpr int kNodes = 3;

  // Takes about twenty seconds. REQUIRES: the program is in a private network; the thread lives as long as the cluster
  // should, and alone calls the members below that start or end nodes.
  MariaDbCluster();
  ~MariaDbCluster();
  MariaDbCluster(const MariaDbCluster&) = delete;
  MariaDbCluster& operator=(const MariaDbCluster&) = delete;

  // Creates a database and fills it by a UTF-8 script on the first node. Returns when every node has it.
  void Load(const std::string& database, const std::string& script) const;

  // "Driver={…};Server=…;Port=…;Database=…;Uid=…;Pwd=…;" for a client of the cluster, and of one node.
  std::wstring ConnectionString(std::wstring_view database) const;
  std::wstring ConnectionString(std::wstring_view database, int node) const;

  // Ends a node at once, as a power failure does.
  void Kill(int node);
  // Ends a node in order: the balancer sends it no more connections, and the calls on it end first.
  void ShutDown(int node);
  // Deletes the files of a node that does not run.
  void Empty(int node) const;
  // Starts a node that does not run, and returns when it has what it missed and accepts clients. A node with files gets
  // what is new (an incremental state transfer), an empty one everything (a state snapshot transfer).
  void Start(int node);

  // What a node has logged since its last start.
  std::string LogOf(int node) const;
  // Executes statements as the administrator of a node and returns the rows of the last one, one a line, without a
  // heading and with tabs between columns.
  std::string Administer(int node, const std::string& statements) const;

 private:
  struct Node {
    std::string name, address, folder;
    pid_t process = 0;
  };

  const Node& At(int node) const { return nodes_[static_cast<std::size_t>(node - 1)]; }
  Node& At(int node) { return nodes_[static_cast<std::size_t>(node - 1)]; }

  void MakeNode(int node);
  void MakeFirstTables() const;
  // The position in the history of the cluster up to which a node has everything; empty for a node without files.
  std::string PositionOf(const Node& node) const;
  void WaitUntilSynced(int node) const;
  void StartProxy();
  // Sets the state of a node at the balancer: "drain" for no new connections, "ready" for those that its checks allow.
  void TellProxy(const Node& node, const std::string& state) const;
  std::wstring ConnectionStringTo(const std::string& address, std::wstring_view database) const;
  // A file that the servers' user can read, and nobody else.
  void WriteForServers(const std::string& path, const std::string& text) const;
  void Stop() noexcept;

  std::wstring driver_;
  std::string clientPassword_;
  std::string rootPassword_;
  std::string checkPassword_;
  std::string folder_;
  std::optional<uid_t> user_;
  std::array<Node, kNodes> nodes_;
  pid_t proxy_ = 0;
};

}  // namespace kodra::testbed
