// The failure of each call that a report makes to ADO and to the siblings, one after the other: the client's error,
// that nothing stays alive, and that the report works at the next call.
#include <iostream>
#include <set>

#include "tests/wine/faults_expected.h"
#include "tests/wine/server.h"

namespace kodra::face {
namespace {

class Faults : public testing::TestWithParam<ReportCase> {
 protected:
  static void SetUpTestSuite() {
    archive_ = new SmallArchive;
    injected_ = 0;
  }
  static void TearDownTestSuite() {
    delete archive_;
    std::cout << "[   NOTE   ] " << injected_ << " faults injected" << std::endl;
  }

  Course Undisturbed() {
    const Subject subject(GetParam(), archive_->Connection());
    injector_.Arm(0, Mishap::kRaised);
    subject.ExpectToWork();
    injector_.Disarm();
    return {GetParam(), injector_.calls()};
  }

  void ExpectFailing(const Course& course, std::size_t at, Mishap mishap, bool everyLater, const Failure& expected) {
    SCOPED_TRACE(std::to_string(at + 1) + ": " + course[at]);
    {
      const Subject subject(GetParam(), archive_->Connection());
      injector_.Arm(at + 1, mishap, everyLater);
      const Outcome outcome = subject.Run();
      injector_.Disarm();
      ++injected_;
      EXPECT_EQ(course[at], injector_.calls().at(at));
      EXPECT_EQ(course.IsIgnored(at), SUCCEEDED(outcome.hr) && outcome.value.object());
      EXPECT_EQ(expected, outcome.failure);
      subject.ExpectToWork();
    }
    EXPECT_TRUE(injector_.NothingAlive());
    EXPECT_EQ(S_OK, server_.CanUnloadNow());
  }

  void ExpectEachFailing(Mishap mishap, bool everyLater = false) {
    const Course course = Undisturbed();
    ASSERT_LE(3U, course.size());
    for (std::size_t at = 0; at < course.size() && !HasFailure(); ++at)
      ExpectFailing(course, at, mishap, everyLater, course.Expected(at, mishap));
  }

  // Each call that must return an object.
  void ExpectEachGivingNothing() {
    const std::set<std::string> givers = {"Connection.get_Errors",  "Errors.get_Item",      "Command.CreateParameter",
                                          "Command.get_Parameters", "Recordset.get_Fields", "Fields.get_Item"};
    const Course course = Undisturbed();
    for (std::size_t at = 0; at < course.size() && !HasFailure(); ++at)
      if (givers.contains(course[at]))
        ExpectFailing(course, at, Mishap::kNothing, false, course.Expected(at, Course::ObjectNotSet()));
  }

  static SmallArchive* archive_;
  static std::size_t injected_;
  Server server_;
  Injector injector_;
};
SmallArchive* Faults::archive_ = nullptr;
std::size_t Faults::injected_ = 0;

TEST_P(Faults, WithTheirTextsReachTheClientInTheFrame) { ExpectEachFailing(Mishap::kRaised); }
TEST_P(Faults, WithoutAnyTextReachTheClientInTheFrameWhateverElseFails) { ExpectEachFailing(Mishap::kBare, true); }
TEST_P(Faults, OfMemoryReachTheClientInTheFrame) { ExpectEachFailing(Mishap::kOutOfMemory); }
TEST_P(Faults, OfACallThatReturnsNoObjectAreAnObjectNotSet) { ExpectEachGivingNothing(); }

INSTANTIATE_TEST_SUITE_P(, Faults, testing::ValuesIn(ReportCases()), CaseName);

}  // namespace
}  // namespace kodra::face
