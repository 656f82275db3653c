#include "tests/reports/report_scenario.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "frame/parameter_object.h"

namespace kodra::reports {
namespace {

using recorder::Failure;
using recorder::Framed;
using recorder::kInternalError;
using recorder::kOutOfMemory;
using recorder::Raised;
using recorder::RaisedBy;
using recorder::Utf8;
using recorder::Wide;

bool OpensConnection(std::string_view call) {
  return StartsWithAny(call, {"SetEnvironment(", "FileLength(", "NewConnection(", "Connection"});
}

// Whether a recordset call belongs to the opening of rows: their recordset is created as soon as the connection is
// open.
bool OpensRows(const FailedCall& failed) {
  const std::size_t lastLine = failed.before.rfind('\n', failed.before.size() - 2) + 1;
  if (failed.call == "NewRecordset()") return failed.before.substr(lastLine).starts_with("Connection");
  if (!failed.call.starts_with("Recordset")) return false;
  return failed.call.find(".SetC") != std::string::npos || failed.call.find(".Open(\"") != std::string::npos;
}

// Calls with that failure of the call of that number, and checks the outcome. Returns whether there was such a call.
bool CheckCallFailing(Scenario& scenario, int number, const InjectedFailure& injected, const Outcome& outcome) {
  recorder::Journal& journal = scenario.around.journal;
  scenario.Prepare();
  const int alive = journal.LiveObjects();
  journal.FailAt(number, injected.exception);
  scenario.around.ado.nativeErrors = {942};
  const Raised raised = RaisedBy([&] { EXPECT_EQ(scenario.Call() != nullptr, scenario.hasRows); });
  const std::string call = Utf8(journal.FailedCall());
  SCOPED_TRACE(call);
  if (call.empty()) return false;
  const std::string lines = journal.Calls();
  const FailedCall failed = {call, lines.substr(0, lines.find(call + " raises\n"))};
  EXPECT_EQ(raised, outcome(scenario, failed, injected));
  EXPECT_EQ(journal.LiveObjects(), alive);
  return true;
}

}  // namespace

Scenario::Scenario(Subject subject, const Database& database, Preparation prepare)
    : subject_(std::move(subject)),
      prepare_(std::move(prepare)),
      parameters_(around.NewObject(L"Parametros", subject_.parameters)),
      call_(subject_.make(around, Wide(database.connectionString))) {
  Install(database, around);
}

void Scenario::Prepare() {
  around.ado = {};
  if (prepare_) prepare_(around);
  around.journal.Forget();
}

std::string Scenario::Run() { return RunWith(parameters_.get()); }

std::string Scenario::RunWithOwn(const Parameters& values) {
  const std::string className = subject_.name.substr(0, subject_.name.find("::"));
  frame::ParameterObject own(frame::ParameterClassNamed(Wide(className + "Obj")));
  for (const auto& [property, value] : values) own.Let(property, value);
  return RunWith(&own);
}

std::string Scenario::RunWith(AutomationObject* parameters) {
  Prepare();
  const int alive = around.journal.LiveObjects();
  EXPECT_EQ(RaisedBy([&] { EXPECT_EQ(call_(parameters) != nullptr, hasRows); }), Raised());
  EXPECT_EQ(around.journal.LiveObjects(), alive);
  return around.journal.Calls();
}

Raised Scenario::RunRaising() {
  Prepare();
  const int alive = around.journal.LiveObjects();
  Raised raised = RaisedBy([&] { Call(); });
  EXPECT_EQ(around.journal.LiveObjects(), alive);
  return raised;
}

const std::vector<InjectedFailure>& InjectedFailures() {
  static const std::vector<InjectedFailure> failures = {
      {Failure(Erro(-2147220000, L"Prova.Fonte", L"Falha provocada")), {-2147220000, "Prova.Fonte", "Falha provocada"}},
      {Failure(std::bad_alloc()), kOutOfMemory},
      {Failure(std::runtime_error("unexpected")), kInternalError},
  };
  return failures;
}

std::string Caught(const Scenario& scenario, const FailedCall& failed, const InjectedFailure& injected) {
  const bool firehose = scenario.Tested().firehose;
  const std::string layered = "[" + Utf8(injected.caught.source) + "]: " + Utf8(injected.caught.description);
  if (OpensConnection(failed.call)) return firehose ? "[modADO.AbreCn]: " + layered : layered;
  return firehose && OpensRows(failed) ? layered + " [N:942]" : Utf8(injected.caught.description);
}

bool IsIgnored(std::string_view call) {
  return StartsWithAny(call, {
                                 // setting the language of an Oracle session: its reports work in any language
                                 "Connection1.State(",
                                 "Connection1.Execute(",
                                 "Connection2.State(",
                                 "Connection2.Execute(",
                                 // detaching a command whose rows are already at the client
                                 "Command1.HasActiveConnection(",
                                 "Command1.SetActiveConnection(Nothing)",
                             });
}

Raised FramedOutcome(const Scenario& scenario, const FailedCall& failed, const InjectedFailure& injected) {
  return IsIgnored(failed.call) ? Raised() : Framed(scenario.Tested().name, Caught(scenario, failed, injected));
}

void CheckEachCallFailing(Scenario& scenario, const Outcome& outcome) {
  const std::string undisturbed = scenario.Run();
  const int calls = scenario.around.journal.CallCount();
  ASSERT_GT(calls, 0);
  for (const InjectedFailure& injected : InjectedFailures()) {
    SCOPED_TRACE(Utf8(injected.caught.description));
    for (int number = 1; number <= calls; ++number) {
      ASSERT_TRUE(CheckCallFailing(scenario, number, injected, outcome)) << number;
      ASSERT_EQ(scenario.Run(), undisturbed);
    }
  }
}

void CheckFailures(const Subject& subject, std::span<const std::int32_t> codes, const Preparation& prepare,
                   const Outcome& outcome) {
  for (const std::int32_t code : codes) {
    SCOPED_TRACE(code);
    Scenario scenario(subject, DatabaseOf(code), prepare);
    CheckEachCallFailing(scenario, outcome);
  }
}

void CheckListing(const Database& database, const Subject& subject, std::string_view statement, const CallLines& before,
                  const Preparation& prepare) {
  EXPECT_EQ(Scenario(subject, database, prepare).Run(), ListingCalls(database, statement, before));
}

void CheckListing(const Subject& subject, std::string_view statement, const CallLines& before) {
  for (const Database& database : Databases()) CheckListing(database, subject, statement, before);
}

void CheckDialectNeeded(const Subject& subject, const CallLines& before, const Preparation& prepare) {
  Scenario scenario(subject, DatabaseOf(tbOther4), prepare);
  EXPECT_EQ(scenario.RunRaising(), Framed(subject.name, "Não há entrada para o banco tipo 4"));
  EXPECT_EQ(scenario.around.journal.Calls(), All({InitialisationLines(DatabaseOf(tbOther4)), before}));
}

void CheckPropertiesNeeded(const Subject& subject, const Preparation& prepare) {
  ASSERT_FALSE(subject.parameters.empty());
  for (const auto& [property, answers] : subject.parameters) {
    Subject without = subject;
    without.parameters.erase(property);
    EXPECT_EQ(Scenario(without, DatabaseOf(tbSQLServer), prepare).RunRaising(),
              Framed(subject.name, "O objeto de parâmetros não tem a propriedade " + Quoted(Utf8(property)) + "."));
  }
}

void CheckInputsNeeded(const Subject& subject, const Frame& frame) {
  struct Inputs {
    const wchar_t* connectionString;
    bool parameters;
    const char* cause;
  };
  const Inputs kInputs[] = {
      {L"", true, R"(É preciso definir a propriedade "StringConexao".)"},
      {L"", false, R"(É preciso definir a propriedade "StringConexao".)"},
      {L"Provider=Outro", false, "Objeto não definido."},
      {L"Provider=Outro", true, "O componente ActiveX não pode criar o objeto"},
  };
  for (const auto& [connectionString, hasParameters, cause] : kInputs) {
    recorder::FakeSurroundings around;
    const ObjectRef parameters = hasParameters ? around.NewObject(L"Parametros", subject.parameters) : ObjectRef{};
    const Report call = subject.make(around, connectionString);
    EXPECT_EQ(RaisedBy([&] { call(parameters.get()); }), frame(subject.name, cause));
  }
}

void CheckFrame(const Subject& subject) {
  CheckInputsNeeded(subject);

  Database missing = DatabaseOf(tbSQLite);
  missing.connectionString = "Driver=SQLite3;Database=nada.db";
  EXPECT_EQ(Scenario(subject, missing).RunRaising(),
            Framed(subject.name, std::string(subject.firehose ? "[modADO.AbreCn]: " : "") +
                                     R"([modADO::PreAbreCn]: Banco de dados "nada.db" não encontrado.)"));

  Scenario refused(subject, DatabaseOf(tbOracle));
  refused.Prepare();
  refused.around.ado.nativeErrors = {942};
  refused.around.journal.FailOn(L"Recordset1.Open",
                                Failure(Erro(-2147217865, L"OraOLEDB", L"A tabela ou view não existe")));
  EXPECT_EQ(RaisedBy([&] { refused.Call(); }),
            Framed(subject.name, subject.firehose ? "[OraOLEDB]: A tabela ou view não existe [N:942]"
                                                  : "A tabela ou view não existe"));
}

}  // namespace kodra::reports
