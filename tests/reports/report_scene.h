// A report call with everything around it: the database, what its siblings answer and the rows that it reads, the same
// at every call. Where a report asks only for a listing, listing_checks.h has all that its test needs.
//
//   Scene scene(SubjectOf("CLogRpt::RelatorioLog", &CLogRpt::RelatorioLog), DatabaseOf(2), RegisterEventLog);
//   EXPECT_EQ(scene.Run(), …);
//   CheckEachCallFailing(scene, Outcome);
#pragma once

#include <exception>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "tests/recorder/fake_surroundings.h"
#include "tests/recorder/raised.h"
#include "tests/reports/listing_checks.h"

namespace kodra::reports {

// Says what siblings and recordsets will answer in the next call.
using Preparation = std::function<void(recorder::FakeSurroundings&)>;

class Scene {
 public:
  Scene(const Subject& subject, const Database& database, Preparation prepare = {});

  // Prepares a call and starts a new journal.
  void Prepare();
  frame::ReportRows Call() { return stage_.Call(); }
  // Prepares, calls once, drops the rows and gives all calls; expects that nothing of the call is left.
  std::string Run();
  // The same for a call that fails: gives what it raised.
  recorder::Raised RunRaising();

  recorder::FakeSurroundings& Around() { return stage_.around; }
  const std::string& Name() const { return name_; }

 private:
  Stage stage_;
  std::string name_;
  Preparation prepare_;
};

// A way for a call to fail, with its source and description when it is caught.
struct Mishap {
  std::exception_ptr exception;
  std::string source;
  std::string text;
};

// A call that a mishap met.
struct FailedCall {
  std::string call;
  // The lines of the journal before it.
  std::string before;
};

// What reaches the client when that mishap meets that call.
using Outcome = std::function<recorder::Raised(const Scene&, const FailedCall&, const Mishap&)>;

// Makes each call of a scene fail in turn, by an error, by exhausted memory and by an exception of no known type.
// Expects that outcome, nothing left alive, and the undisturbed calls at the next call of the same object.
void CheckEachCallFailing(Scene& scene, const Outcome& outcome);

// The description of a mishap at the report method, with the layers of the functions that it passed on its way: those
// that open a connection, and those that open rows on it. The provider's native code is 942.
std::string Caught(const FailedCall& failed, const Mishap& mishap);

// A mishap in the frame that all reports but one share, and nothing for the calls whose failure is ignored.
recorder::Raised FramedOutcome(const Scene& scene, const FailedCall& failed, const Mishap& mishap);

// The calls whose failure a report goes on without.
bool IsIgnored(std::string_view call);

// What RaisedBy gives for a body that raised nothing.
recorder::Raised NothingRaised();

// The calls of AbreFirehoseRs that open a statement, without the ends of its objects: the connection and the recordset
// have those numbers.
std::vector<std::string> OpeningRows(const Database& database, std::string_view statement, int connection,
                                     int recordset);

// The lines as a journal gives them.
std::string Joined(const std::vector<std::string>& lines);
// Puts lines behind others.
void Append(std::vector<std::string>& lines, const std::vector<std::string>& more);

}  // namespace kodra::reports
