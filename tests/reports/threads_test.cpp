// Reports that run on several threads at once, each thread with a database system of its own.
#include <gtest/gtest.h>

#include <barrier>
#include <iterator>
#include <thread>

#include "console/reports/report_methods.h"
#include "frame/parameter_object.h"
#include "tests/recorder/fake_surroundings.h"
#include "tests/recorder/raised.h"
#include "tests/reports/databases.h"

namespace kodra::reports {
namespace {

constexpr std::size_t kSystems = std::size(kCodesWithDialect);
constexpr int kRounds = 5;

// The calls of all reports on a database system, one report after the other, and what they raise.
std::string CallsOfAllReports(std::int32_t code) {
  recorder::FakeSurroundings around;
  Install(DatabaseOf(code), around);
  around.Register(L"KodraBsnV3.ModulosBsn", {{L"NumCxSubordinadaSQL", {L"s.COD7"}}});
  around.Register(L"KodraBsnV3.ModulosFiltro", {});
  const Value names = around.NewObject(
      L"Nomes", {{L"Grupo", {L"Fundo"}}, {L"Subgrupo", {L"Grupo"}}, {L"Serie", {L"Série"}}, {L"Serie_Plural", {L""}}});
  around.Register(L"KodraParamSist.Obtedor", {{L"Obtem", {around.NewObject(L"Conjunto", {{L"Nomes", {names}}})}}});
  std::string calls;
  for (const ReportMethod& method : ReportMethods()) {
    frame::ParameterObject parameters(frame::ParameterClassNamed(method.parameterClass));
    around.journal.Forget();
    const recorder::Raised raised = recorder::RaisedBy(
        [&] { method.call(around, recorder::Wide(DatabaseOf(code).connectionString), &parameters); });
    calls += around.journal.Calls() + recorder::Utf8(raised.description) + "\n";
  }
  return calls;
}

TEST(ReportThreads, AllReportsOnAllDatabaseSystemsAtOnceMakeTheCallsThatTheyMakeAlone) {
  std::vector<std::string> alone;
  for (const std::int32_t code : kCodesWithDialect) alone.push_back(CallsOfAllReports(code));
  EXPECT_NE(std::string::npos, alone[0].find("<= TRUNC(SYSDATE)"));
  EXPECT_NE(std::string::npos, alone[1].find("<= DATEADD(dd, 0, DATEDIFF(dd, 0, GETDATE()))"));

  std::vector<std::vector<std::string>> together(kSystems);
  std::barrier all(kSystems);
  std::vector<std::thread> threads;
  for (std::size_t i = 0; i < kSystems; ++i)
    threads.emplace_back([&, i] {
      for (int round = 0; round < kRounds; ++round) {
        all.arrive_and_wait();
        together[i].push_back(CallsOfAllReports(kCodesWithDialect[i]));
      }
    });
  for (std::thread& thread : threads) thread.join();
  for (std::size_t i = 0; i < kSystems; ++i)
    EXPECT_EQ(together[i], std::vector<std::string>(kRounds, alone[i])) << "code " << kCodesWithDialect[i];
}

}  // namespace
}  // namespace kodra::reports
