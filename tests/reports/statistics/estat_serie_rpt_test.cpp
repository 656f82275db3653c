// Production by series.
#include "reports/reports.h"

#include <gtest/gtest.h>

#include "frame/parameter_object.h"
#include "tests/reports/statistics/march.h"
#include "tests/reports/statistics/taxonomy_fakes.h"

namespace kodra::reports {
namespace {

using recorder::Framed;
using recorder::RaisedBy;
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
    {1, "'Subgrupo: ' || g.DESCR_GRUPO", "TO_NUMBER(d.FRENTE)"},
    {2, "'Subgrupo: ' + g.DESCR_GRUPO", "CAST(d.FRENTE AS INT)"},
    {3, "CONCAT('Subgrupo: ',g.DESCR_GRUPO)", "CAST(d.FRENTE AS UNSIGNED)"},
    {5, "'Subgrupo: ' || g.DESCR_GRUPO", "TO_NUMBER(d.FRENTE)"},
    {6, "'Subgrupo: ' || g.DESCR_GRUPO", "CAST(d.FRENTE AS INT)"},
    {7, "'Subgrupo: ' || g.DESCR_GRUPO", "CAST(d.FRENTE AS INT)"},
};

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

std::vector<std::string> Names(const Database& database, const std::string& series = "Série",
                               const std::string& subgroup = "Subgrupo") {
  std::vector<std::string> lines = NameLines(database, 2, "Serie", series);
  Append(lines, NameLines(database, 3, "Subgrupo", subgroup));
  return lines;
}

// The calls between InicializaPS and the opening.
std::vector<std::string> Reads(const Database& database, const std::wstring& kind, const std::string& group = "G01") {
  std::vector<std::string> lines = Names(database);
  Append(lines, MarchReads({{"TipoRpt", Utf8(kind)}, {"CodGrupo", group}}));
  return lines;
}

// Expects that subtitle and that total for that kind of report on every database.
void CheckKind(const std::wstring& kind, const std::string& subtitle, const std::string& function) {
  for (std::size_t index = 0; const auto& [code, subgroup, pages] : kWords) {
    const Database& database = DatabaseOf(code);
    const std::string& condition = kInMarchAndTheDayAfter.at(index++).text;
    std::string total = function;
    total.append("(").append(pages).append(")");
    EXPECT_EQ(Scene(Report(kind), database, Naming(L"Série", L"Subgrupo")).Run(),
              ListingCalls(database, Statement(subtitle, subgroup, total, condition), Reads(database, kind)));
  }
}

TEST(CEstatSerieRptTest, CountsDocuments) { CheckKind(L"N", "(por número de documentos)", "COUNT"); }

TEST(CEstatSerieRptTest, SumsFrontPagesAsSheets) { CheckKind(L"F", "(por número de folhas)", "SUM"); }

TEST(CEstatSerieRptTest, SumsFrontPagesAsPagesToo) { CheckKind(L"P", "(por número de páginas)", "SUM"); }

TEST(CEstatSerieRptTest, SumsFrontPagesUnderTheTitleOfDocumentsForAnyOtherKind) {
  for (const wchar_t* kind : {L"", L"X", L"n", L"f", L"p", L"NN"}) CheckKind(kind, "(por número de documentos)", "SUM");
}

TEST(CEstatSerieRptTest, IsOneWholeStatementOnSQLServer) {
  EXPECT_EQ(Scene(Report(L"N"), DatabaseOf(2), Naming(L"Série", L"Subgrupo")).Run(),
            ListingCalls(DatabaseOf(2),
                         "SELECT 'ESTATÍSTICAS POR SÉRIE' AS Titulo, '(por número de documentos)' AS Subtitulo, "
                         "'Período: 01/03/2024 a 31/03/2024' AS Periodo, 'Subgrupo: ' + g.DESCR_GRUPO AS Subgrupo, "
                         "a.DESCR_ASSUNTO AS Serie, COUNT(CAST(d.FRENTE AS INT)) AS Total FROM ASSUNTO a "
                         "INNER JOIN GRUPO g ON a.COD_GRUPO = g.COD_GRUPO "
                         "INNER JOIN DOCUMENTO d ON a.COD_ASSUNTO = d.COD_ASSUNTO "
                         "WHERE (d.DT_ARMAZ BETWEEN '20240301' AND '20240401') AND d.COD_ASSUNTO IN "
                         "(SELECT COD_ASSUNTO FROM ASSUNTO WHERE COD_GRUPO='G01') "
                         "GROUP BY g.DESCR_GRUPO, a.DESCR_ASSUNTO ORDER BY a.DESCR_ASSUNTO",
                         Reads(DatabaseOf(2), L"N")));
}

TEST(CEstatSerieRptTest, SumsFrontPagesForANewParameterObject) {
  Scene scene(Report(L""), DatabaseOf(2), Naming(L"Série", L"Subgrupo"));
  scene.Prepare();
  frame::ParameterObject parameters(frame::ParameterClassNamed(L"CEstatSerieRptObj"));
  parameters.Let(L"DataInicial", k1March2024);
  parameters.Let(L"DataFinal", k31March2024);
  frame::ReportObject report(L"CEstatSerieRpt", scene.Around());
  report.SetStringConexao(L"Provider=SQLNCLI11;Data Source=arquivo;");
  EXPECT_NE(frame::Run(report, L"RelatorioEstatisticas", &CEstatSerieRpt::RelatorioEstatisticas, &parameters), nullptr);
  EXPECT_EQ(scene.Around().journal.Calls(),
            ListingCalls(DatabaseOf(2),
                         Statement("(por número de documentos)", "'Subgrupo: ' + g.DESCR_GRUPO",
                                   "SUM(CAST(d.FRENTE AS INT))", " BETWEEN '20240301' AND '20240401'", ""),
                         Names(DatabaseOf(2))));
}

TEST(CEstatSerieRptTest, ComparesWithAnEmptySubgroupToo) {
  for (const char* group : {"", " ", "O'X"})
    EXPECT_EQ(Scene(Report(L"F", std::wstring(group, group + std::char_traits<char>::length(group))), DatabaseOf(2),
                    Naming(L"Série", L"Subgrupo"))
                  .Run(),
              ListingCalls(DatabaseOf(2),
                           Statement("(por número de folhas)", "'Subgrupo: ' + g.DESCR_GRUPO",
                                     "SUM(CAST(d.FRENTE AS INT))", " BETWEEN '20240301' AND '20240401'", group),
                           Reads(DatabaseOf(2), L"F", group)));
}

TEST(CEstatSerieRptTest, HasTheInstallationsNames) {
  std::vector<std::string> reads = Names(DatabaseOf(3), "Ação", "Espécie d'obra");
  Append(reads, MarchReads({{"TipoRpt", "F"}, {"CodGrupo", "G01"}}));
  EXPECT_EQ(
      Scene(Report(L"F"), DatabaseOf(3), Naming(L"Ação", L"Espécie d'obra")).Run(),
      ListingCalls(DatabaseOf(3),
                   "SELECT 'ESTATÍSTICAS POR AÇÃO' AS Titulo, '(por número de folhas)' AS Subtitulo, "
                   "'Período: 01/03/2024 a 31/03/2024' AS Periodo, CONCAT('Espécie d'obra: ',g.DESCR_GRUPO) "
                   "AS Subgrupo, a.DESCR_ASSUNTO AS Serie, SUM(CAST(d.FRENTE AS UNSIGNED)) AS Total FROM ASSUNTO a "
                   "INNER JOIN GRUPO g ON a.COD_GRUPO = g.COD_GRUPO "
                   "INNER JOIN DOCUMENTO d ON a.COD_ASSUNTO = d.COD_ASSUNTO "
                   "WHERE (d.DT_ARMAZ BETWEEN STR_TO_DATE('01/03/2024','%d/%m/%Y') "
                   "AND STR_TO_DATE('01/04/2024','%d/%m/%Y')) AND d.COD_ASSUNTO IN "
                   "(SELECT COD_ASSUNTO FROM ASSUNTO WHERE COD_GRUPO='G01') "
                   "GROUP BY g.DESCR_GRUPO, a.DESCR_ASSUNTO ORDER BY a.DESCR_ASSUNTO",
                   reads));
}

TEST(CEstatSerieRptTest, TakesTheLastDayOfAYearIntoTheNext) {
  Subject report = Report(L"F");
  report.parameters[L"DataFinal"] = {Date{45657}};  // 31 December 2024
  const std::string calls = Scene(report, DatabaseOf(2), Naming(L"Série", L"Subgrupo")).Run();
  EXPECT_NE(calls.find("'Período: 01/03/2024 a 31/12/2024' AS Periodo"), std::string::npos) << calls;
  EXPECT_NE(calls.find("WHERE (d.DT_ARMAZ BETWEEN '20240301' AND '20250101') AND "), std::string::npos) << calls;
}

TEST(CEstatSerieRptTest, RefusesAPeriodUpToTheEndOfTheCalendar) {
  Subject report = Report(L"F");
  report.parameters[L"DataFinal"] = {Date{2958465}};  // 31 December 9999
  EXPECT_EQ(Scene(report, DatabaseOf(2), Naming(L"Série", L"Subgrupo")).RunRaising(), Framed(kName, "Estouro"));
}

TEST(CEstatSerieRptTest, RefusesADatabaseWithoutDialectBeforeItConnects) {
  Scene scene(Report(L"F"), DatabaseOf(4), Naming(L"Série", L"Subgrupo"));
  EXPECT_EQ(scene.RunRaising(), Framed(kName, "Não há entrada para o banco tipo 4"));
  std::vector<std::string> lines = InitialisationLines(DatabaseOf(4));
  Append(lines, Names(DatabaseOf(4)));
  Append(lines, MarchReads({{"TipoRpt", "F"}}));
  EXPECT_EQ(scene.Around().journal.Calls(), Joined(lines));
}

TEST(CEstatSerieRptTest, NeedsTheParameterComponent) {
  EXPECT_EQ(Scene(Report(L"F"), DatabaseOf(2)).RunRaising(),
            Framed(kName, R"(Não foi possível criar objeto da classe "KodraParamSist.Obtedor".)"));
}

TEST(CEstatSerieRptTest, NamesThePropertyThatAnotherObjectDoesNotHave) {
  for (const wchar_t* property : {L"DataInicial", L"DataFinal", L"TipoRpt", L"CodGrupo"}) {
    Subject report = Report(L"");
    report.parameters.erase(property);
    EXPECT_EQ(Scene(report, DatabaseOf(2), Naming(L"Série", L"Subgrupo")).RunRaising(),
              Framed(kName, "O objeto de parâmetros não tem a propriedade \"" + Utf8(property) + "\"."));
  }
}

TEST(CEstatSerieRptTest, RaisesEveryErrorInItsFrame) {
  const auto raised = [](const std::wstring& connectionString, bool withParameters) {
    recorder::FakeSurroundings around;
    frame::ReportObject report(L"CEstatSerieRpt", around);
    report.SetStringConexao(connectionString);
    frame::ParameterObject parameters(frame::ParameterClassNamed(L"CEstatSerieRptObj"));
    return RaisedBy([&] {
      frame::Run(report, L"RelatorioEstatisticas", &CEstatSerieRpt::RelatorioEstatisticas,
                 withParameters ? &parameters : nullptr);
    });
  };
  EXPECT_EQ(raised(L"", true), Framed(kName, R"(É preciso definir a propriedade "StringConexao".)"));
  EXPECT_EQ(raised(L"", false), Framed(kName, R"(É preciso definir a propriedade "StringConexao".)"));
  EXPECT_EQ(raised(L"Provider=Outro", false), Framed(kName, "Objeto não definido."));
  EXPECT_EQ(raised(L"Provider=Outro", true), Framed(kName, "O componente ActiveX não pode criar o objeto"));
}

TEST(CEstatSerieRptTest, OutlivesTheFailureOfAnyCall) {
  for (const Words& words : kWords) {
    Scene scene(Report(L"N"), DatabaseOf(words.code), Naming(L"Série", L"Subgrupo"));
    CheckEachCallFailing(scene, NamedOutcome);
  }
}

}  // namespace
}  // namespace kodra::reports
