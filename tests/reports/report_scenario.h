// A report call with its surroundings: the database, the answers of the siblings and the rows that it reads. They are
// the same in every call.
//
//   Scenario scenario(SubjectOf("CLogRpt::RelatorioLog", &CLogRpt::RelatorioLog), DatabaseOf(tbSQLServer));
//   EXPECT_EQ(scenario.Run(), …);
//   CheckEachCallFailing(scenario, FramedOutcome);
#pragma once

#include <exception>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "reports/reports.h"
#include "tests/recorder/fake_surroundings.h"
#include "tests/recorder/raised.h"
#include "tests/reports/databases.h"

namespace kodra::reports {

// A report object's method, ready to be called.
using Report = std::function<frame::ReportRows(AutomationObject*)>;

// A report method under test.
struct Subject {
  // "CDeptoRpt::RelatorioDeptos"
  std::string name;
  // What the client's parameter object ("Parametros" in the journal) answers.
  recorder::Answers parameters;
  // Makes a report object with a connection string.
  std::function<Report(platform::Surroundings&, const std::wstring&)> make;
  // Whether it opens its rows by AbreFirehoseRs, which adds a layer to what fails there.
  bool firehose = true;
};

// The name is "<Class>::<method>".
template <class Call>
Subject SubjectOf(std::string name, frame::ReportRows (*report)(Call&), recorder::Answers parameters = {}) {
  const auto make = [name, report](platform::Surroundings& around, const std::wstring& connectionString) -> Report {
    const std::size_t colons = name.find("::");
    // The object and its calls look into the names, which live as long as it.
    const auto className = std::make_shared<std::wstring>(name.begin(), name.begin() + colons);
    const auto method = std::make_shared<std::wstring>(name.begin() + colons + 2, name.end());
    const auto object = std::make_shared<typename Call::Object>(*className, around);
    object->SetStringConexao(connectionString);
    return [=, className = className](AutomationObject* obj) { return frame::Run(*object, *method, report, obj); };
  };
  return {std::move(name), std::move(parameters), make};
}

// Values of a parameter object by name.
using Parameters = std::vector<std::pair<std::wstring, Value>>;

// Prepares what siblings and recordsets answer in the next call.
using Preparation = std::function<void(recorder::FakeSurroundings&)>;

class Scenario {
 public:
  Scenario(Subject subject, const Database& database, Preparation prepare = {});

  // Prepares a call and starts a new journal.
  void Prepare();
  // Calls with the client's parameter object.
  frame::ReportRows Call() { return call_(parameters_.get()); }
  // Prepares, calls once, drops the rows and returns all calls; expects that nothing of the call is left.
  std::string Run();
  // The same with a parameter object of the component's own, which leaves no lines: a new one with those values.
  std::string RunWithOwn(const Parameters& values);
  // The same for a call that fails: returns what it raised.
  recorder::Raised RunRaising();

  const Subject& Tested() const { return subject_; }

  recorder::FakeSurroundings around;
  // Whether Run and RunWithOwn expect rows, or Nothing.
  bool hasRows = true;

 private:
  std::string RunWith(AutomationObject* parameters);

  Subject subject_;
  Preparation prepare_;
  ObjectRef parameters_;
  Report call_;
};

// An exception for a call, and the error that the component converts it to.
struct InjectedFailure {
  std::exception_ptr exception;
  recorder::Raised caught;
};
// An error, exhausted memory and an exception of no known type.
const std::vector<InjectedFailure>& InjectedFailures();

// A call that was made to fail.
struct FailedCall {
  std::string call;
  // The lines of the journal before it.
  std::string before;
};

// What reaches the client when that call fails with that failure.
using Outcome = std::function<recorder::Raised(const Scenario&, const FailedCall&, const InjectedFailure&)>;

// The description of an injected failure at the report method, with the layers of the functions that it passed on its
// way: those that open a connection, and those that open rows on it. The provider's native code is 942.
std::string Caught(const Scenario& scenario, const FailedCall& failed, const InjectedFailure& injected);
// Whether a report ignores the failure of a call.
bool IsIgnored(std::string_view call);
// An injected failure in the frame that all reports but one share; Raised() for the calls whose failure is ignored.
recorder::Raised FramedOutcome(const Scenario& scenario, const FailedCall& failed, const InjectedFailure& injected);

// Makes each call of a scenario fail in turn, with every failure. Expects that outcome, that nothing is left alive, and
// that the next call of the same object makes the usual calls.
void CheckEachCallFailing(Scenario& scenario, const Outcome& outcome);
// The same on databases of those codes.
void CheckFailures(const Subject& subject, std::span<const std::int32_t> codes = kEveryCode,
                   const Preparation& prepare = {}, const Outcome& outcome = FramedOutcome);

// Expects all calls of a report that makes those calls before it connects, and opens that statement by AbreFirehoseRs:
// on one database, and on every database.
void CheckListing(const Database& database, const Subject& subject, std::string_view statement,
                  const CallLines& before = {}, const Preparation& prepare = {});
void CheckListing(const Subject& subject, std::string_view statement, const CallLines& before = {});

// Expects the refusal of a database without dialect after those calls, before any that connects.
void CheckDialectNeeded(const Subject& subject, const CallLines& before, const Preparation& prepare = {});
// Expects an error that names the property for each property that the client's parameter object does not have.
void CheckPropertiesNeeded(const Subject& subject, const Preparation& prepare = {});
// Expects the frame around the cause for each missing input, and for a connection component that is not there.
using Frame = std::function<recorder::Raised(const std::string& name, const std::string& cause)>;
void CheckInputsNeeded(const Subject& subject, const Frame& frame = recorder::Framed);
// The same, and the frame for a missing SQLite file and an error of the provider.
void CheckFrame(const Subject& subject);

}  // namespace kodra::reports
