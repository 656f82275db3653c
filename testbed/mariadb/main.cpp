// kodra-mariadb: runs a command with a database of its own on a private MariaDB server, or on a private cluster.
//
//   kodra-mariadb acervo.sql -- ./relatorios --verbose
//   kodra-mariadb --cluster acervo.sql -- ./relatorios
//
// The command finds the ODBC connection string of the database in the environment variable KODRA_MYSQL. The program
// stops the server and ends with the command's exit code. A signal that interrupts the program is passed on to the
// command.
#include <signal.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <iostream>

#include "testbed/cluster/mariadb_cluster.h"
#include "testbed/cluster/private_network.h"
#include "testbed/mariadb/child_process.h"
#include "testbed/mariadb/mariadb_server.h"
#include "testbed/mariadb/server_parts.h"

namespace {

constexpr wchar_t kDatabase[] = L"arquivo";
constexpr int kFailed = 125;  // a failure of this program, not of the command

std::atomic<int> interruptedBy{0};
std::atomic<pid_t> running{0};

void OnInterruption(int signal, siginfo_t* info, void*) {
  interruptedBy = signal;
  // The terminal sends the command its own signal for Ctrl-C; a signal from another process is passed on here.
  const pid_t command = running;
  if (command != 0 && info->si_code <= 0) kill(command, signal);
}

void AnswerInterruptions() {
  struct sigaction action {};
  action.sa_sigaction = OnInterruption;
  action.sa_flags = SA_SIGINFO;
  for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT}) sigaction(signal, &action, nullptr);
}

int RunCommand(const std::vector<std::string>& command, const std::wstring& connectionString) {
  setenv("KODRA_MYSQL", kodra::testbed::Utf8(connectionString).c_str(), 1);
  // No signal may come between the check and the moment when there is a command to pass it on to.
  sigset_t all;
  sigset_t before;
  sigfillset(&all);
  sigprocmask(SIG_BLOCK, &all, &before);
  if (interruptedBy == 0) running = kodra::testbed::Spawn({.command = command});
  sigprocmask(SIG_SETMASK, &before, nullptr);
  if (running == 0) return 128 + interruptedBy;
  const int status = kodra::testbed::WaitFor(running);
  running = 0;
  return status;
}

int RunWithServer(const std::vector<std::string>& command, const std::string& script, const std::string& bufferPool) {
  const kodra::testbed::MariaDbServer server(bufferPool);
  server.CreateDatabase(kDatabase);
  server.RunScript(kDatabase, script);
  return RunCommand(command, server.ConnectionString(kDatabase));
}

int RunWithCluster(const std::vector<std::string>& command, const std::string& script) {
  kodra::testbed::EnterPrivateNetwork();
  const kodra::testbed::MariaDbCluster cluster;
  cluster.Load(kodra::testbed::Utf8(kDatabase), script);
  return RunCommand(command, cluster.ConnectionString(kDatabase));
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app(
      "Executa um comando com um servidor MariaDB só dele: a variável de ambiente KODRA_MYSQL traz a string de "
      "conexão ODBC do banco.");
  app.footer("Uso: kodra-mariadb [--cluster | --memoria N] SCRIPT.sql -- COMANDO [ARGUMENTO]...");
  std::string script;
  app.add_option("script", script, "Script SQL que cria e enche o banco")->required()->check(CLI::ExistingFile);
  bool cluster = false;
  app.add_flag("--cluster", cluster, "Três servidores iguais, com Galera e HAProxy, em uma rede só deles e do comando");
  std::string bufferPool = "128M";
  app.add_option("--memoria", bufferPool, "A memória de um servidor só para dados, como 2G")->capture_default_str();
  // Everything after the first "--" belongs to the command, whatever it looks like.
  char** const end = argv + argc;
  char** const separator = std::find(argv, end, std::string_view("--"));
  CLI11_PARSE(app, static_cast<int>(separator - argv), argv);
  const std::vector<std::string> command(separator == end ? end : separator + 1, end);
  if (command.empty()) {
    std::cerr << "kodra-mariadb: falta o comando, depois de --\n";
    return kFailed;
  }

  AnswerInterruptions();
  try {
    return cluster ? RunWithCluster(command, script) : RunWithServer(command, script, bufferPool);
  } catch (const std::exception& error) {
    if (interruptedBy != 0) return 128 + interruptedBy;
    std::cerr << "kodra-mariadb: " << error.what() << "\n";
    return kFailed;
  }
}
