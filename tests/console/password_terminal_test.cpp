// kodrarpt as a process that asks for a password on a terminal, and a routine that is interrupted.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <fstream>
#include <sstream>
#include <thread>

#include "testbed/mariadb/child_process.h"
#include "tests/console/small_archive.h"
#include "tests/db/sqlite_file.h"
#include "tests/db/temporary_folder.h"
#include "values/utf8.h"

namespace kodra::tests {
namespace {

using std::chrono::steady_clock;
using values::ToUtf8;

// A terminal, seen from its other end.
class Terminal {
 public:
  Terminal() : end_(posix_openpt(O_RDWR | O_NOCTTY)) {
    EXPECT_EQ(grantpt(end_), 0);
    EXPECT_EQ(unlockpt(end_), 0);
    // Open on this side too, so that what a process wrote stays when it ends.
    other_ = open(ptsname(end_), O_RDWR | O_NOCTTY);
  }
  ~Terminal() {
    close(other_);
    close(end_);
  }
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;

  // Starts a process in a session of its own, with this terminal.
  pid_t Start(std::vector<std::string> command) const {
    command.insert(command.begin(), {"setsid", "--ctty"});
    testbed::ChildProcess child;
    child.command = std::move(command);
    child.input = child.output = ptsname(end_);
    return testbed::Spawn(child);
  }

  // Waits until the terminal shows this text.
  void WaitFor(const std::string& text) {
    const auto deadline = steady_clock::now() + std::chrono::seconds(30);
    while (Shown().find(text) == std::string::npos && steady_clock::now() < deadline)
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    EXPECT_NE(shown_.find(text), std::string::npos) << shown_;
  }
  void Type(const std::string& keys) const {
    EXPECT_EQ(write(end_, keys.data(), keys.size()), static_cast<ssize_t>(keys.size()));
  }

  // All that was shown so far.
  const std::string& Shown() {
    fcntl(end_, F_SETFL, O_NONBLOCK);
    std::array<char, 4096> more{};
    for (ssize_t length = 0; (length = read(end_, more.data(), more.size())) > 0;)
      shown_.append(more.data(), static_cast<std::size_t>(length));
    return shown_;
  }
  bool Echoes() const {
    termios mode{};
    EXPECT_EQ(tcgetattr(other_, &mode), 0);
    return (mode.c_lflag & ECHO) != 0;
  }

 private:
  int end_, other_ = -1;
  std::string shown_;
};

// The connection string of the server without the password, and the password.
std::pair<std::string, std::string> ServerAndPassword() {
  const std::wstring full = SmallArchiveOn(Engine::kMariaDb);
  const std::size_t at = full.find(L"Pwd=");
  const std::size_t end = full.find(L';', at);
  return {ToUtf8(full.substr(0, at) + full.substr(end + 1)), ToUtf8(full.substr(at + 4, end - at - 4))};
}

std::vector<std::string> Asking(const std::string& connection) {
  return {KODRARPT, "executa", "CSuporteRpt", "--conexao", connection, "--pergunta-senha", "--formato", "csv"};
}

constexpr const char* kQuestion = "Senha do banco de dados: ";

TEST(PasswordQuestion, IsNotAnsweredOnTheScreen) {
  const auto [server, password] = ServerAndPassword();
  Terminal terminal;
  const pid_t process = terminal.Start(Asking(server));
  terminal.WaitFor(kQuestion);
  EXPECT_FALSE(terminal.Echoes());
  terminal.Type(password + "\n");
  EXPECT_EQ(testbed::WaitFor(process), 0);
  EXPECT_EQ(terminal.Shown(), std::string(kQuestion) + "\r\nDESCR_SUPORTE\r\nPapel\r\n");
  EXPECT_TRUE(terminal.Echoes());
}

TEST(PasswordQuestion, NamesTheProfileWhosePasswordItAsks) {
  const auto [server, password] = ServerAndPassword();
  const TemporaryFolder settings;
  setenv("XDG_CONFIG_HOME", settings.Path().c_str(), 1);
  testbed::ChildProcess child;
  child.command = {KODRARPT, "perfil", "novo", "acervo", "--conexao", server, "--pergunta-senha"};
  child.output = "/dev/null";
  EXPECT_EQ(testbed::WaitFor(testbed::Spawn(child)), 0);
  Terminal terminal;
  const pid_t process = terminal.Start({KODRARPT, "perfil", "testa", "acervo"});
  unsetenv("XDG_CONFIG_HOME");
  terminal.WaitFor("Senha do perfil acervo: ");
  terminal.Type(password + "\n");
  EXPECT_EQ(testbed::WaitFor(process), 0);
  EXPECT_NE(terminal.Shown().find("dialeto  MySQL"), std::string::npos) << terminal.Shown();
  EXPECT_EQ(terminal.Shown().find(password), std::string::npos);
}

TEST(PasswordQuestion, RestoresTheTerminalWhenItIsInterrupted) {
  Terminal terminal;
  const pid_t process = terminal.Start(Asking("DSN=A"));
  terminal.WaitFor(kQuestion);
  terminal.Type("\x03");
  EXPECT_EQ(testbed::WaitFor(process), 130);
  EXPECT_TRUE(terminal.Echoes());
  EXPECT_EQ(terminal.Shown(), std::string(kQuestion) + "\r\n");
}

TEST(PasswordQuestion, TakesTheEndOfTheInputForNoPassword) {
  Terminal terminal;
  const pid_t process = terminal.Start(Asking("DSN=A"));
  terminal.WaitFor(kQuestion);
  terminal.Type("\x04");
  EXPECT_EQ(testbed::WaitFor(process), 2);
  EXPECT_EQ(terminal.Shown(), std::string(kQuestion) +
                                  "\r\nkodrarpt: nenhuma senha foi digitada: execute o comando de novo e digite-a\r\n");
}

TEST(PasswordQuestion, IsRefusedWithoutATerminal) {
  const TemporaryFolder folder;
  testbed::ChildProcess child;
  child.command = Asking("DSN=A");
  child.command.insert(child.command.begin(), "setsid");
  child.output = (folder / "saida.txt").string();
  EXPECT_EQ(testbed::WaitFor(testbed::Spawn(child)), 2);
  std::ostringstream text;
  text << std::ifstream(folder / "saida.txt").rdbuf();
  EXPECT_EQ(text.str(),
            "kodrarpt: a senha deve ser perguntada, e não há terminal: use --senha-de, ou um perfil com senha-de ou "
            "senha-comando\n");
}

}  // namespace
}  // namespace kodra::tests
