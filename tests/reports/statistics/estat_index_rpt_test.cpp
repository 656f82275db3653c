// Indexing production.
#include "reports/reports.h"

#include <gtest/gtest.h>

#include "tests/reports/report_scenario.h"
#include "tests/reports/statistics/march.h"

namespace kodra::reports {
namespace {

using recorder::Failure;
using recorder::Framed;
using recorder::RaisedBy;
using recorder::Utf8;

constexpr auto kByDocument = "CEstatIndexRpt::RelatorioEstatisticasPorDocumento";
constexpr auto kByKeywords = "CEstatIndexRpt::RelatorioEstatisticasPorPalavrasChave";

Subject ByDocument(const std::wstring& operatorCode, const std::wstring& departmentCode) {
  return SubjectOf(kByDocument, &CEstatIndexRpt::RelatorioEstatisticasPorDocumento,
                   {{L"Owner", {L"X"}},
                    {L"DataInicial", {k1March2024}},
                    {L"DataFinal", {k31March2024}},
                    {L"CodOperador", {operatorCode}},
                    {L"CodDepto", {departmentCode}}});
}

// Expects that statement, then the period, then the filters, on every database.
void CheckByDocument(const std::wstring& operatorCode, const std::wstring& departmentCode, const std::string& start,
                     const std::string& filters) {
  for (const auto& [code, inMarch] : kInMarch)
    CheckListing(DatabaseOf(code), ByDocument(operatorCode, departmentCode),
                 start + " WHERE d.DATA_INDEXACAO" + inMarch + filters,
                 MarchReads({{"CodOperador", Utf8(operatorCode)}, {"CodDepto", Utf8(departmentCode)}, {"Owner", "X"}}));
}

TEST(CEstatIndexRptByDocumentTest, UsesOnlyDocumentsAndTheParameterRowForAll) {
  CheckByDocument(L"", L"",
                  "SELECT 'Período: 01/03/2024 a 31/03/2024' AS TIT1, 'Todos os Operadores' AS OPERADOR, "
                  "'Todos os Departamentos' AS DEPTO, d.DATA_INDEXACAO, d.COD_DOCTO, p.EMPRESA AS FUNDO, 'X' AS OWNER "
                  "FROM DOCUMENTO d INNER JOIN PARAMETRO p ON p.CODIGO = '1'",
                  "");
}

TEST(CEstatIndexRptByDocumentTest, CountsWhatAnOperatorIndexed) {
  CheckByDocument(L"7", L"",
                  "SELECT 'Período: 01/03/2024 a 31/03/2024' AS TIT1, o.DESCR_OPERADOR AS OPERADOR, "
                  "'Todos os Departamentos' AS DEPTO, d.DATA_INDEXACAO, d.COD_DOCTO, p.EMPRESA AS FUNDO, 'X' AS OWNER "
                  "FROM DOCUMENTO d INNER JOIN OPERADOR o ON d.COD_INDEXADOR = o.COD_OPERADOR "
                  "INNER JOIN PARAMETRO p ON p.CODIGO = '1'",
                  " AND d.COD_INDEXADOR = '7'");
}

TEST(CEstatIndexRptByDocumentTest, CountsTheDocumentsOfADepartment) {
  CheckByDocument(L"", L"D01",
                  "SELECT 'Período: 01/03/2024 a 31/03/2024' AS TIT1, 'Todos os Operadores' AS OPERADOR, "
                  "dp.DESCR_DEPTO AS DEPTO, d.DATA_INDEXACAO, d.COD_DOCTO, p.EMPRESA AS FUNDO, 'X' AS OWNER "
                  "FROM DOCUMENTO d INNER JOIN DEPTO dp ON d.COD_DEPTO = dp.COD_DEPTO "
                  "INNER JOIN PARAMETRO p ON p.CODIGO = '1'",
                  " AND d.COD_DEPTO = 'D01'");
}

TEST(CEstatIndexRptByDocumentTest, CountsWhatAnOperatorIndexedOfADepartment) {
  CheckByDocument(L"7", L"D01",
                  "SELECT 'Período: 01/03/2024 a 31/03/2024' AS TIT1, o.DESCR_OPERADOR AS OPERADOR, "
                  "dp.DESCR_DEPTO AS DEPTO, d.DATA_INDEXACAO, d.COD_DOCTO, p.EMPRESA AS FUNDO, 'X' AS OWNER "
                  "FROM DOCUMENTO d INNER JOIN OPERADOR o ON d.COD_INDEXADOR = o.COD_OPERADOR "
                  "INNER JOIN DEPTO dp ON d.COD_DEPTO = dp.COD_DEPTO INNER JOIN PARAMETRO p ON p.CODIGO = '1'",
                  " AND d.COD_INDEXADOR = '7' AND d.COD_DEPTO = 'D01'");
}

TEST(CEstatIndexRptByDocumentTest, RefusesADatabaseWithoutDialectBeforeItConnects) {
  CheckDialectNeeded(ByDocument(L"7", L""), MarchReads({{"CodOperador", "7"}, {"CodDepto", ""}, {"Owner", "X"}}));
}

TEST(CEstatIndexRptByDocumentTest, NamesThePropertyThatAnotherObjectDoesNotHave) {
  CheckPropertiesNeeded(ByDocument(L"", L""));
}

TEST(CEstatIndexRptByDocumentTest, RaisesEveryErrorInItsFrame) { CheckFrame(ByDocument(L"7", L"D01")); }

TEST(CEstatIndexRptByDocumentTest, WorksAgainAfterTheFailureOfAnyCall) {
  CheckFailures(ByDocument(L"7", L"D01"), kCodesWithDialect);
}

Subject ByKeywords(const Value& thirdCount = L"3") {
  return SubjectOf(kByKeywords, &CEstatIndexRpt::RelatorioEstatisticasPorPalavrasChave,
                   {{L"Owner", {L"X"}},
                    {L"DataInicial", {k1March2024}},
                    {L"DataFinal", {k31March2024}},
                    {L"DescrOperador", {L"Ana Lúcia"}},
                    {L"DescrDepto", {L"Jurídico"}},
                    {L"NumeroPC1", {L"10"}},
                    {L"NumeroPC2", {L"2"}},
                    {L"NumeroPC3", {thirdCount}},
                    {L"NumeroPC4", {L"4"}},
                    {L"NumeroPC5", {L"1+4"}},
                    {L"NumeroObs", {L"6"}}});
}

CallLines KeywordReads(const std::string& thirdCount = "3") {
  return MarchReads({{"DescrOperador", "Ana Lúcia"},
                     {"DescrDepto", "Jurídico"},
                     {"NumeroPC1", "10"},
                     {"NumeroPC2", "2"},
                     {"NumeroPC3", thirdCount},
                     {"NumeroPC4", "4"},
                     {"NumeroPC5", "1+4"},
                     {"NumeroObs", "6"},
                     {"Owner", "X"}});
}

constexpr auto kCounts =
    "SELECT 'Período: 01/03/2024 a 31/03/2024' AS TIT1, 'Ana Lúcia' AS OPERADOR, 'Jurídico' AS DEPTO, "
    "10 AS PC1, 2 AS PC2, 3 AS PC3, 4 AS PC4, 1+4 AS PC5, 6 AS OBS, p.EMPRESA AS FUNDO, 'X' AS OWNER "
    "FROM PARAMETRO p WHERE p.CODIGO = '1'";

TEST(CEstatIndexRptByKeywordsTest, PutsTheCountsBesideTheParameterRowAlikeOnEveryDatabase) {
  CheckListing(ByKeywords(), kCounts, KeywordReads());
}

TEST(CEstatIndexRptByKeywordsTest, LeavesAMissingCountToTheDatabase) {
  Scenario scenario(ByKeywords(L""), DatabaseOf(tbSQLServer));
  EXPECT_EQ(scenario.Run(),
            ListingCalls(DatabaseOf(tbSQLServer),
                         "SELECT 'Período: 01/03/2024 a 31/03/2024' AS TIT1, 'Ana Lúcia' AS OPERADOR, "
                         "'Jurídico' AS DEPTO, 10 AS PC1, 2 AS PC2,  AS PC3, 4 AS PC4, 1+4 AS PC5, 6 AS OBS, "
                         "p.EMPRESA AS FUNDO, 'X' AS OWNER FROM PARAMETRO p WHERE p.CODIGO = '1'",
                         KeywordReads("")));
  scenario.Prepare();
  scenario.around.ado.nativeErrors = {156};
  scenario.around.journal.FailOn(L"Recordset1.Open",
                                 Failure(Erro(-2147217900, L"SQLNCLI11", L"Sintaxe incorreta próximo a 'AS'")));
  EXPECT_EQ(RaisedBy([&] { scenario.Call(); }),
            Framed(kByKeywords, "[SQLNCLI11]: Sintaxe incorreta próximo a 'AS' [N:156]"));
}

TEST(CEstatIndexRptByKeywordsTest, InsertsDescriptionsAsTheyAre) {
  Subject report = ByKeywords();
  report.parameters[L"DescrOperador"] = {L"D'Ávila"};
  report.parameters[L"DescrDepto"] = {L""};
  report.parameters[L"Owner"] = {L""};
  const std::string calls = Scenario(report, DatabaseOf(tbSQLServer)).Run();
  EXPECT_NE(
      calls.find("Recordset1.Open(\"SELECT 'Período: 01/03/2024 a 31/03/2024' AS TIT1, 'D'Ávila' AS OPERADOR, "
                 "'' AS DEPTO, 10 AS PC1, 2 AS PC2, 3 AS PC3, 4 AS PC4, 1+4 AS PC5, 6 AS OBS, "
                 "p.EMPRESA AS FUNDO, '' AS OWNER FROM PARAMETRO p WHERE p.CODIGO = '1'\", Connection1, 0, 1, 1)"),
      std::string::npos)
      << calls;
}

TEST(CEstatIndexRptByKeywordsTest, ReadsItsOwnParameterObject) {
  Parameters values;
  for (const auto& [property, answers] : ByKeywords().parameters) values.emplace_back(property, answers.front());
  EXPECT_EQ(Scenario(ByKeywords(), DatabaseOf(tbSQLServer)).RunWithOwn(values),
            ListingCalls(DatabaseOf(tbSQLServer), kCounts));
}

TEST(CEstatIndexRptByKeywordsTest, NamesThePropertyThatAnotherObjectDoesNotHave) {
  CheckPropertiesNeeded(ByKeywords());
}

TEST(CEstatIndexRptByKeywordsTest, RaisesEveryErrorInItsFrame) { CheckFrame(ByKeywords()); }

TEST(CEstatIndexRptByKeywordsTest, WorksAgainAfterTheFailureOfAnyCall) { CheckFailures(ByKeywords()); }

}  // namespace
}  // namespace kodra::reports
