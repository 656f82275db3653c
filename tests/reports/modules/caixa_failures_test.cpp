// The failure of each call that a method of CCaixaRpt makes, one after the other.
#include <gtest/gtest.h>

#include "tests/reports/modules/caixa_scenario.h"

namespace kodra::reports {
namespace {

using recorder::Raised;
using recorder::Rows;
using recorder::Utf8;

constexpr auto kLogFile = L"/var/log/kodra.log";

struct Case {
  std::string name;
  CaixaMethod method;
  Parameters parameters;
  // The rows of the recordset, at its first opening and at a second one.
  std::deque<Rows> results = {};
  // Whether a static recordset is opened with the connection string itself.
  bool isStatic = false;
};

const Parameters kFilters = {{L"CodDepto", L"7"}, {L"SomenteExistentes", true}, {L"ModoPregresso", true}};
const Rows kOneRow = {{L"COD_DOCTO"}, {{L"D1"}}};
const Rows kNoRow = {{L"COD_DOCTO"}, {}};

const Case kCases[] = {
    {"EtiquetaAbertura", &CCaixaRpt::EtiquetaAbertura, {{L"Modulo1", L"AB001"}}},
    {"EtiquetaAbertura", &CCaixaRpt::EtiquetaAbertura, {{L"Tipo", L"S"}, {L"Modulo1", L"AB00107"}}},
    {"EtiquetaFechamento", &CCaixaRpt::EtiquetaFechamento, {{L"Modulo1", L"AB001"}}},
    {"EtiquetaFechamentoSubordinada", &CCaixaRpt::EtiquetaFechamentoSubordinada, {{L"Modulo1", L"AB001"}}},
    {"EtiquetaDivisoria", &CCaixaRpt::EtiquetaDivisoria, {{L"Modulo1", L"AB001"}}},
    {"ModulosExcluidos", &CCaixaRpt::ModulosExcluidos, kFilters},
    {"ModulosVencidos", &CCaixaRpt::ModulosVencidos, kFilters},
    {"DocsNoModulo", &CCaixaRpt::DocsNoModulo, {{L"Modulo1", L"AB001"}}, {}, true},
    {"DocsNoModulo", &CCaixaRpt::DocsNoModulo, {{L"Modulo1", L"AB00107"}}, {}, true},
    {"DocsNaoIndexadosNosModulos", &CCaixaRpt::DocsNaoIndexadosNosModulos, kFilters},
    {"RelatoriosModulos", &CCaixaRpt::RelatoriosModulos, kFilters},
    {"AutorizacaoDescarteModuloSubRpt",
     &CCaixaRpt::AutorizacaoDescarteModuloSubRpt,
     {{L"Modulo1", L"AB001"}},
     {kOneRow},
     true},
    {"AutorizacaoDescarteModuloSubRpt",
     &CCaixaRpt::AutorizacaoDescarteModuloSubRpt,
     {{L"Modulo1", L"AB001"}},
     {kNoRow, kOneRow},
     true},
};

// An injected failure of a call, as it leaves the opening of the recordset. The provider's native code is 942.
Raised Caught(const Case& tested, Path path, std::string_view call, const InjectedFailure& injected) {
  const auto& [number, source, text] = injected.caught;
  if (path == Path::kClientConnection || tested.isStatic) return injected.caught;
  const std::wstring layered = L"[" + source + L"]: " + text;
  if (StartsWithAny(call, {"SetEnvironment(", "FileLength(", "NewConnection(", "Connection1."}))
    return {number, L"modADO.AbreFirehoseRs", L"[modADO.AbreCn]: " + layered};
  if (StartsWithAny(call, {"NewRecordset(", "Recordset1."}))
    return {number, L"modADO.AbreFirehoseRs", layered + L" [N:942]"};
  return injected.caught;
}

// A case that is called repeatedly, with a parameter object whose calls may fail too.
class RepeatedCalls {
 public:
  RepeatedCalls(const Case& tested, const Database& database, Path path)
      : scenario(database, path), tested_(tested), parameters_(scenario.Foreign(tested.parameters)) {
    scenario.report.SetLogFile(kLogFile);
    atRest_ = scenario.around.journal.LiveObjects();
  }

  // A call without a failure.
  std::string Run() {
    scenario.around.ado.results = tested_.results;
    return scenario.Run(tested_.method, parameters_);
  }

  // Makes the call of that number fail, and returns what reached the client, whatever its type; Raised() when nothing
  // did.
  Raised RunFailing(int call, const InjectedFailure& injected) {
    scenario.around.journal.Forget();
    scenario.around.journal.FailAt(call, injected.exception);
    scenario.around.ado.nativeErrors = {942};
    scenario.around.ado.results = tested_.results;
    scenario.heard.clear();
    try {
      EXPECT_NE(RunModule(scenario.report, tested_.method, parameters_.get()), nullptr);
    } catch (...) {
      return Raised(CurrentErro());
    }
    return {};
  }

