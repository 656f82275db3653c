// The types of media.
#include "reports/catalog/tipo_midia_rpt.h"

#include <gtest/gtest.h>

#include "tests/reports/catalog/catalog_checks.h"

namespace kodra::reports {
namespace {

constexpr auto kStatement = "SELECT DESCR_MIDIA, VALIDADE_MIDIA, CAPACIDADE_MIDIA FROM TIPO_MIDIA ORDER BY DESCR_MIDIA";

Subject Report() { return SubjectOf("CTipo_MidiaRpt::RelatorioTiposMidia", &CTipo_MidiaRpt::RelatorioTiposMidia); }

TEST(CTipoMidiaRptTest, ListsTheTypesOfMedia) { CheckListing(Report(), kStatement); }

TEST(CTipoMidiaRptTest, RaisesEveryErrorInItsFrame) { CheckFrame(Report()); }

TEST(CTipoMidiaRptTest, OutlivesTheFailureOfAnyCall) { CheckFailures(Report()); }

}  // namespace
}  // namespace kodra::reports
