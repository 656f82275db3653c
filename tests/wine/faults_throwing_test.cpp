// A C++ exception instead of each call that a report makes to ADO, to the siblings and to its surroundings, one after
// the other: the client's error, that nothing stays alive, and that the report works at the next call.
//
// A report ignores the failure of these calls, whatever is thrown:
// - the two calls that detach CModeloRpt's command from the rows opened with it: the rows are readable with it too;
// - where the database has refused a statement, the calls for its code: the error then has no code.
#include <array>
#include <iostream>
#include <new>
#include <stdexcept>

#include "tests/wine/class_factory_cache.h"
#include "tests/wine/faults_expected.h"
#include "tests/wine/own_classes.h"
#include "values/erro.h"

namespace kodra::face {
namespace {

// An exception without any information.
struct Stranger {};

struct Thrown {
  const char* name;
  std::exception_ptr exception;
  // The cause that the component takes it for.
  Cause cause;
};

const std::array<Thrown, 5>& Exceptions() {
  const Cause internal = {0x800A0033, kTitle, L"Erro interno"};
  static const std::array<Thrown, 5> exceptions = {{
      {"std::runtime_error", std::make_exception_ptr(std::runtime_error("unexpected")), internal},
      {"int", std::make_exception_ptr(7), internal},
      {"a class without base", std::make_exception_ptr(Stranger()), internal},
      {"Erro",
       std::make_exception_ptr(Erro(static_cast<std::int32_t>(kMishapNumber), kMishapSource, kMishapText)),
       {0x80047777, kMishapSource, kMishapText}},
      {"std::bad_alloc", std::make_exception_ptr(std::bad_alloc()), {0x800A0007, kTitle, L"Memória insuficiente"}},
  }};
  return exceptions;
}

// Whether it is the component's own exception for an error, as a call to COM raises it.
bool IsErro(const Thrown& thrown) { return thrown.cause.number == 0x80047777; }

class ThrownFaults : public testing::TestWithParam<ReportCase> {
 protected:
  static void SetUpTestSuite() {
    archive_ = new SmallArchive;
    thrown_ = 0;
  }
  static void TearDownTestSuite() {
    delete archive_;
    std::cout << "[   NOTE   ] " << thrown_ << " C++ exceptions thrown" << std::endl;
  }

  Course Undisturbed() {
    const Subject subject(GetParam(), archive_->Connection());
    EXPECT_TRUE(OwnClasses::AnyAlive());
    injector_.Arm(0, Mishap::kBare);
    subject.ExpectToWork();
    injector_.Disarm();
    return {GetParam(), injector_.calls()};
  }

  static Failure Expected(const Course& course, std::size_t at, const Thrown& thrown) {
    return course.Expected(at, course.IsMissedLater(at) && IsErro(thrown) ? Course::ObjectNotSet() : thrown.cause);
  }

  // Throws instead of a call and checks the result of `run` then, and that `run` works at the next call.
  template <class Run>
  void ExpectThrown(const Course& course, std::size_t at, const Thrown& thrown, HRESULT failing, Run run) {
    injector_.ArmThrow(at + 1, thrown.exception);
    const Outcome outcome = run();
    injector_.Disarm();
    ++thrown_;
    const Failure expected = Expected(course, at, thrown);
    EXPECT_EQ(course[at], injector_.calls().at(at));
    EXPECT_EQ(expected == Failure() ? S_OK : failing, outcome.hr);
    EXPECT_EQ(course.IsIgnored(at), static_cast<bool>(outcome.value.object()));
    EXPECT_EQ(expected, outcome.failure);
    EXPECT_EQ(GetParam().Refused(), run().failure);
  }
  void ExpectNothingAlive() const {
    EXPECT_TRUE(injector_.NothingAlive());
    EXPECT_FALSE(OwnClasses::AnyAlive());
  }

  static SmallArchive* archive_;
  static std::size_t thrown_;
  OwnClasses classes_;
  Injector injector_;
  ClassesAtHand classesAtHand_{ProgramPath()};
};
SmallArchive* ThrownFaults::archive_ = nullptr;
std::size_t ThrownFaults::thrown_ = 0;

// By name, as a script calls. The five kinds alternate, in another order for every report.
TEST_P(ThrownFaults, ReachTheClientInTheFrameAndLeaveNothingBehind) {
  const Course course = Undisturbed();
  ASSERT_LE(3U, course.size());
  for (std::size_t at = 0; at < course.size() && !HasFailure(); ++at) {
    const Thrown& thrown = Exceptions()[(at + course.size()) % Exceptions().size()];
    SCOPED_TRACE(std::to_string(at + 1) + ": " + thrown.name + " instead of " + course[at]);
    {
      const Subject subject(GetParam(), archive_->Connection());
      ExpectThrown(course, at, thrown, DISP_E_EXCEPTION, [&] { return subject.Run(); });
    }
    ExpectNothingAlive();
  }
}

INSTANTIATE_TEST_SUITE_P(, ThrownFaults, testing::ValuesIn(ReportCases()), CaseName);

// By the interface's table, where the error is the HRESULT and the thread's error information.
class ThrownFaultsEarlyBound : public ThrownFaults {
 protected:
  static Outcome Run(const Subject& subject) {
    const auto report = subject.report().As<ICDeptoRpt>();
    Outcome outcome;
    Ref<IDispatch> rows;
    outcome.hr = report->RelatorioDeptos(subject.parameters().get(), rows.put());
    outcome.value = Var(rows.get());
    if (FAILED(outcome.hr)) outcome.failure = TakeFailure(outcome.hr, report);
    return outcome;
  }
};

TEST_P(ThrownFaultsEarlyBound, OfEveryKindReachTheClientWithTheirErrorInformation) {
  const Course course = Undisturbed();
  for (std::size_t at = 0; at < course.size() && !HasFailure(); ++at)
    for (const Thrown& thrown : Exceptions()) {
      SCOPED_TRACE(std::to_string(at + 1) + ": " + thrown.name + " instead of " + course[at]);
      {
        const Subject subject(GetParam(), archive_->Connection());
        constexpr auto kFramed = static_cast<HRESULT>(0x80041FAB);
        ExpectThrown(course, at, thrown, kFramed, [&] { return Run(subject); });
      }
      ExpectNothingAlive();
    }
}

INSTANTIATE_TEST_SUITE_P(, ThrownFaultsEarlyBound, testing::Values(ReportCase{L"CDeptoRpt", L"RelatorioDeptos", {}}),
                         CaseName);

}  // namespace
}  // namespace kodra::face
