// What every catalog report is tested for: its calls from first to last on every database, the frame of its errors, and
// the failure of each of its calls in turn.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "reports/reports.h"
#include "tests/recorder/fake_surroundings.h"
#include "tests/recorder/raised.h"

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

// The name is "<Class>::<method>", in ASCII.
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

// A database as a client connects to it.
struct Database {
  std::int32_t code;
  std::string connectionString;
  // The string that the connection is opened with.
  std::string prepared;
  // The calls before the connection is made and after it is open.
  std::vector<std::string> before = {};
  std::vector<std::string> after = {};
};

// One for each code from 1 to 7, in order.
const std::vector<Database>& Databases();
const Database& DatabaseOf(std::int32_t code);

// A report object in surroundings of its own.
class Stage {
 public:
  Stage(const Subject& subject, const Database& database);

  frame::ReportRows Call() { return call_(parameters_.get()); }
  // Calls once in a new journal, drops the rows and gives all calls.
  std::string Run();

  recorder::FakeSurroundings around;

 private:
  ObjectRef parameters_;
  Report call_;
};

// The calls up to the release of the connection component, and those that open a connection.
std::vector<std::string> InitialisationLines(const Database& database);
std::vector<std::string> OpeningLines(const Database& database);
// All calls of a report that reads those parameters and opens that statement by AbreFirehoseRs.
std::string ListingCalls(const Database& database, std::string_view statement,
                         const std::vector<std::string>& parameterReads = {});

// Expects these calls, and the same statement, on every database.
void CheckListing(const Subject& subject, std::string_view statement);
// Expects the frame for each missing input, a missing SQLite file, and an error of the provider.
void CheckFrame(const Subject& subject);
// Makes each call fail in turn, in several ways: expects the frame around that failure (or none, where a failure is
// ignored), nothing left alive, and a report object that works at the next call.
void CheckFailures(const Subject& subject);

}  // namespace kodra::reports
