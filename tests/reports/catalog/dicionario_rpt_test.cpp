// The controlled terms.
#include "reports/catalog/dicionario_rpt.h"

#include <gtest/gtest.h>

#include "tests/reports/catalog/catalog_checks.h"

namespace kodra::reports {
namespace {

constexpr auto kStatement =
    "SELECT g.DESCR_GRUPO, a.DESCR_ASSUNTO, d.COD_PALAVRA, "
    "a.DESCR_CHAVE1, a.DESCR_CHAVE2, a.DESCR_CHAVE3, a.DESCR_CHAVE4, a.DESCR_CHAVE5, d.DESCR_DICIONARIO "
    "FROM DICIONARIO d INNER JOIN ASSUNTO a ON d.COD_ASSUNTO = a.COD_ASSUNTO "
    "INNER JOIN GRUPO g ON a.COD_GRUPO = g.COD_GRUPO "
    "ORDER BY g.DESCR_GRUPO, a.DESCR_ASSUNTO, "
    "a.DESCR_CHAVE1, a.DESCR_CHAVE2, a.DESCR_CHAVE3, a.DESCR_CHAVE4, a.DESCR_CHAVE5, d.DESCR_DICIONARIO";

Subject Report() {
  return SubjectOf("CDicionarioRpt::RelatorioTermosControlados", &CDicionarioRpt::RelatorioTermosControlados);
}

TEST(CDicionarioRptTest, ListsTheControlledTermsOfEverySeries) { CheckListing(Report(), kStatement); }

TEST(CDicionarioRptTest, RaisesEveryErrorInItsFrame) { CheckFrame(Report()); }

TEST(CDicionarioRptTest, OutlivesTheFailureOfAnyCall) { CheckFailures(Report()); }

}  // namespace
}  // namespace kodra::reports
