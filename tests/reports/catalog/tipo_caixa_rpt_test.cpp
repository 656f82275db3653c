// The types of module.
#include "reports/catalog/tipo_caixa_rpt.h"

#include <gtest/gtest.h>

#include "tests/reports/catalog/catalog_checks.h"

namespace kodra::reports {
namespace {

constexpr auto kStatement =
    "SELECT DESCR_TIPO_CX, NUM_MAX_DOCS, NUM_MAX_FOLHAS FROM TIPO_CAIXA WHERE COD_TIPO_CX<>'0' "
    "ORDER BY DESCR_TIPO_CX";

Subject Report() { return SubjectOf("CTipo_CaixaRpt::RelatorioTiposModulo", &CTipo_CaixaRpt::RelatorioTiposModulo); }

TEST(CTipoCaixaRptTest, ListsTheTypesOfModuleWithoutTheReservedRow) { CheckListing(Report(), kStatement); }

TEST(CTipoCaixaRptTest, RaisesEveryErrorInItsFrame) { CheckFrame(Report()); }

TEST(CTipoCaixaRptTest, OutlivesTheFailureOfAnyCall) { CheckFailures(Report()); }

}  // namespace
}  // namespace kodra::reports
