// The failure of each call that a method of CCaixaRpt makes, one after the other.
#include <gtest/gtest.h>

#include "tests/reports/modules/caixa_stage.h"

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
  // What the recordset finds, at its first opening and at a second one.
  std::deque<Rows> results = {};
  // Whether a connection string is given to a static recordset as it is.
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

// What a mishap in a call is by the time that it leaves the opening of the recordset. The provider's native code is
// 942.
Raised Caught(const Case& tested, Path path, std::string_view call, const Mishap& mishap) {
  const auto& [number, source, text] = mishap.caught;
  if (path == Path::kClientConnection || tested.isStatic) return mishap.caught;
  const std::wstring layered = L"[" + source + L"]: " + text;
  if (StartsWithAny(call, {"SetEnvironment(", "FileLength(", "NewConnection(", "Connection1."}))
    return {number, L"modADO.AbreFirehoseRs", L"[modADO.AbreCn]: " + layered};
  if (StartsWithAny(call, {"NewRecordset(", "Recordset1."}))
    return {number, L"modADO.AbreFirehoseRs", layered + L" [N:942]"};
  return mishap.caught;
}

// A stage on which a case is played again and again, with a parameter object whose calls may fail too.
class Rehearsal {
 public:
  Rehearsal(const Case& tested, const Database& database, Path path)
      : stage(database, path), tested_(tested), parameters_(stage.Foreign(tested.parameters)) {
    stage.report.SetLogFile(kLogFile);
    atRest_ = stage.around.journal.LiveObjects();
  }

  // A call that nothing disturbs.
  std::string Run() {
    stage.around.ado.results = tested_.results;
    return stage.Run(tested_.method, parameters_);
  }

  // A call that fails where it is told to: what it raised, whatever the type; number 0 when it did not fail.
  Raised RunFailing(int call, const Mishap& mishap) {
    stage.around.journal.Forget();
    stage.around.journal.FailAt(call, mishap.exception);
    stage.around.ado.nativeErrors = {942};
    stage.around.ado.results = tested_.results;
    stage.heard.clear();
    try {
      EXPECT_NE(RunModule(stage.report, tested_.method, parameters_.get()), nullptr);
    } catch (...) {
      return Raised(CurrentErro());
    }
    return {};
  }

  // How many objects are alive beside those that the client holds.
  int LeftAlive() const { return stage.around.journal.LiveObjects() - atRest_; }

  CaixaStage stage;

 private:
  const Case& tested_;
  ObjectRef parameters_;
  int atRest_ = 0;
};

// The lines that the log took, from the journal.
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
void CheckFrameAndLog(const Rehearsal& rehearsal, const Case& tested, const Raised& caught, const Raised& raised) {
  const std::string method = "KodraRpt.CCaixaRpt::" + tested.name;
  const std::string source = caught.source == L"KodraRpt" ? method : Utf8(caught.source);
  const std::string description = Utf8(caught.description);
  EXPECT_EQ(raised, Reported(source, description));
  const std::string line =
      method + ": ----> saindo com o erro " + std::to_string(caught.number) + " em " + source + ": " + description;
  const std::string calls = rehearsal.stage.around.journal.Calls();
  EXPECT_TRUE(calls.ends_with(All({rehearsal.stage.LogLines(line)}))) << calls;
  EXPECT_EQ(rehearsal.stage.heard, Logged(calls));
  EXPECT_EQ(rehearsal.LeftAlive(), 1);  // the log object
}

void CheckEachCallOf(const Case& tested, const Database& database, Path path, const Mishap& mishap) {
  Rehearsal undisturbed(tested, database, path);
  undisturbed.Run();
  const int calls = undisturbed.stage.around.journal.CallCount();
  const std::string again = undisturbed.Run();
  for (int failing = 1; failing <= calls; ++failing) {
    Rehearsal rehearsal(tested, database, path);
    const std::wstring connectionString = rehearsal.stage.report.StringConexao();
    const auto connection = rehearsal.stage.report.Conexao().connection;
    const Raised raised = rehearsal.RunFailing(failing, mishap);
    const std::string call = Utf8(rehearsal.stage.around.journal.FailedCall());
    SCOPED_TRACE(tested.name + ": " + call);
    if (IsIgnored(call)) {
      EXPECT_EQ(raised, Raised());
      EXPECT_EQ(rehearsal.LeftAlive(), undisturbed.LeftAlive());
    } else {
      CheckFrameAndLog(rehearsal, tested, Caught(tested, path, call, mishap), raised);
    }
    EXPECT_EQ(rehearsal.stage.report.LogFile(), kLogFile);
    EXPECT_EQ(rehearsal.stage.report.Conexao().connection, connection);
    if (path == Path::kConnectionString) {
      EXPECT_EQ(rehearsal.stage.report.StringConexao(), connectionString);
    }
    EXPECT_EQ(rehearsal.Run(), again);
  }
}

TEST(CCaixaRptFailuresTest, EveryCallThatFailsIsReportedLoggedAndLeavesTheReportWorking) {
  for (const Case& tested : kCases)
    for (const Path path : kPaths)
      for (const std::int32_t code : kCodesWithDialect)
        for (const Mishap& mishap : Mishaps()) CheckEachCallOf(tested, DatabaseOf(code), path, mishap);
}

TEST(CCaixaRptFailuresTest, EveryCallThatFailsForASubReportReachesTheClientUnchanged) {
  const Case tested = {"DocsNoModuloSubRpt", &CCaixaRpt::DocsNoModuloSubRpt, {{L"Modulo1", L"AB001"}}};
  for (const Path path : kPaths)
    for (const std::int32_t code : {tbOracle, tbSQLServer, tbSQLite})
      for (const Mishap& mishap : Mishaps()) {
        Rehearsal rehearsal(tested, DatabaseOf(code), path);
        const std::string undisturbed = rehearsal.Run();
        const int calls = rehearsal.stage.around.journal.CallCount();
        for (int failing = 1; failing <= calls; ++failing) {
          const Raised raised = rehearsal.RunFailing(failing, mishap);
          const std::string call = Utf8(rehearsal.stage.around.journal.FailedCall());
          SCOPED_TRACE(call);
          EXPECT_EQ(raised, IsIgnored(call) ? Raised() : Caught(tested, path, call, mishap));
          EXPECT_EQ(rehearsal.stage.heard, CallLines());
          EXPECT_EQ(rehearsal.LeftAlive(), 0);
          EXPECT_EQ(rehearsal.Run(), undisturbed);
        }
      }
}

}  // namespace
}  // namespace kodra::reports
