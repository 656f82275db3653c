// The subgroups, each with its group.
#include "reports/catalog/subgrupo_rpt.h"

#include <gtest/gtest.h>

#include "tests/reports/catalog/catalog_checks.h"

namespace kodra::reports {
namespace {

constexpr auto kStatement =
    "SELECT g.DESCR_CLASSE, sb.DESCR_GRUPO, sb.OBS_GRUPO, sb.IDC_ATIVO FROM GRUPO sb "
    "INNER JOIN CLASSE g ON g.COD_CLASSE = sb.COD_CLASSE ORDER BY g.DESCR_CLASSE, sb.DESCR_GRUPO";

Subject Report() { return SubjectOf("CSubgrupoRpt::RelatorioSubgrupos", &CSubgrupoRpt::RelatorioSubgrupos); }

TEST(CSubgrupoRptTest, ListsTheSubgroupsByTheirGroup) { CheckListing(Report(), kStatement); }

TEST(CSubgrupoRptTest, RaisesEveryErrorInItsFrame) { CheckFrame(Report()); }

TEST(CSubgrupoRptTest, OutlivesTheFailureOfAnyCall) { CheckFailures(Report()); }

}  // namespace
}  // namespace kodra::reports
