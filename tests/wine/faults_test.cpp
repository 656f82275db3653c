// Faults at each step of every report: a call to ADO or to a sibling that fails, a C++ exception in place of a call,
// and memory that runs out. After each fault the client has the documented error, no object is alive, and the report
// works at the next call.
#include <algorithm>
#include <array>
#include <iostream>
#include <new>
#include <set>
#include <stdexcept>

#include "tests/wine/class_factory_cache.h"
#include "tests/wine/faults_expected.h"
#include "tests/wine/faults_heap.h"
#include "tests/wine/own_classes.h"
#include "tests/wine/server.h"
#include "values/erro.h"

namespace kodra::face {
namespace {

// Runs each case on a small archive, which all tests of a suite share, and counts the faults.
class FaultTest : public testing::TestWithParam<ReportCase> {
 protected:
  static void SetUpTestSuite() {
    archive_ = new SmallArchive;
    faults_ = 0;
  }
  static void TearDownTestSuite() {
    delete archive_;
    std::cout << "[   NOTE   ] " << faults_ << " faults" << std::endl;
  }

  static SmallArchive* archive_;
  static std::size_t faults_;
};
SmallArchive* FaultTest::archive_ = nullptr;
std::size_t FaultTest::faults_ = 0;

// -- Calls that fail ------------------------------------------------------------------------------------------------

class Faults : public FaultTest {
 protected:
  CallSequence CallsWithoutFault() {
    const Subject subject(GetParam(), archive_->Connection());
    injector_.Arm(0, Fault::kRaised);
    subject.ExpectToWork();
    injector_.Disarm();
    return {GetParam(), injector_.calls()};
  }

  void ExpectFailing(const CallSequence& calls, std::size_t at, Fault fault, bool everyLater, const Failure& expected) {
    SCOPED_TRACE(std::to_string(at + 1) + ": " + calls[at]);
    {
      const Subject subject(GetParam(), archive_->Connection());
      injector_.Arm(at + 1, fault, everyLater);
      const Outcome outcome = subject.Run();
      injector_.Disarm();
      ++faults_;
      EXPECT_EQ(calls[at], injector_.calls().at(at));
      EXPECT_EQ(calls.IsIgnored(at), SUCCEEDED(outcome.hr) && outcome.value.object());
      EXPECT_EQ(expected, outcome.failure);
      subject.ExpectToWork();
    }
    EXPECT_TRUE(injector_.NothingAlive());
    EXPECT_EQ(S_OK, server_.CanUnloadNow());
  }

  void ExpectEachFailing(Fault fault, bool everyLater = false) {
    const CallSequence calls = CallsWithoutFault();
    ASSERT_LE(3U, calls.size());
    for (std::size_t at = 0; at < calls.size() && !HasFailure(); ++at)
      ExpectFailing(calls, at, fault, everyLater, calls.Expected(at, fault));
  }

