// The depositories.
#include "reports/catalog/deposito_rpt.h"

#include <gtest/gtest.h>

#include "tests/reports/catalog/catalog_checks.h"

namespace kodra::reports {
namespace {

constexpr auto kStatement =
    "SELECT NOME, ENDERECO, CIDADE, ESTADO, CEP, TELEFONE, FAX, CONTATO FROM DEPOSITO ORDER BY NOME";

Subject Report() { return SubjectOf("CDepositoRpt::RelatorioDepositos", &CDepositoRpt::RelatorioDepositos); }

TEST(CDepositoRptTest, ListsTheDepositories) { CheckListing(Report(), kStatement); }

TEST(CDepositoRptTest, RaisesEveryErrorInItsFrame) { CheckFrame(Report()); }

TEST(CDepositoRptTest, OutlivesTheFailureOfAnyCall) { CheckFailures(Report()); }

}  // namespace
}  // namespace kodra::reports
