// The list of containers and that of the modules on their labels.
#include "reports/reports.h"

#include <gtest/gtest.h>

#include "tests/reports/report_scenario.h"

namespace kodra::reports {
namespace {

recorder::Answers Containers(const wchar_t* first, const wchar_t* second = L"", const wchar_t* third = L"") {
  return {{L"Container1", {first}}, {L"Container2", {second}}, {L"Container3", {third}}};
}

// The list.

Subject List() { return SubjectOf("CContainerRpt::RelatorioContainers", &CContainerRpt::RelatorioContainers); }

TEST(CContainerRptTest, ListsContainersAlikeOnEveryDatabase) {
  CheckListing(List(), "SELECT NUM_CONTAINER, DESC_CONTAINER FROM CONTAINER ORDER BY NUM_CONTAINER, DESC_CONTAINER");
}

TEST(CContainerRptTest, RaisesEveryErrorOfTheListInItsFrame) { CheckFrame(List()); }

TEST(CContainerRptTest, ListsAgainAfterTheFailureOfAnyCall) { CheckFailures(List()); }

// The modules on a label.

Subject Modules(recorder::Answers parameters) {
  return SubjectOf("CContainerRpt::EtiquetaAberturaSubRpt", &CContainerRpt::EtiquetaAberturaSubRpt,
                   std::move(parameters));
}

TEST(CContainerRptTest, ListsTheModulesOfThreeContainersOnEveryDatabase) {
  CheckListing(Modules(Containers(L"C1", L"C2", L"o'x")),
               "SELECT cx.CONTAINER, cx.NUM_CAIXA FROM CAIXA cx WHERE cx.CONTAINER = 'C1' OR "
               "cx.CONTAINER = 'C2' OR cx.CONTAINER = 'o'x' ORDER BY cx.CONTAINER, cx.NUM_CAIXA",
               {R"(Parametros.Get(Container1) -> "C1")", R"(Parametros.Get(Container2) -> "C2")",
                R"(Parametros.Get(Container3) -> "o'x")"});
}

TEST(CContainerRptTest, ListsTheModulesOfOneContainer) {
  CheckListing(DatabaseOf(tbSQLServer), Modules(Containers(L"C1")),
               "SELECT cx.CONTAINER, cx.NUM_CAIXA FROM CAIXA cx WHERE cx.CONTAINER = 'C1' OR "
               "cx.CONTAINER = '' OR cx.CONTAINER = '' ORDER BY cx.CONTAINER, cx.NUM_CAIXA",
               {R"(Parametros.Get(Container1) -> "C1")", R"(Parametros.Get(Container2) -> "")",
                R"(Parametros.Get(Container3) -> "")"});
}

TEST(CContainerRptTest, RaisesEveryErrorOfTheModulesInItsFrame) { CheckFrame(Modules(Containers(L"C1"))); }

TEST(CContainerRptTest, ListsModulesAgainAfterTheFailureOfAnyCall) { CheckFailures(Modules(Containers(L"C1"))); }

}  // namespace
}  // namespace kodra::reports
