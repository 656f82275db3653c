// Memory that runs out inside KodraRpt.dll, at one request after the other: the client gets an error, nothing leaks,
// and the report works at the next call.
#include <algorithm>
#include <iostream>

#include "tests/wine/faults_cases.h"
#include "tests/wine/faults_heap.h"
#include "tests/wine/server.h"

namespace kodra::face {
namespace {

// Every error that a report may return when memory runs out somewhere in it.
std::vector<Failure> AnswersOf(const ReportCase& tested) {
  const std::wstring text = L"Memória insuficiente";
  const std::vector<std::wstring> causes = {text, L"[KodraRpt]: " + text, L"[modADO.AbreCn]: [KodraRpt]: " + text,
                                            // raised while another error was on its way
                                            L"[KodraRpt]: " + text + L" [N:1]"};
  std::vector<std::wstring> prefixes = {L"Erro ao gerar dados para o relatório: "};
  if (tested.report == std::wstring(L"COperadorRpt"))
    prefixes = {L"Erro : ", L"Erro ao obter dados do SGBD: ", L"Erro ao criar conjunto de dados de saída: ",
                L"Erro ao preencher conjunto de dados de saída: "};
  std::vector<Failure> answers = {
      tested.Refused(),                 // a failure that the report ignores
      {0x800A0007, L"KodraRpt", text},  // before the report, or where there is no memory for its frame
      {0x8007000E, L"", L""},           // nor for any text
      {0x80020006, L"", L""},           // not even the method could be looked up
  };
  for (const auto& cause : causes) {
    answers.push_back({0x800A0007, L"modADO.AbreFirehoseRs", cause});
    for (const auto& prefix : prefixes)
      for (const auto& source : {tested.Source(), std::wstring(L"modADO.AbreFirehoseRs")})
        answers.push_back({0x80041FAB, source, prefix + cause});
  }
  return answers;
}

class MemoryFaults : public testing::TestWithParam<ReportCase> {
 protected:
  static void SetUpTestSuite() {
    archive_ = new SmallArchive;
    refused_ = 0;
  }
  static void TearDownTestSuite() {
    delete archive_;
    std::cout << "[   NOTE   ] " << refused_ << " requests for memory refused" << std::endl;
  }

  // An error that another call left on the thread, not the report's.
  static void LeaveAnOldError() {
    Ref<ICreateErrorInfo> info;
    ASSERT_EQ(S_OK, CreateErrorInfo(info.put()));
    info->SetSource(Bstr(L"Velho"));
    info->SetDescription(Bstr(L"Erro velho"));
    SetErrorInfo(0, info.As<IErrorInfo>().get());
  }

  void ExpectRefused(std::size_t number, DllHeap::Later later) {
    {
      const Subject subject(GetParam(), archive_->Connection());
      LeaveAnOldError();
      heap_.Arm(number, later);
      const Outcome outcome = subject.Run();
      heap_.Disarm();
      ++refused_;
      const auto answers = AnswersOf(GetParam());
      EXPECT_NE(answers.end(), std::find(answers.begin(), answers.end(), outcome.failure))
          << testing::PrintToString(outcome.failure);
      subject.ExpectToWork();
    }
    EXPECT_EQ(S_OK, server_.CanUnloadNow());
  }

  // Refuses requests spread over the whole run, at different places for each report.
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
      // Blocks that the runtime makes once and keeps do not come again; a leak comes again each time.
      held = heap_.held();
      ExpectRefused(number, later);
      EXPECT_EQ(held, heap_.held());
    }
  }

  static SmallArchive* archive_;
  static std::size_t refused_;
  Server server_;
  DllHeap heap_;
};
SmallArchive* MemoryFaults::archive_ = nullptr;
std::size_t MemoryFaults::refused_ = 0;

TEST_P(MemoryFaults, OfOneRequestAreAnErrorAndLeakNothing) { ExpectSomeRefused(DllHeap::Later::kServed); }
TEST_P(MemoryFaults, OfAllLaterRequestsTooAreAnErrorAndLeakNothing) {
  ExpectRefused(1, DllHeap::Later::kSmallServed);
  ExpectSomeRefused(DllHeap::Later::kRefused);
}

INSTANTIATE_TEST_SUITE_P(, MemoryFaults, testing::ValuesIn(ReportCases()), CaseName);

}  // namespace
}  // namespace kodra::face
