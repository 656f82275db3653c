// Production by subgroup.
#include "reports/reports.h"

#include <gtest/gtest.h>

#include "tests/reports/statistics/march.h"
#include "tests/reports/statistics/taxonomy_fakes.h"

namespace kodra::reports {
namespace {

using recorder::Framed;
using recorder::Utf8;

constexpr auto kName = "CEstatSubgrupoRpt::RelatorioEstatisticas";

Subject Report(const std::wstring& kind) {
  return SubjectOf(kName, &CEstatSubgrupoRpt::RelatorioEstatisticas,
                   {{L"DataInicial", {k1March2024}}, {L"DataFinal", {k31March2024}}, {L"TipoRpt", {kind}}});
}

std::string Statement(const std::string& title, const std::string& columns, const std::string& inMarch) {
  return "SELECT '" + title + "' AS TITULO, 'Período: 01/03/2024 a 31/03/2024' AS TIT1, " + columns +
         " FROM DOCUMENTO d INNER JOIN GRUPO g ON g.COD_GRUPO = d.COD_GRUPO WHERE d.DT_ARMAZ" + inMarch;
}

const Preparation kNaming = Naming(L"Série", L"Subgrupo");

// The calls between InicializaPS and the opening.
CallLines Reads(const Database& database, const std::string& name, const std::wstring& kind) {
  CallLines lines = NameLines(database, 2, "Subgrupo", name);
  Append(lines, MarchReads({{"TipoRpt", Utf8(kind)}}));
  return lines;
}

// Expects those columns for that kind of report on every database.
void CheckKind(const std::wstring& kind, const std::string& columns) {
  for (const auto& [code, inMarch] : kInMarchYearFirst) {
    const Database& database = DatabaseOf(code);
    CheckListing(database, Report(kind), Statement("ESTATÍSTICAS POR SUBGRUPO", columns, inMarch),
                 Reads(database, "Subgrupo", kind), kNaming);
  }
}

TEST(CEstatSubgrupoRptTest, ReturnsSheets) { CheckKind(L"F", "g.DESCR_GRUPO, d.FRENTE"); }

TEST(CEstatSubgrupoRptTest, ReturnsFrontAndBackPages) { CheckKind(L"P", "g.DESCR_GRUPO, d.FRENTE, d.VERSO"); }

TEST(CEstatSubgrupoRptTest, ReturnsDocumentsForAnyOtherKind) {
  for (const wchar_t* kind : {L"", L"N", L"f", L"p", L"PP", L" P"}) CheckKind(kind, "g.DESCR_GRUPO, d.COD_DOCTO");
}

TEST(CEstatSubgrupoRptTest, IsOneWholeStatementOnOracle) {
  CheckListing(DatabaseOf(tbOracleAlt), Report(L"P"),
               "SELECT 'ESTATÍSTICAS POR SUBGRUPO' AS TITULO, 'Período: 01/03/2024 a 31/03/2024' AS TIT1, "
               "g.DESCR_GRUPO, d.FRENTE, d.VERSO FROM DOCUMENTO d INNER JOIN GRUPO g ON g.COD_GRUPO = d.COD_GRUPO "
               "WHERE d.DT_ARMAZ BETWEEN TO_DATE('2024/03/01','YYYY/MM/DD') AND TO_DATE('2024/03/31','YYYY/MM/DD')",
               Reads(DatabaseOf(tbOracleAlt), "Subgrupo", L"P"), kNaming);
}

TEST(CEstatSubgrupoRptTest, IsTitledByTheInstallationsNameInUpperCase) {
  const std::pair<std::wstring, std::string> kNames[] = {{L"Subgrupo", "ESTATÍSTICAS POR SUBGRUPO"},
                                                         {L"Espécie de ação", "ESTATÍSTICAS POR ESPÉCIE DE AÇÃO"},
                                                         {L"", "ESTATÍSTICAS POR "}};
  for (const auto& [name, title] : kNames)
    CheckListing(DatabaseOf(tbSQLServer), Report(L""),
                 Statement(title, "g.DESCR_GRUPO, d.COD_DOCTO", " BETWEEN '20240301' AND '20240331'"),
                 Reads(DatabaseOf(tbSQLServer), Utf8(name), L""), Naming(L"Série", name));
}

TEST(CEstatSubgrupoRptTest, TakesOneLetterInUpperCaseFromItsOwnParameterObject) {
  EXPECT_EQ(Scenario(Report(L""), DatabaseOf(tbSQLServer), kNaming)
                .RunWithOwn({{L"DataInicial", k1March2024}, {L"DataFinal", k31March2024}, {L"TipoRpt", L"páginas"}}),
            ListingCalls(DatabaseOf(tbSQLServer),
                         Statement("ESTATÍSTICAS POR SUBGRUPO", "g.DESCR_GRUPO, d.FRENTE, d.VERSO",
                                   " BETWEEN '20240301' AND '20240331'"),
                         NameLines(DatabaseOf(tbSQLServer), 2, "Subgrupo", "Subgrupo")));
}

TEST(CEstatSubgrupoRptTest, RefusesADatabaseWithoutDialectBeforeItConnects) {
  CallLines reads = NameLines(DatabaseOf(tbOther4), 2, "Subgrupo", "Subgrupo");
  Append(reads, MarchReads({}));
  CheckDialectNeeded(Report(L"F"), reads, kNaming);
}

TEST(CEstatSubgrupoRptTest, NeedsTheParameterComponent) {
  EXPECT_EQ(Scenario(Report(L"F"), DatabaseOf(tbSQLServer)).RunRaising(),
            Framed(kName, R"(Não foi possível criar objeto da classe "KodraParamSist.Obtedor".)"));
}

TEST(CEstatSubgrupoRptTest, NamesThePropertyThatAnotherObjectDoesNotHave) {
  CheckPropertiesNeeded(Report(L""), kNaming);
}

TEST(CEstatSubgrupoRptTest, RaisesEveryErrorInItsFrame) { CheckInputsNeeded(Report(L"")); }

TEST(CEstatSubgrupoRptTest, WorksAgainAfterTheFailureOfAnyCall) {
  CheckFailures(Report(L"P"), kCodesWithDialect, kNaming, NamedOutcome);
}

}  // namespace
}  // namespace kodra::reports
