// The series.
#include "reports/catalog/serie_rpt.h"

#include <gtest/gtest.h>

#include "tests/reports/catalog/catalog_checks.h"

namespace kodra::reports {
namespace {

constexpr auto kStatement =
    "SELECT c.DESCR_CLASSE, g.DESCR_GRUPO, a.DESCR_ASSUNTO, a.OBS_ASSUNTO, a.DONO, a.IDC_ATIVO AS SERIE_ATIVA, "
    "a.DESCR_CHAVE1, a.DESCR_CHAVE2, a.DESCR_CHAVE3, a.DESCR_CHAVE4, a.DESCR_CHAVE5, 'S' AS OBRIGATORIA1, "
    "CASE WHEN a.DESCR_CHAVE2 IS NULL OR a.DESCR_CHAVE2='' THEN '' "
    "WHEN a.OBRIGATORIA2 IN ('1','S','T','Y') THEN 'S' ELSE 'N' END AS OBRIGATORIA2, "
    "CASE WHEN a.DESCR_CHAVE3 IS NULL OR a.DESCR_CHAVE3='' THEN '' "
    "WHEN a.OBRIGATORIA3 IN ('1','S','T','Y') THEN 'S' ELSE 'N' END AS OBRIGATORIA3, "
    "CASE WHEN a.DESCR_CHAVE4 IS NULL OR a.DESCR_CHAVE4='' THEN '' "
    "WHEN a.OBRIGATORIA4 IN ('1','S','T','Y') THEN 'S' ELSE 'N' END AS OBRIGATORIA4, "
    "CASE WHEN a.DESCR_CHAVE5 IS NULL OR a.DESCR_CHAVE5='' THEN '' "
    "WHEN a.OBRIGATORIA5 IN ('1','S','T','Y') THEN 'S' ELSE 'N' END AS OBRIGATORIA5, "
    "a.MASK1, a.MASK2, a.MASK3, a.MASK4, a.MASK5, o.DESCR_OPERADOR, "
    "p.NOMEGRUPO, p.NOMESUBGRUPO, p.NOMESERIE, p.NOMESERIEPLURAL  "
    "FROM ASSUNTO a INNER JOIN GRUPO g ON a.COD_GRUPO = g.COD_GRUPO "
    "LEFT JOIN OPERADOR o ON a.DONO = o.COD_OPERADOR "
    "INNER JOIN CLASSE c ON g.COD_CLASSE = c.COD_CLASSE INNER JOIN PARAMETRO p ON p.CODIGO = '1' "
    "ORDER BY c.DESCR_CLASSE, g.DESCR_GRUPO, a.DESCR_ASSUNTO";

Subject Report() { return SubjectOf("CSerieRpt::RelatorioSeries", &CSerieRpt::RelatorioSeries); }

TEST(CSerieRptTest, ListsTheSeriesWithTheirMandatoryKeysAndOwnersIfAny) { CheckListing(Report(), kStatement); }

TEST(CSerieRptTest, RaisesEveryErrorInItsFrame) { CheckFrame(Report()); }

TEST(CSerieRptTest, OutlivesTheFailureOfAnyCall) { CheckFailures(Report()); }

}  // namespace
}  // namespace kodra::reports
