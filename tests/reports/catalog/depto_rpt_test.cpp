// The departments.
#include "reports/catalog/depto_rpt.h"

#include <gtest/gtest.h>

#include "tests/reports/catalog/catalog_checks.h"

namespace kodra::reports {
namespace {

constexpr auto kStatement =
    "SELECT DESCR_DEPTO, ENDERECO, CIDADE, ESTADO, CEP, END_EMAIL FROM DEPTO ORDER BY DESCR_DEPTO";

Subject Report() { return SubjectOf("CDeptoRpt::RelatorioDeptos", &CDeptoRpt::RelatorioDeptos); }

TEST(CDeptoRptTest, ListsTheDepartments) { CheckListing(Report(), kStatement); }

TEST(CDeptoRptTest, RaisesEveryErrorInItsFrame) { CheckFrame(Report()); }

TEST(CDeptoRptTest, OutlivesTheFailureOfAnyCall) { CheckFailures(Report()); }

}  // namespace
}  // namespace kodra::reports
