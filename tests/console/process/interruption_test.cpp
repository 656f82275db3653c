// kodrarpt as a process: how it reacts to signals, and how much memory it uses.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>
#include <thread>

#include "odbc/engine/recordset.h"
#include "testbed/mariadb/child_process.h"
#include "tests/db/mariadb.h"
#include "tests/db/sample.h"
#include "tests/db/sqlite_file.h"
#include "values/utf8.h"

namespace kodra::tests {
namespace {

namespace fs = std::filesystem;
using std::chrono::steady_clock;
using values::ToUtf8;

constexpr int kManyRows = 100000;
constexpr int kFewRows = 1000;

// A database with a table of supports. The index has the order of the report, so that SQLite does not sort in memory.
class Supports {
 public:
  explicit Supports(int rows) {
    file_.Run(L"CREATE TABLE SUPORTE (COD_SUPORTE VARCHAR(10), DESCR_SUPORTE VARCHAR(50))");
    file_.Run(L"CREATE INDEX IX_SUPORTE ON SUPORTE (DESCR_SUPORTE)");
    file_.Run(L"INSERT INTO SUPORTE WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
              std::to_wstring(rows) + L") SELECT i, printf('Microfilme de dezesseis milímetros %08d', i) FROM n");
  }
  std::string Connection() const { return ToUtf8(file_.ConnectionString()); }

 private:
  SqliteFile file_;
};

const Supports& Many() {
  static const Supports many(kManyRows);
  return many;
}

// A database whose parameter table never ends. A run of a report that reads it unsorted ends only when it is
// interrupted.
std::string EndlessConnection() {
  return ToUtf8(DatabaseOf(Engine::kSqlite, L"interminavel",
                           {L"CREATE VIEW PARAMETRO AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) "
                            L"SELECT '1' AS CODIGO, printf('Acervo %d', i) AS EMPRESA FROM n"}));
}

class KodrarptProcess : public testing::Test {
 protected:
  KodrarptProcess() {
    // A shell makes its background programs ignore Ctrl-C, and kodrarpt would inherit that from this program.
    previousHandler_ = signal(SIGINT, SIG_DFL);
  }
  ~KodrarptProcess() override { signal(SIGINT, previousHandler_); }

  // Starts "kodrarpt executa" with a report and its arguments, and writes to "destino.csv" or "destino.json". A wrapper
  // is a command that runs kodrarpt; it may be empty.
  pid_t Start(const std::vector<std::string>& wrapper, const std::vector<std::string>& report,
              const std::string& format) const {
    testbed::ChildProcess child;
    child.command = wrapper;
    child.command.insert(child.command.end(), {KODRARPT, "executa"});
    child.command.insert(child.command.end(), report.begin(), report.end());
    child.command.insert(child.command.end(),
                         {"--formato", format, "--saida", (folder_ / ("destino." + format)).string()});
    child.output = (folder_ / "saida.txt").string();
    return testbed::Spawn(child);
  }
  pid_t StartEndlessCsv(const std::vector<std::string>& under = {}) const {
    return Start(
        under,
        {"CEstatIndexRpt.RelatorioEstatisticasPorPalavrasChave", "--conexao", EndlessConnection(), "--NumeroPC1", "1",
         "--NumeroPC2", "1", "--NumeroPC3", "1", "--NumeroPC4", "1", "--NumeroPC5", "1", "--NumeroObs", "1"},
        "csv");
  }

  std::vector<std::string> Names() const { return folder_.Names(); }

  // Whether the test may mount file systems that only its own processes see.
  static bool MayMount() {
    testbed::ChildProcess probe;
    probe.command = {"unshare", "--map-root-user", "--mount", "true"};
    probe.output = "/dev/null";
    return testbed::WaitFor(testbed::Spawn(probe)) == 0;
  }

