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
// It has one class.
std::string SlowMariaDb() {
  return ToUtf8(DatabaseOf(Engine::kMariaDb, L"lenta",
                           {L"CREATE VIEW SUPORTE AS SELECT '1' AS COD_SUPORTE, SLEEP(30) AS DESCR_SUPORTE",
                            L"CREATE VIEW PARAMETRO AS SELECT '1' AS CODIGO, SLEEP(30) AS EMPRESA",
                            L"CREATE VIEW CLASSE AS SELECT 'Atas' AS DESCR_CLASSE, '' AS OBS_CLASSE"}));
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

class KodrarptRoutine : public KodrarptProcess {
 protected:
  // Starts a routine whose second output the database does not answer.
  pid_t StartSlowRoutine(const std::string& connection, const std::string& limit) const {
    std::ofstream(folder_ / "a.ini") << "[antes]\nrelatorio = CGrupoRpt\narquivo = antes.csv\n"
                                        "[lenta]\nrelatorio = CSuporteRpt\narquivo = destino.csv\n" +
                                            limit + "[depois]\nrelatorio = CGrupoRpt\narquivo = depois.csv\n";
    return StartCommand({KODRARPT, "rotina", (folder_ / "a.ini").string(), "--conexao", connection});
  }
  // What a process has written to "saida.txt", with N for a time.
  std::string SaidWithoutTimes() const { return std::regex_replace(Said(), std::regex(" [0-9]+,[0-9]  "), " N,N  "); }
  std::string FileNamed(const char* name) const { return (folder_ / name).string(); }
};

TEST_F(KodrarptRoutine, GoesOnAfterATimeLimit) {
  EXPECT_EQ(ExitCodeOf(StartSlowRoutine(SlowMariaDb(), "tempo-limite = 1\n")), 1);
  EXPECT_EQ(RunningStatements(), 0);
  EXPECT_EQ(Names(), (std::vector<std::string>{"a.ini", "antes.csv", "depois.csv", "saida.txt"}));
  EXPECT_EQ(Read(folder_ / "depois.csv"), "DESCR_CLASSE,OBS_CLASSE\r\nAtas,\"\"\r\n");
  EXPECT_EQ(SaidWithoutTimes(),
            "kodrarpt: [lenta] o relatório foi interrompido: passou do limite de 1 segundo\n"
            "saída       linhas  segundos  resultado\n"
            "antes            1       N,N  " +
                FileNamed("antes.csv") +
                "\n"
                "lenta                    N,N  passou do tempo limite\n"
                "depois           1       N,N  " +
                FileNamed("depois.csv") +
                "\n"
                "2 de 3 gravadas\n");
}

// The driver of SQLite cannot stop a statement, so the program ends with it.
TEST_F(KodrarptRoutine, ShowsItsSummaryBeforeATimeLimitEndsTheProgram) {
  EXPECT_EQ(ExitCodeOf(StartSlowRoutine(SlowSqlite(), "tempo-limite = 1\n")), 1);
  EXPECT_EQ(Names(), (std::vector<std::string>{"a.ini", "antes.csv", "saida.txt"}));
  EXPECT_EQ(SaidWithoutTimes(),
            "kodrarpt: [lenta] o relatório foi interrompido: passou do limite de 1 segundo\n"
            "saída       linhas  segundos  resultado\n"
            "antes            1       N,N  " +
                FileNamed("antes.csv") +
                "\n"
                "lenta                    N,N  passou do tempo limite\n"
                "depois                        não executada\n"
                "1 de 3 gravadas\n");
}

TEST_F(KodrarptRoutine, ShowsItsSummaryBeforeAnInterruptionEndsTheProgram) {
  const pid_t process = StartSlowRoutine(SlowSqlite(), "");
  const auto deadline = steady_clock::now() + std::chrono::seconds(30);
  while (!fs::exists(folder_ / (".destino.csv." + std::to_string(process) + ".parcial")) &&
         steady_clock::now() < deadline)
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  const auto asked = steady_clock::now();
  kill(process, SIGTERM);
  EXPECT_EQ(ExitCodeOf(process), 143);
  EXPECT_LT(steady_clock::now() - asked, std::chrono::seconds(1));
  EXPECT_EQ(Names(), (std::vector<std::string>{"a.ini", "antes.csv", "saida.txt"}));
  EXPECT_EQ(SaidWithoutTimes(),
            "saída       linhas  segundos  resultado\n"
            "antes            1       N,N  " +
                FileNamed("antes.csv") +
                "\n"
                "lenta                    N,N  interrompida\n"
                "depois                        não executada\n"
                "1 de 3 gravadas\n");
}

TEST_F(KodrarptRoutine, StopsAsAWholeWhenItIsInterrupted) {
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
  EXPECT_EQ(SaidWithoutTimes(),
            "saída        linhas  segundos  resultado\n"
            "antes             1       N,N  " +
                FileNamed("antes.csv") +
                "\n"
                "sem fim                   N,N  interrompida\n"
                "depois                         não executada\n"
                "1 de 3 gravadas\n");
}

}  // namespace
}  // namespace kodra::tests
