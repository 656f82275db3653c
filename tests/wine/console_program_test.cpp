// kodrarpt.exe as a process that is asked to stop while a database is busy. ADO does not stop the statement, so the
// program ends, and its connection with it.
#include <gtest/gtest.h>
#include <windows.h>

#include <chrono>
#include <filesystem>
#include <functional>

#include "tests/rows/driver.h"
#include "tests/wine/commands.h"

namespace kodra::face {
namespace {

namespace fs = std::filesystem;
using std::chrono::seconds;
using std::chrono::steady_clock;

constexpr DWORD kMinute = 60000;

// Waits until something is true; returns whether it became true within half a minute.
bool Becomes(const std::function<bool()>& isTrue) {
  const auto end = steady_clock::now() + seconds(30);
  while (!isTrue()) {
    if (steady_clock::now() > end) return false;
    Sleep(20);
  }
  return true;
}

// A MariaDB database and an SQLite file that take half a minute, or for ever, to answer with their first support.
std::wstring SlowMariaDb() {
  rows::Execute(
      {L"CREATE DATABASE IF NOT EXISTS arquivo_lento",
       L"CREATE OR REPLACE VIEW arquivo_lento.SUPORTE AS SELECT '1' AS COD_SUPORTE, SLEEP(30) AS DESCR_SUPORTE"},
      Variable(L"KODRA_MYSQL"));
  return ConnectionOnMariaDb(L"arquivo_lento");
}

const std::wstring& SlowSqlite() {
  static const TemporaryFile file(L"lento.db");
  static const std::wstring connection = [] {
    rows::Execute({L"CREATE VIEW SUPORTE AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) "
                   L"SELECT i AS COD_SUPORTE, i AS DESCR_SUPORTE FROM n WHERE i < 0"},
                  ConnectionTo(file.path()));
    return ConnectionTo(file.path());
  }();
  return connection;
}

// Whether the server runs a statement of another connection.
bool ServerIsBusy() {
  const rows::Table count = rows::Query(
      L"SELECT COUNT(*) AS N FROM information_schema.PROCESSLIST WHERE COMMAND IN ('Query', 'Execute') "
      L"AND ID <> CONNECTION_ID()",
      Variable(L"KODRA_MYSQL"));
  return count.rows.at(0).at(0) != rows::Cell(std::int64_t{0});
}

class ConsoleProgram : public testing::Test {
 protected:
  ConsoleProgram() { fs::create_directory(folder_); }
  ~ConsoleProgram() override {
    EndProgram();
    fs::remove_all(folder_);
  }

  // Starts a report of the supports that goes to "destino.csv", with a console of its own. It runs when it has begun
  // its file.
  void Start(const std::wstring& connection, const std::wstring& options = L"") {
    SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
    HANDLE output = CreateFileW((folder_ / "saida.txt").c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                &inherited, CREATE_ALWAYS, 0, nullptr);
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = output;
    startup.hStdError = output;
    std::wstring command = Quoted(DllPath(L"console\\kodrarpt.exe")) + L" executa CSuporteRpt --conexao " +
                           Quoted(connection) + L" --saida " + Quoted((folder_ / "destino.csv").wstring()) + options;
    EXPECT_TRUE(CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, CREATE_NO_WINDOW, nullptr, nullptr,
                               &startup, &process_));
    CloseHandle(output);
    EXPECT_TRUE(Becomes([&] { return fs::exists(Unfinished()); }));
  }

  // Presses Ctrl-C in the program's console, to which this program belongs meanwhile. Returns the exit code.
  DWORD CodeAfterCtrlC() {
    FreeConsole();
    EXPECT_TRUE(AttachConsole(process_.dwProcessId)) << GetLastError();
    SetConsoleCtrlHandler(nullptr, TRUE);
    EXPECT_TRUE(GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0)) << GetLastError();
    const DWORD code = ExitCode();
    FreeConsole();
    SetConsoleCtrlHandler(nullptr, FALSE);
    return code;
  }

  // STILL_ACTIVE when the program has not ended within a minute.
  DWORD ExitCode() const {
    DWORD code = STILL_ACTIVE;
    if (WaitForSingleObject(process_.hProcess, kMinute) == WAIT_OBJECT_0) GetExitCodeProcess(process_.hProcess, &code);
    return code;
  }

  fs::path Unfinished() const {
    return folder_ / (L".destino.csv." + std::to_wstring(process_.dwProcessId) + L".parcial");
  }
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder_)) names.push_back(entry.path().filename().string());
    return names;
  }
  std::string Output() const { return BytesOf((folder_ / "saida.txt").wstring()); }

  void EndProgram() {
    if (process_.hProcess == nullptr) return;
    TerminateProcess(process_.hProcess, 1);
    CloseHandle(process_.hThread);
    CloseHandle(process_.hProcess);
    process_ = {};
  }

  fs::path folder_ = fs::temp_directory_path() / (L"kodra-console-" + std::to_wstring(GetCurrentProcessId()));
  PROCESS_INFORMATION process_ = {};
};

TEST_F(ConsoleProgram, EndsWithinASecondOfCtrlCAndLeavesNoFile) {
  Start(SlowSqlite());
  Sleep(500);  // The database has the statement by now.
  const auto asked = steady_clock::now();
  EXPECT_EQ(130U, CodeAfterCtrlC());
  EXPECT_LT(steady_clock::now() - asked, seconds(1));
  EXPECT_EQ(Names(), std::vector<std::string>{"saida.txt"});
  EXPECT_EQ(Output(), "");
}

TEST_F(ConsoleProgram, TakesItsStatementOffTheServerWhenCtrlCEndsIt) {
  EXPECT_TRUE(Becomes([] { return !ServerIsBusy(); }));
  Start(SlowMariaDb());
  EXPECT_TRUE(Becomes(ServerIsBusy));
  EXPECT_EQ(130U, CodeAfterCtrlC());
  EXPECT_EQ(Names(), std::vector<std::string>{"saida.txt"});
  // The server notices within five seconds that the connection has ended.
  const auto ended = steady_clock::now();
  EXPECT_TRUE(Becomes([] { return !ServerIsBusy(); }));
  EXPECT_LT(steady_clock::now() - ended, seconds(10));
}

TEST_F(ConsoleProgram, EndsAtItsTimeLimitAndLeavesNoFile) {
  for (const std::wstring& connection : {SlowMariaDb(), SlowSqlite()}) {
    Start(connection, L" --tempo-limite 1");
    EXPECT_EQ(1U, ExitCode());
    EXPECT_EQ(Output(), "kodrarpt: o relatório foi interrompido: passou do limite de 1 segundo\n");
    EXPECT_EQ(Names(), std::vector<std::string>{"saida.txt"});
    EndProgram();
  }
}

// As the library does that completes a spreadsheet.
TEST_F(ConsoleProgram, RemovesItsFileWhenWhoeverHasItOpenClosesIt) {
  Start(SlowSqlite(), L" --tempo-limite 1");
  HANDLE opened = CreateFileW(Unfinished().c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                              OPEN_EXISTING, 0, nullptr);
  EXPECT_NE(INVALID_HANDLE_VALUE, opened) << GetLastError();
  EXPECT_TRUE(Becomes([&] { return !Output().empty(); }));
  EXPECT_EQ(static_cast<DWORD>(WAIT_TIMEOUT), WaitForSingleObject(process_.hProcess, 500));
  CloseHandle(opened);
  EXPECT_EQ(1U, ExitCode());
  EXPECT_EQ(Names(), std::vector<std::string>{"saida.txt"});
}

}  // namespace
}  // namespace kodra::face