  // The exit code of a process that was interrupted; -1 if it was ended by a signal, or killed here after a minute.
  static int ExitCodeOf(pid_t process) {
    const auto deadline = steady_clock::now() + std::chrono::seconds(60);
    while (steady_clock::now() < deadline) {
      int status = 0;
      if (waitpid(process, &status, WNOHANG) == process) return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    kill(process, SIGKILL);
    waitpid(process, nullptr, 0);
    return -1;
  }

  // Waits until the unfinished file of the process has bytes.
  bool HasBegun(pid_t process) const {
    const fs::path unfinished = folder_ / (".destino.csv." + std::to_string(process) + ".parcial");
    const auto deadline = steady_clock::now() + std::chrono::seconds(60);
    std::error_code none;
    while (steady_clock::now() < deadline) {
      const auto size = fs::file_size(unfinished, none);
      if (!none && size > 0) return true;
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return false;
  }

  // The most memory that a run takes, in megabytes. "time" tells it, as a process starts with the peak of its parent,
  // and this program's own is high.
  long PeakMegabytes(const std::string& connection, const std::string& format) const {
    const fs::path peak = folder_ / "pico.txt";
    const pid_t process = Start({"/usr/bin/time", "--quiet", "-f", "%M", "-o", peak.string()},
                                {"CSuporteRpt.RelatorioSuportes", "--conexao", connection}, format);
    EXPECT_EQ(testbed::WaitFor(process), 0) << Read(folder_ / "saida.txt");
    return std::stol(Read(peak)) / 1024;
  }

  const TemporaryFolder folder_;
  sighandler_t previousHandler_;
};

TEST_F(KodrarptProcess, KeepsThePreviousFileWhenItIsInterrupted) {
  for (const int signal : {SIGINT, SIGTERM}) {
    std::ofstream(folder_ / "destino.csv") << "antes";
    const pid_t process = StartEndlessCsv();
    EXPECT_TRUE(HasBegun(process));
    kill(process, signal);
    EXPECT_EQ(ExitCodeOf(process), 128 + signal);
    EXPECT_EQ(Names(), (std::vector<std::string>{"destino.csv", "saida.txt"}));
    EXPECT_EQ(Read(folder_ / "destino.csv"), "antes");
    EXPECT_EQ(Read(folder_ / "saida.txt"), "");
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

// A database that takes half a minute, or for ever, to answer with its first support.
std::string SlowMariaDb() {
  return ToUtf8(DatabaseOf(Engine::kMariaDb, L"lenta",
                           {L"CREATE VIEW SUPORTE AS SELECT '1' AS COD_SUPORTE, SLEEP(30) AS DESCR_SUPORTE"}));
}

std::string SlowSqlite() {
  return ToUtf8(DatabaseOf(Engine::kSqlite, L"lento",
                           {L"CREATE VIEW SUPORTE AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) "
                            L"SELECT i AS COD_SUPORTE, i AS DESCR_SUPORTE FROM n WHERE i < 0"}));
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

TEST_F(KodrarptProcess, TakesItsStatementOffTheServerWhenItIsInterrupted) {
  const std::string connection = SlowMariaDb();
  for (const int signal : {SIGINT, SIGTERM}) {
    const pid_t process = Start({}, {"CSuporteRpt.RelatorioSuportes", "--conexao", connection}, "csv");
    const auto deadline = steady_clock::now() + std::chrono::seconds(30);
    while (RunningStatements() == 0 && steady_clock::now() < deadline)
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_EQ(RunningStatements(), 1);
    const auto asked = steady_clock::now();
    kill(process, signal);
    EXPECT_EQ(ExitCodeOf(process), 128 + signal);
    EXPECT_LT(steady_clock::now() - asked, std::chrono::seconds(1));
    EXPECT_EQ(RunningStatements(), 0);
    EXPECT_EQ(Names(), std::vector<std::string>{"saida.txt"});
    EXPECT_EQ(Read(folder_ / "saida.txt"), "");
  }
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
    EXPECT_EQ(Read(folder_ / "saida.txt"), "kodrarpt: o relatório foi interrompido: passou do limite de 1 segundo\n");
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
  testbed::ChildProcess child;
  child.command = {KODRARPT, "rotina", (folder_ / "a.ini").string(), "--conexao", EndlessConnection()};
  child.output = (folder_ / "saida.txt").string();
  const pid_t process = testbed::Spawn(child);
  EXPECT_TRUE(HasBegun(process));
  kill(process, SIGINT);
  EXPECT_EQ(ExitCodeOf(process), 130);
  EXPECT_EQ(Names(), (std::vector<std::string>{"a.ini", "antes.csv", "saida.txt"}));
  EXPECT_EQ(std::regex_replace(Read(folder_ / "saida.txt"), std::regex(" [0-9]+,[0-9]  "), " N,N  "),
            "saída        linhas  segundos  resultado\n"
            "antes             1       N,N  " +
                (folder_ / "antes.csv").string() +
                "\n"
                "sem fim                   N,N  interrompida\n"
                "depois                         não executada\n"
                "1 de 3 gravadas\n");
}

TEST_F(KodrarptProcess, UsesNoMoreMemoryForMoreRows) {
  // The sanitizers keep freed memory for a while. They must keep little, or it would hide the memory that a run uses.
  setenv("ASAN_OPTIONS", "quarantine_size_mb=1", 1);
  const Supports few(kFewRows);
  for (const char* format : {"csv", "json"}) {
    const long base = PeakMegabytes(few.Connection(), format);
    const long most = PeakMegabytes(Many().Connection(), format);
    // The rows alone are 16 MB as they are held in memory.
    EXPECT_LE(most - base, 6) << format << ": " << base << " MB for few rows, " << most << " MB for many";
    const std::string text = Read(folder_ / ("destino." + std::string(format)));
    EXPECT_NE(text.find("Microfilme de dezesseis milímetros 00100000"), std::string::npos);
  }
  unsetenv("ASAN_OPTIONS");
}

TEST_F(KodrarptProcess, UsesASmallMultipleOfTheSizeOfALongText) {
  setenv("ASAN_OPTIONS", "quarantine_size_mb=1", 1);
  constexpr long kMegabytes = 16;
  const Supports few(kFewRows);
  SqliteFile file;
  file.Run(L"CREATE TABLE SUPORTE (COD_SUPORTE VARCHAR(10), DESCR_SUPORTE VARCHAR(50))");
  file.Run(L"INSERT INTO SUPORTE VALUES ('1', REPLACE(HEX(ZEROBLOB(" + std::to_wstring(kMegabytes << 19) +
           L")), '00', 'ab'))");
  const long base = PeakMegabytes(few.Connection(), "csv");
  const long peak = PeakMegabytes(ToUtf8(file.ConnectionString()), "csv");
  EXPECT_EQ(fs::file_size(folder_ / "destino.csv"), std::string("DESCR_SUPORTE\r\n\r\n").size() + (kMegabytes << 20));
  // SQLite and its driver keep six copies of the text to sort it; the program has it in UTF-16, as a text of four
  // bytes a character, in UTF-8 and in a line: 14 times in all.
  EXPECT_LE(peak - base, 18 * kMegabytes) << base << " MB for few rows, " << peak << " MB for the text";
  unsetenv("ASAN_OPTIONS");
}

TEST_F(KodrarptProcess, RefusesAFileThatIsMountedOnItsOwnBeforeItAsksTheDatabase) {
  if (!MayMount()) GTEST_SKIP() << "this machine does not permit private mounts";
  const fs::path target = folder_ / "destino.csv";
  std::ofstream(target) << "antes";
  testbed::ChildProcess child;
  child.command = {
      "unshare", "--map-root-user",
      "--mount", "sh",
      "-c",      "mount --bind \"$1\" \"$1\" && exec \"$0\" executa CDeptoRpt --conexao DSN=NaoExiste --saida \"$1\"",
      KODRARPT,  target.string()};
  child.output = (folder_ / "saida.txt").string();
  EXPECT_EQ(testbed::WaitFor(testbed::Spawn(child)), 5);
  EXPECT_EQ(Read(folder_ / "saida.txt"),
            "kodrarpt: não foi possível gravar \"" + target.string() +
                "\": o arquivo é um ponto de montagem e não pode ser substituído; monte a pasta dele.\n");
  EXPECT_EQ(Names(), (std::vector<std::string>{"destino.csv", "saida.txt"}));
  EXPECT_EQ(Read(target), "antes");
}

// Starts a process with a terminal of that width for its output, and returns what the terminal gets.
std::string OnTerminal(unsigned short width, const std::vector<std::string>& command, int code = 0) {
  const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
  EXPECT_EQ(grantpt(terminal), 0);
  EXPECT_EQ(unlockpt(terminal), 0);
  const winsize size = {.ws_row = 24, .ws_col = width, .ws_xpixel = 0, .ws_ypixel = 0};
  EXPECT_EQ(ioctl(terminal, TIOCSWINSZ, &size), 0);
  testbed::ChildProcess child;
  child.command = command;
  child.output = ptsname(terminal);
  EXPECT_EQ(testbed::WaitFor(testbed::Spawn(child)), code);
  std::array<char, 4096> shown{};
  const ssize_t length = read(terminal, shown.data(), shown.size());
  close(terminal);
  return {shown.data(), static_cast<std::size_t>(std::max<ssize_t>(length, 0))};
}

TEST_F(KodrarptProcess, FitsATableToTheTerminal) {
  SqliteFile file;
  file.Run(
      L"CREATE TABLE DEPTO (COD_DEPTO, DESCR_DEPTO VARCHAR(50), ENDERECO VARCHAR(50), CIDADE VARCHAR(50), "
      L"ESTADO VARCHAR(2), CEP VARCHAR(9), END_EMAIL VARCHAR(50))");
  file.Run(L"INSERT INTO DEPTO VALUES ('1', 'Fin' || char(27) || '[2J', 'Rua A', 'Rio', 'RJ', '01000-000', 'a@b.br')");
  const std::vector<std::string> command = {KODRARPT, "executa", "CDeptoRpt", "--conexao",
                                            ToUtf8(file.ConnectionString())};
  EXPECT_EQ(OnTerminal(30, command),
            "DESCR_DEPTO  ENDERECO  CIDADE\r\n"
            "───────────  ────────  ──────\r\n"
            "Fin\uFFFD[2J      Rua A     Rio\r\n"
            "(1 linha)\r\n"
            "mais 3 colunas não cabem aqui (ESTADO, CEP, END_EMAIL): use --colunas, ou --saida ARQUIVO.csv\r\n");
  // A file is as wide as the table.
  testbed::ChildProcess child;
  child.command = command;
  child.output = (folder_ / "saida.txt").string();
  EXPECT_EQ(testbed::WaitFor(testbed::Spawn(child)), 0);
  EXPECT_EQ(Read(folder_ / "saida.txt"),
            "DESCR_DEPTO  ENDERECO  CIDADE  ESTADO  CEP        END_EMAIL\n"
            "───────────  ────────  ──────  ──────  ─────────  ─────────\n"
            "Fin\uFFFD[2J      Rua A     Rio     RJ      01000-000  a@b.br\n"
            "(1 linha)\n");
}

TEST_F(KodrarptProcess, ShowsTheFirstRowsWhileTheDatabaseWorksOnTheNext) {
  SqliteFile file;
  // After three rows the database looks for a fourth for ever.
  file.Run(
      L"CREATE VIEW PARAMETRO AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) "
      L"SELECT '1' AS CODIGO, 'Acervo' AS EMPRESA FROM n WHERE i <= 3");
  EXPECT_EQ(OnTerminal(60,
                       {KODRARPT,
                        "executa",
                        "CEstatIndexRpt.RelatorioEstatisticasPorPalavrasChave",
                        "--conexao",
                        ToUtf8(file.ConnectionString()),
                        "--NumeroPC1",
                        "1",
                        "--NumeroPC2",
                        "2",
                        "--NumeroPC3",
                        "3",
                        "--NumeroPC4",
                        "4",
                        "--NumeroPC5",
                        "5",
                        "--NumeroObs",
                        "6",
                        "--colunas",
                        "OPERADOR,PC1,PC2",
                        "--tempo-limite",
                        "2"},
                       1),
            "OPERADOR  PC1  PC2\r\n"
            "────────  ───  ───\r\n"
            "            1    2\r\n"
            "            1    2\r\n"
            "            1    2\r\n"
            "kodrarpt: o relatório foi interrompido: passou do limite de 2 segundos\r\n");
}

TEST_F(KodrarptProcess, SaysOnATerminalThatItWaitsForTheDatabase) {
  const std::string shown =
      OnTerminal(80, {KODRARPT, "executa", "CSuporteRpt", "--conexao", SlowSqlite(), "--tempo-limite", "3"}, 1);
  const std::string begin = "esperando o banco de dados há 1 s\resperando o banco de dados há 2 s\r";
  EXPECT_EQ(shown.substr(0, begin.size()), begin);
  const std::string message = "\rkodrarpt: o relatório foi interrompido: passou do limite de 3 segundos\r\n";
  EXPECT_TRUE(shown.ends_with(message)) << shown;
}

TEST_F(KodrarptProcess, FailsWhenASpreadsheetsTemporaryFileFillsTheDisk) {
  if (!MayMount()) GTEST_SKIP() << "this machine does not permit private mounts";
  testbed::ChildProcess child;
  child.command = {"unshare",
                   "--map-root-user",
                   "--mount",
                   "sh",
                   "-c",
                   "mkdir \"$1/tmp\" && mount -t tmpfs -o size=1m tmpfs \"$1/tmp\" && export TMPDIR=\"$1/tmp\" && "
                   "exec \"$0\" executa CSuporteRpt --conexao \"$2\" --formato xlsx --saida \"$1/destino.xlsx\"",
                   KODRARPT,
                   folder_.Path().string(),
                   Many().Connection()};
  child.output = (folder_ / "saida.txt").string();
  EXPECT_EQ(testbed::WaitFor(testbed::Spawn(child)), 5);
  EXPECT_EQ(Read(folder_ / "saida.txt"),
            "kodrarpt: não foi possível gravar o arquivo temporário da planilha: o disco está cheio.\n");
  EXPECT_EQ(Names(), (std::vector<std::string>{"saida.txt", "tmp"}));
}

TEST_F(KodrarptProcess, KeepsMessagesOutOfItsFileWhenItsErrorStreamIsClosed) {
  const pid_t process = StartEndlessCsv({"sh", "-c", "exec \"$@\" 2>&-", "sh"});
  EXPECT_TRUE(HasBegun(process));
  const fs::path errors = "/proc/" + std::to_string(process) + "/fd/2";
  EXPECT_EQ(fs::read_symlink(errors), "/dev/null");
  kill(process, SIGTERM);
  EXPECT_EQ(ExitCodeOf(process), 143);
}

TEST_F(KodrarptProcess, SaysThatTheStandardOutputIsFull) {
  testbed::ChildProcess child;
  child.command = {"sh", "-c", "exec \"$0\" lista 2>\"$1\" >/dev/full", KODRARPT, (folder_ / "saida.txt").string()};
  child.output = (folder_ / "resto.txt").string();
  EXPECT_EQ(testbed::WaitFor(testbed::Spawn(child)), 5);
  EXPECT_EQ(Read(folder_ / "saida.txt"), "kodrarpt: não foi possível gravar a saída: o disco está cheio.\n");
}

// A program that starts this one may make it ignore the signal of a closed pipe.
TEST_F(KodrarptProcess, SaysThatTheReaderOfItsOutputHasEnded) {
  testbed::ChildProcess child;
  child.command = {
      "sh",
      "-c",
      "trap '' PIPE; { \"$0\" executa CSuporteRpt --conexao \"$1\" --formato csv 2>\"$2\"; echo $? >\"$3\"; } "
      "| head -n 1",
      KODRARPT,
      Many().Connection(),
      (folder_ / "erros.txt").string(),
      (folder_ / "código.txt").string()};
  child.output = (folder_ / "saida.txt").string();
  EXPECT_EQ(testbed::WaitFor(testbed::Spawn(child)), 0);
  EXPECT_EQ(Read(folder_ / "saida.txt"), "DESCR_SUPORTE\r\n");
  EXPECT_EQ(Read(folder_ / "erros.txt"), "kodrarpt: não foi possível gravar a saída: quem lia a saída já terminou.\n");
  EXPECT_EQ(Read(folder_ / "código.txt"), "5\n");
}

TEST_F(KodrarptProcess, FailsWhenItsOutputIsClosed) {
  testbed::ChildProcess child;
  child.command = {"sh", "-c", "exec \"$0\" executa CSuporteRpt --conexao \"$1\" --formato csv >&-", KODRARPT,
                   Many().Connection()};
  child.output = (folder_ / "saida.txt").string();
  EXPECT_EQ(testbed::WaitFor(testbed::Spawn(child)), 5);
  EXPECT_EQ(Read(folder_ / "saida.txt"), "kodrarpt: não foi possível gravar a saída: a saída está fechada.\n");
}

TEST_F(KodrarptProcess, FailsWhenItsOutputIsFull) {
  testbed::ChildProcess child;
  child.command = {KODRARPT, "executa", "CSuporteRpt", "--conexao", Many().Connection(), "--formato", "csv"};
  child.output = "/dev/full";
  EXPECT_EQ(testbed::WaitFor(testbed::Spawn(child)), 5);
}

}  // namespace
}  // namespace kodra::tests