  Server server_;
  Injector injector_;
};

TEST_P(Faults, WithTheirTextsReachTheClientInTheFrame) { ExpectEachFailing(Fault::kRaised); }
TEST_P(Faults, WithoutAnyTextReachTheClientInTheFrameWhateverElseFails) { ExpectEachFailing(Fault::kBare, true); }
TEST_P(Faults, OfMemoryReachTheClientInTheFrame) { ExpectEachFailing(Fault::kOutOfMemory); }

TEST_P(Faults, OfACallThatReturnsNoObjectAreAnObjectNotSet) {
  const std::set<std::string> returnObjects = {"Connection.get_Errors",   "Errors.get_Item",
                                               "Command.CreateParameter", "Command.get_Parameters",
                                               "Recordset.get_Fields",    "Fields.get_Item"};
  const CallSequence calls = CallsWithoutFault();
  for (std::size_t at = 0; at < calls.size() && !HasFailure(); ++at)
    if (returnObjects.contains(calls[at]))
      ExpectFailing(calls, at, Fault::kNoResult, false, calls.Expected(at, CallSequence::ObjectNotSet()));
}

INSTANTIATE_TEST_SUITE_P(, Faults, testing::ValuesIn(ReportCases()), CaseName);

// -- C++ exceptions in place of calls -------------------------------------------------------------------------------
//
// A report ignores the failure of these calls, whatever is thrown:
// - the two calls that detach the command of CModeloRpt from the rows that it opened: they are readable with it too;
// - where the database has refused a statement, the calls for its code: the error then has no code.

// An exception without any information.
struct UnknownException {};

struct Thrown {
  const char* name;
  std::exception_ptr exception;
  // The cause that the component makes of it.
  Cause cause;
};

const std::array<Thrown, 5>& Exceptions() {
  const Cause internal = {kInternalError, kTitle, L"Erro interno"};
  static const std::array<Thrown, 5> exceptions = {{
      {"std::runtime_error", std::make_exception_ptr(std::runtime_error("unexpected")), internal},
      {"int", std::make_exception_ptr(7), internal},
      {"a class without base", std::make_exception_ptr(UnknownException()), internal},
      {"Erro",
       std::make_exception_ptr(Erro(kNumberWithoutText, kFaultSource, kFaultText)),
       {kNumberWithoutText, kFaultSource, kFaultText}},
      {"std::bad_alloc", std::make_exception_ptr(std::bad_alloc()), {kOutOfMemory, kTitle, L"Memória insuficiente"}},
  }};
  return exceptions;
}

// Whether it is the component's own exception, which a call to COM raises.
bool IsErro(const Thrown& thrown) { return thrown.cause.number == kNumberWithoutText; }

class ThrownFaults : public FaultTest {
 protected:
  CallSequence CallsWithoutFault() {
    const Subject subject(GetParam(), archive_->Connection());
    EXPECT_TRUE(OwnClasses::AnyAlive());
    injector_.Arm(0, Fault::kBare);
    subject.ExpectToWork();
    injector_.Disarm();
    return {GetParam(), injector_.calls()};
  }

  static Failure Expected(const CallSequence& calls, std::size_t at, const Thrown& thrown) {
    return calls.Expected(at,
                          calls.ShowsAtFirstUse(at) && IsErro(thrown) ? CallSequence::ObjectNotSet() : thrown.cause);
  }

  // Throws in place of a call, checks the result of `run`, and expects `run` to work at the next call.
  template <class Run>
  void ExpectThrown(const CallSequence& calls, std::size_t at, const Thrown& thrown, HRESULT failing, Run run) {
    injector_.ArmThrow(at + 1, thrown.exception);
    const Outcome outcome = run();
    injector_.Disarm();
    ++faults_;
    const Failure expected = Expected(calls, at, thrown);
    EXPECT_EQ(calls[at], injector_.calls().at(at));
    EXPECT_EQ(expected == Failure() ? S_OK : failing, outcome.hr);
    EXPECT_EQ(calls.IsIgnored(at), static_cast<bool>(outcome.value.object()));
    EXPECT_EQ(expected, outcome.failure);
    EXPECT_EQ(GetParam().Refused(), run().failure);
  }
  void ExpectNothingAlive() const {
    EXPECT_TRUE(injector_.NothingAlive());
    EXPECT_FALSE(OwnClasses::AnyAlive());
  }

