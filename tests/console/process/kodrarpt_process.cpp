#include "tests/console/process/kodrarpt_process.h"

#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <thread>

#include "tests/db/sample.h"
#include "values/utf8.h"

namespace kodra::tests {

namespace fs = std::filesystem;
using std::chrono::steady_clock;
using values::ToUtf8;

Supports::Supports(int rows) {
  file_.Run(L"CREATE TABLE SUPORTE (COD_SUPORTE VARCHAR(10), DESCR_SUPORTE VARCHAR(50))");
  file_.Run(L"CREATE INDEX IX_SUPORTE ON SUPORTE (DESCR_SUPORTE)");
  file_.Run(L"INSERT INTO SUPORTE WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
            std::to_wstring(rows) + L") SELECT i, printf('Microfilme de dezesseis milímetros %08d', i) FROM n");
}

std::string Supports::Connection() const { return ToUtf8(file_.ConnectionString()); }

const Supports& ManySupports() {
  static const Supports many(100000);
  return many;
}

std::string EndlessConnection() {
  return ToUtf8(DatabaseOf(Engine::kSqlite, L"interminavel",
                           {L"CREATE VIEW PARAMETRO AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) "
                            L"SELECT '1' AS CODIGO, printf('Acervo %d', i) AS EMPRESA FROM n"}));
}

std::string SlowSqlite() {
  return ToUtf8(DatabaseOf(Engine::kSqlite, L"lento",
                           {L"CREATE VIEW SUPORTE AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) "
                            L"SELECT i AS COD_SUPORTE, i AS DESCR_SUPORTE FROM n WHERE i < 0",
                            L"CREATE VIEW CLASSE AS SELECT 'Atas' AS DESCR_CLASSE, '' AS OBS_CLASSE"}));
}

KodrarptProcess::KodrarptProcess() {
  // A shell makes its background programs ignore Ctrl-C, and kodrarpt would inherit that from this program.
  previousHandler_ = signal(SIGINT, SIG_DFL);
}

KodrarptProcess::~KodrarptProcess() { signal(SIGINT, previousHandler_); }

pid_t KodrarptProcess::Start(const std::vector<std::string>& wrapper, const std::vector<std::string>& report,
                             const std::string& format) const {
  std::vector<std::string> command = wrapper;
  command.insert(command.end(), {KODRARPT, "executa"});
  command.insert(command.end(), report.begin(), report.end());
  command.insert(command.end(), {"--formato", format, "--saida", (folder_ / ("destino." + format)).string()});
  return StartCommand(command);
}

pid_t KodrarptProcess::StartEndlessCsv(const std::vector<std::string>& under) const {
  return Start(
      under,
      {"CEstatIndexRpt.RelatorioEstatisticasPorPalavrasChave", "--conexao", EndlessConnection(), "--NumeroPC1", "1",
       "--NumeroPC2", "1", "--NumeroPC3", "1", "--NumeroPC4", "1", "--NumeroPC5", "1", "--NumeroObs", "1"},
      "csv");
}

pid_t KodrarptProcess::StartCommand(const std::vector<std::string>& command) const {
  testbed::ChildProcess child;
  child.command = command;
  child.output = (folder_ / "saida.txt").string();
  return testbed::Spawn(child);
}

int KodrarptProcess::CodeOf(const std::vector<std::string>& command) const {
  return testbed::WaitFor(StartCommand(command));
}

std::string KodrarptProcess::Said() const { return Read(folder_ / "saida.txt"); }

bool KodrarptProcess::MayMount() {
  testbed::ChildProcess probe;
  probe.command = {"unshare", "--map-root-user", "--mount", "true"};
  probe.output = "/dev/null";
  return testbed::WaitFor(testbed::Spawn(probe)) == 0;
}

int KodrarptProcess::ExitCodeOf(pid_t process) {
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

bool KodrarptProcess::HasBegun(pid_t process) const {
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

}  // namespace kodra::tests
