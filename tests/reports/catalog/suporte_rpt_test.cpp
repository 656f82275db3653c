// The supports.
#include "reports/catalog/suporte_rpt.h"

#include <gtest/gtest.h>

#include "tests/reports/catalog/catalog_checks.h"

namespace kodra::reports {
namespace {

constexpr auto kStatement = "SELECT DESCR_SUPORTE FROM SUPORTE ORDER BY DESCR_SUPORTE";

Subject Report() { return SubjectOf("CSuporteRpt::RelatorioSuportes", &CSuporteRpt::RelatorioSuportes); }

TEST(CSuporteRptTest, ListsTheSupports) { CheckListing(Report(), kStatement); }

TEST(CSuporteRptTest, RaisesEveryErrorInItsFrame) { CheckFrame(Report()); }

TEST(CSuporteRptTest, OutlivesTheFailureOfAnyCall) { CheckFailures(Report()); }

}  // namespace
}  // namespace kodra::reports
