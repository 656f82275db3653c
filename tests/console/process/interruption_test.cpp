// kodrarpt as a process that is stopped: by signals, and at its time limit.
#include <gtest/gtest.h>
#include <signal.h>

#include <chrono>
#include <fstream>
#include <regex>
#include <thread>

#include "odbc/engine/recordset.h"
#include "tests/console/process/kodrarpt_process.h"
#include "tests/console/user_settings.h"
#include "tests/db/mariadb.h"
#include "tests/db/sample.h"
#include "values/utf8.h"

namespace kodra::tests {
namespace {

namespace fs = std::filesystem;
using std::chrono::steady_clock;
using values::ToUtf8;

TEST_F(KodrarptProcess, KeepsThePreviousFileWhenItIsInterrupted) {
  for (const int signal : {SIGINT, SIGTERM}) {
    std::ofstream(folder_ / "destino.csv") << "antes";
    const pid_t process = StartEndlessCsv();
    EXPECT_TRUE(HasBegun(process));
    kill(process, signal);
    EXPECT_EQ(ExitCodeOf(process), 128 + signal);
    EXPECT_EQ(Names(), (std::vector<std::string>{"destino.csv", "saida.txt"}));
    EXPECT_EQ(Read(folder_ / "destino.csv"), "antes");
    EXPECT_EQ(Said(), "");
  }
}

TEST_F(KodrarptProcess, LeavesNoFileWhenItIsInterruptedTwice) {
  const pid_t process = StartEndlessCsv();
  EXPECT_TRUE(HasBegun(process));
  kill(process, SIGTERM);
  kill(process, SIGTERM);
  EXPECT_EQ(ExitCodeOf(process), 143);
  EXPECT_EQ(Names(), std::vector<std::string>{"saida.txt"});
}

// A database that takes half a minute to answer with its first support, and to say whether its parameters can be read.
std::string SlowMariaDb() {
  return ToUtf8(DatabaseOf(Engine::kMariaDb, L"lenta",
                           {L"CREATE VIEW SUPORTE AS SELECT '1' AS COD_SUPORTE, SLEEP(30) AS DESCR_SUPORTE",
                            L"CREATE VIEW PARAMETRO AS SELECT '1' AS CODIGO, SLEEP(30) AS EMPRESA"}));
}

// How many statements of other connections the server runs.
std::int64_t RunningStatements() {
  odbc::Connection connection;
  connection.Open(MariaDb().ConnectionString(L"lenta"), L"", L"", platform::ad::kUnspecified);
  return connection
      .Query(
          L"SELECT COUNT(*) FROM information_schema.PROCESSLIST WHERE COMMAND IN ('Query', 'Execute') "
          L"AND ID <> CONNECTION_ID()",
          platform::ad::kCmdText)
      .recordset->FieldValue(0)
      .As<std::int64_t>();
}

// Waits until the server runs the statement of a process.
void WaitForAStatement() {
  const auto deadline = steady_clock::now() + std::chrono::seconds(30);
  while (RunningStatements() == 0 && steady_clock::now() < deadline)
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  EXPECT_EQ(RunningStatements(), 1);
}

TEST_F(KodrarptProcess, TakesItsStatementOffTheServerWhenItIsInterrupted) {
  const std::string connection = SlowMariaDb();
  for (const int signal : {SIGINT, SIGTERM}) {
    const pid_t process = Start({}, {"CSuporteRpt.RelatorioSuportes", "--conexao", connection}, "csv");
    WaitForAStatement();
    const auto asked = steady_clock::now();
    kill(process, signal);
    EXPECT_EQ(ExitCodeOf(process), 128 + signal);
    EXPECT_LT(steady_clock::now() - asked, std::chrono::seconds(1));
    EXPECT_EQ(RunningStatements(), 0);
    EXPECT_EQ(Names(), std::vector<std::string>{"saida.txt"});
    EXPECT_EQ(Said(), "");
  }
}

TEST_F(KodrarptProcess, TakesTheStatementOfACheckOffTheServerWhenItIsInterrupted) {
  const std::string connection = SlowMariaDb();
  for (const int signal : {SIGINT, SIGTERM}) {
    const pid_t process = StartCommand({KODRARPT, "verifica", "--conexao", connection});
    WaitForAStatement();
    const auto asked = steady_clock::now();
    kill(process, signal);
    EXPECT_EQ(ExitCodeOf(process), 128 + signal);
    EXPECT_LT(steady_clock::now() - asked, std::chrono::seconds(1));
    EXPECT_EQ(RunningStatements(), 0);
    EXPECT_EQ(Said(), "");
  }
}

TEST_F(KodrarptProcess, EndsACheckAtItsTimeLimit) {
  const pid_t process =
      StartCommand({KODRARPT, "verifica", "--json", "--conexao", SlowMariaDb(), "--tempo-limite", "1"});
  EXPECT_EQ(ExitCodeOf(process), 1);
  EXPECT_EQ(Said(), "kodrarpt: a verificação foi interrompida: passou do limite de 1 segundo\n");
  EXPECT_EQ(RunningStatements(), 0);
}

TEST_F(KodrarptProcess, TakesTheStatementOfAProfilesTestOffTheServerWhenItIsInterrupted) {
  const console::UserSettings user;
  user.Write("[lenta]\nconexao = " + user.WithoutPassword(SlowMariaDb(), "ACERVO_SENHA") +
             "\nsenha-de = ACERVO_SENHA\n");
  const pid_t process = StartCommand({KODRARPT, "perfil", "testa", "lenta"});
  WaitForAStatement();
  const auto asked = steady_clock::now();
  kill(process, SIGINT);
  EXPECT_EQ(ExitCodeOf(process), 130);
  EXPECT_LT(steady_clock::now() - asked, std::chrono::seconds(1));
  EXPECT_EQ(RunningStatements(), 0);
  EXPECT_EQ(Said(), "");
}

// The driver of SQLite cannot stop a statement, so the program ends with it.
TEST_F(KodrarptProcess, EndsWithinASecondWhileTheFirstRowIsStillSought) {
  const pid_t process = Start({}, {"CSuporteRpt.RelatorioSuportes", "--conexao", SlowSqlite()}, "csv");
  const auto deadline = steady_clock::now() + std::chrono::seconds(30);
  while (Names().size() < 2 && steady_clock::now() < deadline)
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  std::this_thread::sleep_for(std::chrono::milliseconds(300));
  const auto asked = steady_clock::now();
  kill(process, SIGINT);
  EXPECT_EQ(ExitCodeOf(process), 130);
  EXPECT_LT(steady_clock::now() - asked, std::chrono::seconds(1));
  EXPECT_EQ(Names(), std::vector<std::string>{"saida.txt"});
}

TEST_F(KodrarptProcess, EndsAtItsTimeLimit) {
  for (const std::string& connection : {SlowMariaDb(), SlowSqlite()}) {
    const pid_t process =
        Start({}, {"CSuporteRpt.RelatorioSuportes", "--conexao", connection, "--tempo-limite", "1"}, "csv");
    EXPECT_EQ(ExitCodeOf(process), 1);
    EXPECT_EQ(Said(), "kodrarpt: o relatório foi interrompido: passou do limite de 1 segundo\n");
    EXPECT_EQ(Names(), std::vector<std::string>{"saida.txt"});
    fs::remove(folder_ / "saida.txt");
  }
  EXPECT_EQ(RunningStatements(), 0);
}

TEST_F(KodrarptProcess, StopsAWholeRoutineWhenItIsInterrupted) {
  const std::string report =
      "relatorio = RelatorioEstatisticasPorPalavrasChave\nNumeroPC1 = 1\nNumeroPC2 = 1\nNumeroPC3 = 1\n"
      "NumeroPC4 = 1\nNumeroPC5 = 1\nNumeroObs = 1\n";
  std::ofstream(folder_ / "a.ini") << "[antes]\narquivo = antes.csv\nlimite = 1\n" + report +
                                          "[sem fim]\narquivo = destino.csv\n" + report +
                                          "[depois]\narquivo = depois.csv\n" + report;
  const pid_t process =
      StartCommand({KODRARPT, "rotina", (folder_ / "a.ini").string(), "--conexao", EndlessConnection()});
  EXPECT_TRUE(HasBegun(process));
  kill(process, SIGINT);
  EXPECT_EQ(ExitCodeOf(process), 130);
  EXPECT_EQ(Names(), (std::vector<std::string>{"a.ini", "antes.csv", "saida.txt"}));
  EXPECT_EQ(std::regex_replace(Said(), std::regex(" [0-9]+,[0-9]  "), " N,N  "),
            "saída        linhas  segundos  resultado\n"
            "antes             1       N,N  " +
                (folder_ / "antes.csv").string() +
                "\n"
                "sem fim                   N,N  interrompida\n"
                "depois                         não executada\n"
                "1 de 3 gravadas\n");
}

}  // namespace
}  // namespace kodra::tests
