// Production by series.
#include "reports/reports.h"

#include <gtest/gtest.h>

#include "tests/reports/statistics/march.h"
#include "tests/reports/statistics/taxonomy_fakes.h"

namespace kodra::reports {
namespace {

using recorder::Framed;
using recorder::Utf8;

constexpr auto kName = "CEstatSerieRpt::RelatorioEstatisticas";

Subject Report(const std::wstring& kind, const std::wstring& group = L"G01") {
  return SubjectOf(
      kName, &CEstatSerieRpt::RelatorioEstatisticas,
      {{L"DataInicial", {k1March2024}}, {L"DataFinal", {k31March2024}}, {L"TipoRpt", {kind}}, {L"CodGrupo", {group}}});
}

// How each database joins the subgroup's name and reads a page count as a number.
struct Words {
  std::int32_t code;
  std::string subgroup;
  std::string pages;
};
const Words kWords[] = {
    {tbOracle, "'Subgrupo: ' || g.DESCR_GRUPO", "TO_NUMBER(d.FRENTE)"},
    {tbSQLServer, "'Subgrupo: ' + g.DESCR_GRUPO", "CAST(d.FRENTE AS INT)"},
    {tbMySQL, "CONCAT('Subgrupo: ',g.DESCR_GRUPO)", "CAST(d.FRENTE AS UNSIGNED)"},
    {tbOracleAlt, "'Subgrupo: ' || g.DESCR_GRUPO", "TO_NUMBER(d.FRENTE)"},
    {tbDB2, "'Subgrupo: ' || g.DESCR_GRUPO", "CAST(d.FRENTE AS INT)"},
    {tbSQLite, "'Subgrupo: ' || g.DESCR_GRUPO", "CAST(d.FRENTE AS INT)"},
};

const Preparation kNaming = Naming(L"Série", L"Subgrupo");

std::string Statement(const std::string& subtitle, const std::string& subgroup, const std::string& total,
                      const std::string& condition, const std::string& group = "G01") {
  return "SELECT 'ESTATÍSTICAS POR SÉRIE' AS Titulo, '" + subtitle +
         "' AS Subtitulo, 'Período: 01/03/2024 a 31/03/2024' AS Periodo, " + subgroup +
         " AS Subgrupo, a.DESCR_ASSUNTO AS Serie, " + total +
         " AS Total FROM ASSUNTO a INNER JOIN GRUPO g ON a.COD_GRUPO = g.COD_GRUPO "
         "INNER JOIN DOCUMENTO d ON a.COD_ASSUNTO = d.COD_ASSUNTO WHERE (d.DT_ARMAZ" +
         condition + ") AND d.COD_ASSUNTO IN (SELECT COD_ASSUNTO FROM ASSUNTO WHERE COD_GRUPO='" + group +
         "') GROUP BY g.DESCR_GRUPO, a.DESCR_ASSUNTO ORDER BY a.DESCR_ASSUNTO";
}

CallLines Names(const Database& database, const std::string& series = "Série",
                const std::string& subgroup = "Subgrupo") {
  CallLines lines = NameLines(database, 2, "Serie", series);
  Append(lines, NameLines(database, 3, "Subgrupo", subgroup));
  return lines;
}

// The calls between InicializaPS and the opening.
CallLines Reads(const Database& database, const std::wstring& kind, const std::string& group = "G01") {
  CallLines lines = Names(database);
  Append(lines, MarchReads({{"TipoRpt", Utf8(kind)}, {"CodGrupo", group}}));
  return lines;
}

// Expects that subtitle and that total for that kind of report on every database.
void CheckKind(const std::wstring& kind, const std::string& subtitle, const std::string& function) {
  for (const auto& [code, subgroup, pages] : kWords) {
    const Database& database = DatabaseOf(code);
    CheckListing(database, Report(kind),
                 Statement(subtitle, subgroup, function + "(" + pages + ")", TextOf(kInMarchAndTheDayAfter, code)),
                 Reads(database, kind), kNaming);
  }
}

TEST(CEstatSerieRptTest, CountsDocuments) { CheckKind(L"N", "(por número de documentos)", "COUNT"); }

TEST(CEstatSerieRptTest, SumsFrontPagesAsSheets) { CheckKind(L"F", "(por número de folhas)", "SUM"); }

TEST(CEstatSerieRptTest, SumsFrontPagesAsPagesToo) { CheckKind(L"P", "(por número de páginas)", "SUM"); }

TEST(CEstatSerieRptTest, SumsFrontPagesUnderTheTitleOfDocumentsForAnyOtherKind) {
  for (const wchar_t* kind : {L"", L"X", L"n", L"f", L"p", L"NN"}) CheckKind(kind, "(por número de documentos)", "SUM");
}

TEST(CEstatSerieRptTest, IsOneWholeStatementOnSQLServer) {
  CheckListing(DatabaseOf(tbSQLServer), Report(L"N"),
               "SELECT 'ESTATÍSTICAS POR SÉRIE' AS Titulo, '(por número de documentos)' AS Subtitulo, "
               "'Período: 01/03/2024 a 31/03/2024' AS Periodo, 'Subgrupo: ' + g.DESCR_GRUPO AS Subgrupo, "
               "a.DESCR_ASSUNTO AS Serie, COUNT(CAST(d.FRENTE AS INT)) AS Total FROM ASSUNTO a "
               "INNER JOIN GRUPO g ON a.COD_GRUPO = g.COD_GRUPO "
               "INNER JOIN DOCUMENTO d ON a.COD_ASSUNTO = d.COD_ASSUNTO "
               "WHERE (d.DT_ARMAZ BETWEEN '20240301' AND '20240401') AND d.COD_ASSUNTO IN "
               "(SELECT COD_ASSUNTO FROM ASSUNTO WHERE COD_GRUPO='G01') "
               "GROUP BY g.DESCR_GRUPO, a.DESCR_ASSUNTO ORDER BY a.DESCR_ASSUNTO",
               Reads(DatabaseOf(tbSQLServer), L"N"), kNaming);
}

TEST(CEstatSerieRptTest, SumsFrontPagesForANewParameterObject) {
  EXPECT_EQ(Scenario(Report(L""), DatabaseOf(tbSQLServer), kNaming)
                .RunWithOwn({{L"DataInicial", k1March2024}, {L"DataFinal", k31March2024}}),
            ListingCalls(DatabaseOf(tbSQLServer),
                         Statement("(por número de documentos)", "'Subgrupo: ' + g.DESCR_GRUPO",
                                   "SUM(CAST(d.FRENTE AS INT))", " BETWEEN '20240301' AND '20240401'", ""),
                         Names(DatabaseOf(tbSQLServer))));
}

TEST(CEstatSerieRptTest, ComparesWithAnEmptySubgroupToo) {
  for (const char* group : {"", " ", "O'X"})
    CheckListing(DatabaseOf(tbSQLServer), Report(L"F", recorder::Wide(group)),
                 Statement("(por número de folhas)", "'Subgrupo: ' + g.DESCR_GRUPO", "SUM(CAST(d.FRENTE AS INT))",
                           " BETWEEN '20240301' AND '20240401'", group),
                 Reads(DatabaseOf(tbSQLServer), L"F", group), kNaming);
}

TEST(CEstatSerieRptTest, HasTheInstallationsNames) {
  CallLines reads = Names(DatabaseOf(tbMySQL), "Ação", "Espécie d'obra");
  Append(reads, MarchReads({{"TipoRpt", "F"}, {"CodGrupo", "G01"}}));
  CheckListing(DatabaseOf(tbMySQL), Report(L"F"),
               "SELECT 'ESTATÍSTICAS POR AÇÃO' AS Titulo, '(por número de folhas)' AS Subtitulo, "
               "'Período: 01/03/2024 a 31/03/2024' AS Periodo, CONCAT('Espécie d'obra: ',g.DESCR_GRUPO) "
               "AS Subgrupo, a.DESCR_ASSUNTO AS Serie, SUM(CAST(d.FRENTE AS UNSIGNED)) AS Total FROM ASSUNTO a "
               "INNER JOIN GRUPO g ON a.COD_GRUPO = g.COD_GRUPO "
               "INNER JOIN DOCUMENTO d ON a.COD_ASSUNTO = d.COD_ASSUNTO "
               "WHERE (d.DT_ARMAZ BETWEEN STR_TO_DATE('01/03/2024','%d/%m/%Y') "
               "AND STR_TO_DATE('01/04/2024','%d/%m/%Y')) AND d.COD_ASSUNTO IN "
               "(SELECT COD_ASSUNTO FROM ASSUNTO WHERE COD_GRUPO='G01') "
               "GROUP BY g.DESCR_GRUPO, a.DESCR_ASSUNTO ORDER BY a.DESCR_ASSUNTO",
               reads, Naming(L"Ação", L"Espécie d'obra"));
}

TEST(CEstatSerieRptTest, TakesTheLastDayOfAYearIntoTheNext) {
  Subject report = Report(L"F");
  report.parameters[L"DataFinal"] = {Date{45657}};  // 31 December 2024
  const std::string calls = Scenario(report, DatabaseOf(tbSQLServer), kNaming).Run();
  EXPECT_NE(calls.find("'Período: 01/03/2024 a 31/12/2024' AS Periodo"), std::string::npos) << calls;
  EXPECT_NE(calls.find("WHERE (d.DT_ARMAZ BETWEEN '20240301' AND '20250101') AND "), std::string::npos) << calls;
}

TEST(CEstatSerieRptTest, RefusesAPeriodUpToTheEndOfTheCalendar) {
  Subject report = Report(L"F");
  report.parameters[L"DataFinal"] = {Date{2958465}};  // 31 December 9999
  EXPECT_EQ(Scenario(report, DatabaseOf(tbSQLServer), kNaming).RunRaising(), Framed(kName, "Estouro"));
}

TEST(CEstatSerieRptTest, RefusesADatabaseWithoutDialectBeforeItConnects) {
  CallLines reads = Names(DatabaseOf(tbOther4));
  Append(reads, MarchReads({{"TipoRpt", "F"}}));
  CheckDialectNeeded(Report(L"F"), reads, kNaming);
}

TEST(CEstatSerieRptTest, NeedsTheParameterComponent) {
  EXPECT_EQ(Scenario(Report(L"F"), DatabaseOf(tbSQLServer)).RunRaising(),
            Framed(kName, R"(Não foi possível criar objeto da classe "KodraParamSist.Obtedor".)"));
}

TEST(CEstatSerieRptTest, NamesThePropertyThatAnotherObjectDoesNotHave) { CheckPropertiesNeeded(Report(L""), kNaming); }

TEST(CEstatSerieRptTest, RaisesEveryErrorInItsFrame) { CheckInputsNeeded(Report(L"")); }

TEST(CEstatSerieRptTest, WorksAgainAfterTheFailureOfAnyCall) {
  CheckFailures(Report(L"N"), kCodesWithDialect, kNaming, NamedOutcome);
}

}  // namespace
}  // namespace kodra::reports
