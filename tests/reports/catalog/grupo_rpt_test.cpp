// The groups.
#include "reports/catalog/grupo_rpt.h"

#include <gtest/gtest.h>

#include "tests/reports/catalog/catalog_checks.h"

namespace kodra::reports {
namespace {

constexpr auto kStatement = "SELECT DESCR_CLASSE, OBS_CLASSE FROM CLASSE ORDER BY DESCR_CLASSE";

Subject Report() { return SubjectOf("CGrupoRpt::RelatorioGrupos", &CGrupoRpt::RelatorioGrupos); }

TEST(CGrupoRptTest, ListsTheGroups) { CheckListing(Report(), kStatement); }

TEST(CGrupoRptTest, RaisesEveryErrorInItsFrame) { CheckFrame(Report()); }

TEST(CGrupoRptTest, OutlivesTheFailureOfAnyCall) { CheckFailures(Report()); }

}  // namespace
}  // namespace kodra::reports