  OwnClasses classes_;
  Injector injector_;
  ClassFactoryCache factoryCache_{ProgramPath()};
};

// By member name, as a script calls. The five exceptions alternate, in another order for each report.
TEST_P(ThrownFaults, ReachTheClientInTheFrameAndLeaveNothingBehind) {
  const CallSequence calls = CallsWithoutFault();
  ASSERT_LE(3U, calls.size());
  for (std::size_t at = 0; at < calls.size() && !HasFailure(); ++at) {
    const Thrown& thrown = Exceptions()[(at + calls.size()) % Exceptions().size()];
    SCOPED_TRACE(std::to_string(at + 1) + ": " + thrown.name + " in place of " + calls[at]);
    {
      const Subject subject(GetParam(), archive_->Connection());
      ExpectThrown(calls, at, thrown, DISP_E_EXCEPTION, [&] { return subject.Run(); });
    }
    ExpectNothingAlive();
  }
}

INSTANTIATE_TEST_SUITE_P(, ThrownFaults, testing::ValuesIn(ReportCases()), CaseName);

// Through the table of the interface, where the error is the HRESULT and the thread's error information.
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
  const CallSequence calls = CallsWithoutFault();
  for (std::size_t at = 0; at < calls.size() && !HasFailure(); ++at)
    for (const Thrown& thrown : Exceptions()) {
      SCOPED_TRACE(std::to_string(at + 1) + ": " + thrown.name + " in place of " + calls[at]);
      {
        const Subject subject(GetParam(), archive_->Connection());
        ExpectThrown(calls, at, thrown, kReportError, [&] { return Run(subject); });
      }
      ExpectNothingAlive();
    }
}

INSTANTIATE_TEST_SUITE_P(, ThrownFaultsEarlyBound, testing::Values(ReportCase{L"CDeptoRpt", L"RelatorioDeptos", {}}),
                         CaseName);

// -- Memory that runs out -------------------------------------------------------------------------------------------

// Every result that a report may have when memory runs out somewhere in it.
std::vector<Failure> ResultsWithoutMemory(const ReportCase& tested) {
  const std::wstring text = L"Memória insuficiente";
  const std::vector<std::wstring> causes = {text, L"[KodraRpt]: " + text, L"[modADO.AbreCn]: [KodraRpt]: " + text,
                                            // raised while another error was on its way
                                            L"[KodraRpt]: " + text + L" [N:1]"};
  std::vector<std::wstring> prefixes = {L"Erro ao gerar dados para o relatório: "};
  if (tested.IsOf(L"COperadorRpt"))
    prefixes = {L"Erro : ", L"Erro ao obter dados do SGBD: ", L"Erro ao criar conjunto de dados de saída: ",
                L"Erro ao preencher conjunto de dados de saída: "};
  std::vector<Failure> results = {
      tested.Refused(),                   // the report ignores the failure
      {kOutOfMemory, L"KodraRpt", text},  // outside the report, or no memory for its frame
      {E_OUTOFMEMORY, L"", L""},          // no memory for any text
      {DISP_E_UNKNOWNNAME, L"", L""},     // no memory for the look-up of the method
  };
  for (const auto& cause : causes) {
    results.push_back({kOutOfMemory, L"modADO.AbreFirehoseRs", cause});
    for (const auto& prefix : prefixes)
      for (const auto& source : {tested.Source(), std::wstring(L"modADO.AbreFirehoseRs")})
        results.push_back({kReportError, source, prefix + cause});
  }
  return results;
}

class MemoryFaults : public FaultTest {
 protected:
  void ExpectRefused(std::size_t number, DllHeap::Later later) {
    {
      const Subject subject(GetParam(), archive_->Connection());
      // An error of an earlier call, which must not become the report's.
      LeaveErrorInfo(L"Velho", L"Erro velho");
      heap_.Arm(number, later);
      const Outcome outcome = subject.Run();
      heap_.Disarm();
      ++faults_;
      const auto results = ResultsWithoutMemory(GetParam());
      EXPECT_NE(results.end(), std::find(results.begin(), results.end(), outcome.failure))
          << testing::PrintToString(outcome.failure);
      subject.ExpectToWork();
    }
    EXPECT_EQ(S_OK, server_.CanUnloadNow());
  }

  // Refuses requests all over the run, in other places for each report.
  void ExpectSomeRefused(DllHeap::Later later) {
    constexpr std::size_t kPlaces = 30;
    std::size_t requests = 0;
    {
      const Subject subject(GetParam(), archive_->Connection());
      heap_.Arm(0);
      subject.ExpectToWork();
      heap_.Disarm();
      requests = heap_.requests();
    }
    std::size_t held = heap_.held();
    ASSERT_LT(0U, requests);
    for (std::size_t number = 1; number <= requests && !HasFailure(); number += requests / kPlaces + 1) {
      SCOPED_TRACE(std::to_string(number) + " of " + std::to_string(requests));
      ExpectRefused(number, later);
      if (heap_.held() == held) continue;
      // The runtime allocates some blocks once and keeps them; a leak allocates another block each time.
      held = heap_.held();
      ExpectRefused(number, later);
      EXPECT_EQ(held, heap_.held());
    }
  }

  Server server_;
  DllHeap heap_;
};

TEST_P(MemoryFaults, OfOneRequestAreAnErrorAndLeakNothing) { ExpectSomeRefused(DllHeap::Later::kServed); }
TEST_P(MemoryFaults, OfAllLaterRequestsTooAreAnErrorAndLeakNothing) {
  ExpectRefused(1, DllHeap::Later::kSmallServed);
  ExpectSomeRefused(DllHeap::Later::kRefused);
}

INSTANTIATE_TEST_SUITE_P(, MemoryFaults, testing::ValuesIn(ReportCases()), CaseName);

}  // namespace
}  // namespace kodra::face