  // The number of living objects besides those that the client holds.
  int LeftAlive() const { return scenario.around.journal.LiveObjects() - atRest_; }

  CaixaScenario scenario;

 private:
  const Case& tested_;
  ObjectRef parameters_;
  int atRest_ = 0;
};

// The lines that were passed to the log, from the journal.
CallLines Logged(const std::string& calls) {
  const std::string before = "Log.Call(DebugLog, ByRef \"";
  const std::string after = "\") -> Empty\n";
  CallLines lines;
  for (std::size_t at = calls.find(before); at != std::string::npos; at = calls.find(before, at + 1)) {
    const std::size_t start = at + before.size();
    const std::size_t lineEnd = calls.find('\n', start) + 1;
    const std::string line = calls.substr(start, lineEnd - start);
    if (line.ends_with(after)) lines.push_back(line.substr(0, line.size() - after.size()));
  }
  return lines;
}

// Expects the frame around what was caught, with its line in the log and at the listener.
void CheckFrameAndLog(const RepeatedCalls& repeated, const Case& tested, const Raised& caught, const Raised& raised) {
  const std::string method = "KodraRpt.CCaixaRpt::" + tested.name;
  const std::string source = caught.source == L"KodraRpt" ? method : Utf8(caught.source);
  const std::string description = Utf8(caught.description);
  EXPECT_EQ(raised, Reported(source, description));
  const std::string line =
      method + ": ----> saindo com o erro " + std::to_string(caught.number) + " em " + source + ": " + description;
  const std::string calls = repeated.scenario.around.journal.Calls();
  EXPECT_TRUE(calls.ends_with(All({repeated.scenario.LogLines(line)}))) << calls;
  EXPECT_EQ(repeated.scenario.heard, Logged(calls));
  EXPECT_EQ(repeated.LeftAlive(), 1);  // the log object
}

void CheckEachCallOf(const Case& tested, const Database& database, Path path, const InjectedFailure& injected) {
  RepeatedCalls undisturbed(tested, database, path);
  undisturbed.Run();
  const int calls = undisturbed.scenario.around.journal.CallCount();
  const std::string again = undisturbed.Run();
  for (int failing = 1; failing <= calls; ++failing) {
    RepeatedCalls repeated(tested, database, path);
    const std::wstring connectionString = repeated.scenario.report.StringConexao();
    const auto connection = repeated.scenario.report.Conexao().connection;
    const Raised raised = repeated.RunFailing(failing, injected);
    const std::string call = Utf8(repeated.scenario.around.journal.FailedCall());
    SCOPED_TRACE(tested.name + ": " + call);
    if (IsIgnored(call)) {
      EXPECT_EQ(raised, Raised());
      EXPECT_EQ(repeated.LeftAlive(), undisturbed.LeftAlive());
    } else {
      CheckFrameAndLog(repeated, tested, Caught(tested, path, call, injected), raised);
    }
    EXPECT_EQ(repeated.scenario.report.LogFile(), kLogFile);
    EXPECT_EQ(repeated.scenario.report.Conexao().connection, connection);
    if (path == Path::kConnectionString) {
      EXPECT_EQ(repeated.scenario.report.StringConexao(), connectionString);
    }
    EXPECT_EQ(repeated.Run(), again);
  }
}

TEST(CCaixaRptFailuresTest, EveryCallThatFailsIsReportedLoggedAndLeavesTheReportWorking) {
  for (const Case& tested : kCases)
    for (const Path path : kPaths)
      for (const std::int32_t code : kCodesWithDialect)
        for (const InjectedFailure& injected : InjectedFailures())
          CheckEachCallOf(tested, DatabaseOf(code), path, injected);
}

TEST(CCaixaRptFailuresTest, EveryCallThatFailsForASubReportReachesTheClientUnchanged) {
  const Case tested = {"DocsNoModuloSubRpt", &CCaixaRpt::DocsNoModuloSubRpt, {{L"Modulo1", L"AB001"}}};
  for (const Path path : kPaths)
    for (const std::int32_t code : {tbOracle, tbSQLServer, tbSQLite})
      for (const InjectedFailure& injected : InjectedFailures()) {
        RepeatedCalls repeated(tested, DatabaseOf(code), path);
        const std::string undisturbed = repeated.Run();
        const int calls = repeated.scenario.around.journal.CallCount();
        for (int failing = 1; failing <= calls; ++failing) {
          const Raised raised = repeated.RunFailing(failing, injected);
          const std::string call = Utf8(repeated.scenario.around.journal.FailedCall());
          SCOPED_TRACE(call);
          EXPECT_EQ(raised, IsIgnored(call) ? Raised() : Caught(tested, path, call, injected));
          EXPECT_EQ(repeated.scenario.heard, CallLines());
          EXPECT_EQ(repeated.LeftAlive(), 0);
          EXPECT_EQ(repeated.Run(), undisturbed);
        }
      }
}

}  // namespace
}  // namespace kodra::reports
