// Production by support.
#include "reports/reports.h"

#include <gtest/gtest.h>

#include "tests/reports/report_scenario.h"
#include "tests/reports/statistics/march.h"

namespace kodra::reports {
namespace {

using recorder::Utf8;

constexpr auto kName = "CEstatSuporteRpt::RelatorioEstatisticas";

Subject Report(const std::wstring& kind) {
  return SubjectOf(kName, &CEstatSuporteRpt::RelatorioEstatisticas,
                   {{L"DataInicial", {k1March2024}}, {L"DataFinal", {k31March2024}}, {L"TipoRpt", {kind}}});
}

std::string Statement(const std::string& columns, const std::string& inMarch) {
  return "SELECT 'Período: 01/03/2024 a 31/03/2024' AS TIT, d.COD_DOCTO, s.DESCR_SUPORTE" + columns +
         " FROM DOCUMENTO d INNER JOIN SUPORTE s ON d.COD_SUPORTE = s.COD_SUPORTE WHERE d.DT_ARMAZ" + inMarch;
}

// Expects those columns for that kind of report on every database.
void CheckKind(const std::wstring& kind, const std::string& columns) {
  for (const auto& [code, inMarch] : kInMarch)
    CheckListing(DatabaseOf(code), Report(kind), Statement(columns, inMarch), MarchReads({{"TipoRpt", Utf8(kind)}}));
}

TEST(CEstatSuporteRptTest, ReturnsSheetsWithABackCountOfZero) { CheckKind(L"F", ", d.FRENTE, 0 AS VERSO "); }

TEST(CEstatSuporteRptTest, ReturnsFrontAndBackPages) { CheckKind(L"P", ", d.FRENTE, d.VERSO "); }

TEST(CEstatSuporteRptTest, ReturnsDocumentsOnlyForAnyOtherKind) {
  for (const wchar_t* kind : {L"", L"N", L"f", L"p", L"FF", L" F"}) CheckKind(kind, "");
}

TEST(CEstatSuporteRptTest, IsOneWholeStatementOnMySQL) {
  CheckListing(DatabaseOf(tbMySQL), Report(L"F"),
               "SELECT 'Período: 01/03/2024 a 31/03/2024' AS TIT, d.COD_DOCTO, s.DESCR_SUPORTE, d.FRENTE, "
               "0 AS VERSO  FROM DOCUMENTO d INNER JOIN SUPORTE s ON d.COD_SUPORTE = s.COD_SUPORTE "
               "WHERE d.DT_ARMAZ BETWEEN STR_TO_DATE('01/03/2024','%d/%m/%Y') "
               "AND STR_TO_DATE('31/03/2024','%d/%m/%Y')",
               MarchReads({{"TipoRpt", "F"}}));
}

TEST(CEstatSuporteRptTest, TakesOneLetterInUpperCaseFromItsOwnParameterObject) {
  EXPECT_EQ(Scenario(Report(L""), DatabaseOf(tbSQLServer))
                .RunWithOwn({{L"DataInicial", k1March2024}, {L"DataFinal", k31March2024}, {L"TipoRpt", L"folhas"}}),
            ListingCalls(DatabaseOf(tbSQLServer),
                         Statement(", d.FRENTE, 0 AS VERSO ", " BETWEEN '20240301' AND '20240331'")));
}

TEST(CEstatSuporteRptTest, RefusesADatabaseWithoutDialectBeforeItConnects) {
  CheckDialectNeeded(Report(L"F"), MarchReads({}));
}

TEST(CEstatSuporteRptTest, NamesThePropertyThatAnotherObjectDoesNotHave) { CheckPropertiesNeeded(Report(L"")); }

TEST(CEstatSuporteRptTest, RaisesEveryErrorInItsFrame) { CheckFrame(Report(L"P")); }

TEST(CEstatSuporteRptTest, WorksAgainAfterTheFailureOfAnyCall) { CheckFailures(Report(L"P"), kCodesWithDialect); }

}  // namespace
}  // namespace kodra::reports
