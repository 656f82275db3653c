// The groups of operators.
#include "reports/catalog/grupo_operador_rpt.h"

#include <gtest/gtest.h>

#include "tests/reports/catalog/catalog_checks.h"

namespace kodra::reports {
namespace {

constexpr auto kStatement = "SELECT DESCR_GRPOP, OBS_GRPOP FROM GRUPOS_OPERADORES ORDER BY DESCR_GRPOP";

Subject Report() {
  return SubjectOf("CGrupoOperadorRpt::RelatorioGruposOperadores", &CGrupoOperadorRpt::RelatorioGruposOperadores);
}

TEST(CGrupoOperadorRptTest, ListsTheGroupsOfOperators) { CheckListing(Report(), kStatement); }

TEST(CGrupoOperadorRptTest, RaisesEveryErrorInItsFrame) { CheckFrame(Report()); }

TEST(CGrupoOperadorRptTest, OutlivesTheFailureOfAnyCall) { CheckFailures(Report()); }

}  // namespace
}  // namespace kodra::reports
