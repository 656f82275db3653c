// The program kodra-mariadb, run as a user runs it.
#include <gtest/gtest.h>
#include <signal.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <thread>
#include <vector>

#include "testbed/mariadb/child_process.h"
#include "tests/db/temporary_folder.h"

namespace kodra::testbed {
namespace {

namespace fs = std::filesystem;

class KodraMariaDb : public testing::Test {
 protected:
  KodraMariaDb() {
    // A server that root starts runs as another user, who must be able to enter this folder.
    fs::permissions(folder_.Path(), fs::perms::group_exec | fs::perms::others_exec, fs::perm_options::add);
    std::ofstream(Script()) << "CREATE TABLE CD (NUM_CD VARCHAR(10));\nINSERT INTO CD VALUES ('João');\n";
  }

  std::string Script() const { return folder_ / "acervo.sql"; }
  static std::string Contents(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  std::string Output() const { return Contents(folder_ / "output"); }
  // Whether the folder of a server exists. TMPDIR makes the program create it in the test's folder.
  bool ServerIsThere() const {
    for (const auto& entry : fs::directory_iterator(folder_.Path())) {
      if (entry.path().filename().string().starts_with("kodra-mariadb-")) return true;
    }
    return false;
  }

  // Starts the program on a script with a command for the shell.
  pid_t Start(const std::string& script, const std::string& shell) const {
    return Spawn({.command = {"/usr/bin/env", "TMPDIR=" + folder_.Path().string(), KODRA_MARIADB, script, "--",
                              "/bin/sh", "-c", shell},
                  .input = "/dev/null",
                  .output = folder_ / "output",
                  .background = true});
  }
  int Run(const std::string& script, const std::string& shell) const { return WaitFor(Start(script, shell)); }

  static bool Becomes(const std::function<bool()>& condition) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    while (!condition()) {
      if (std::chrono::steady_clock::now() > deadline) return false;
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return true;
  }

  // Whether a process with this id runs; false for one that has ended but was not yet waited for.
  static bool Runs(pid_t process) {
    const std::string text = Contents("/proc/" + std::to_string(process) + "/stat");
    const std::size_t name = text.rfind(')');
    return name != std::string::npos && text[name + 2] != 'Z';
  }

  tests::TemporaryFolder folder_;
};

TEST_F(KodraMariaDb, TheCommandFindsTheDatabaseFilledAndItsExitCodeIsTheProgramsOwn) {
  const int status = Run(Script(),
                         "echo ${KODRA_MYSQL%Pwd=*}; "
                         "mariadb --defaults-file=$(echo $TMPDIR/kodra-mariadb-*/arquivo.cnf) --skip-column-names "
                         "arquivo --execute='select NUM_CD from CD'; exit 7");
  EXPECT_EQ(status, 7);
  const std::string output = Output();
  EXPECT_TRUE(output.starts_with("Driver={MariaDB Unicode};Server=localhost;Socket=" + folder_.Path().string()))
      << output;
  EXPECT_TRUE(output.ends_with("/socket;Database=arquivo;Uid=arquivo;\nJoão\n")) << output;
  EXPECT_FALSE(ServerIsThere());
}

TEST_F(KodraMariaDb, ThePasswordIsInNoCommandLineAndInNoLogOfTheServer) {
  const pid_t program = Start(Script(), "echo ${KODRA_MYSQL#*Pwd=}; while :; do sleep 0.1; done");
  ASSERT_TRUE(Becomes([&] { return Output().ends_with(";\n"); }));
  std::string password = Output();
  password.resize(password.find(';'));
  ASSERT_GT(password.size(), 32U);
  std::vector<fs::path> shown;
  for (const auto& process : fs::directory_iterator("/proc")) {
    if (Contents(process.path() / "cmdline").find(password) != std::string::npos) shown.push_back(process.path());
  }
  std::vector<std::string> files;
  for (const auto& server : fs::directory_iterator(folder_.Path())) {
    if (!server.is_directory()) continue;
    for (const auto& file : fs::directory_iterator(server)) {
      if (!file.is_regular_file() || Contents(file).find(password) == std::string::npos) continue;
      files.push_back(file.path().filename());
      EXPECT_EQ(file.status().permissions(), fs::perms::owner_read | fs::perms::owner_write) << file.path();
    }
  }
  kill(program, SIGTERM);
  WaitFor(program);
  EXPECT_EQ(shown, std::vector<fs::path>());
  EXPECT_EQ(files, std::vector<std::string>{"arquivo.cnf"});
}

TEST_F(KodraMariaDb, AScriptThatFailsIsReportedAndTheCommandIsNotRun) {
  std::ofstream(Script(), std::ios::app) << "INSERT INTO NADA VALUES (1);\n";
  EXPECT_EQ(Run(Script(), "echo executado"), 125);
  EXPECT_EQ(Output(),
            "kodra-mariadb: " + Script() + ": ERROR 1146 (42S02) at line 3: Table 'arquivo.NADA' doesn't exist\n");
  EXPECT_FALSE(ServerIsThere());
}

TEST_F(KodraMariaDb, AnInterruptionSentToTheProgramReachesTheCommandAndTheServerIsStopped) {
  const pid_t program =
      Start(Script(), "trap 'echo interrompido; exit 9' INT; echo pronto; while :; do sleep 0.1; done");
  ASSERT_TRUE(Becomes([&] { return Output() == "pronto\n"; }));
  kill(program, SIGINT);
  EXPECT_EQ(WaitFor(program), 9);
  EXPECT_EQ(Output(), "pronto\ninterrompido\n");
  EXPECT_FALSE(ServerIsThere());
}

TEST_F(KodraMariaDb, AnInterruptionBeforeTheCommandStartsStopsTheServer) {
  const pid_t program = Start(Script(), "echo executado");
  ASSERT_TRUE(Becomes([&] { return ServerIsThere(); }));
  kill(program, SIGTERM);
  EXPECT_EQ(WaitFor(program), 128 + SIGTERM);
  EXPECT_EQ(Output(), "");
  EXPECT_FALSE(ServerIsThere());
}

TEST_F(KodraMariaDb, ACommandThatIsKilledEndsTheProgramAndTheServer) {
  EXPECT_EQ(Run(Script(), "kill -KILL $$"), 128 + SIGKILL);
  EXPECT_FALSE(ServerIsThere());
}

// As Ctrl-C at a terminal does it.
TEST_F(KodraMariaDb, AnInterruptionOfTheWholeProcessGroupStopsTheServer) {
  const pid_t program = Start(Script(), "echo pronto; while :; do sleep 0.1; done");
  ASSERT_TRUE(Becomes([&] { return Output() == "pronto\n"; }));
  kill(-program, SIGINT);
  EXPECT_EQ(WaitFor(program), 128 + SIGINT);
  EXPECT_FALSE(ServerIsThere());
}

TEST_F(KodraMariaDb, TheServerAndTheCommandEndWithAProgramThatIsKilled) {
  const pid_t program =
      Start(Script(), "echo $$ $(cat $TMPDIR/kodra-mariadb-*/server/pid); while :; do sleep 0.1; done");
  ASSERT_TRUE(Becomes([&] { return Output().ends_with('\n'); }));
  std::istringstream ids(Output());
  pid_t command = 0;
  pid_t server = 0;
  ids >> command >> server;
  ASSERT_TRUE(Runs(command) && Runs(server)) << Output();
  kill(program, SIGKILL);
  EXPECT_EQ(WaitFor(program), 128 + SIGKILL);
  EXPECT_TRUE(Becomes([&] { return !Runs(server) && !Runs(command); }));
}

}  // namespace
}  // namespace kodra::testbed
