// Production by support.
#include "reports/reports.h"

#include <gtest/gtest.h>

#include "frame/parameter_object.h"
#include "tests/reports/report_scene.h"
#include "tests/reports/statistics/march.h"

namespace kodra::reports {
namespace {

using recorder::Framed;
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
    EXPECT_EQ(Stage(Report(kind), DatabaseOf(code)).Run(),
              ListingCalls(DatabaseOf(code), Statement(columns, inMarch), MarchReads({{"TipoRpt", Utf8(kind)}})));
}

TEST(CEstatSuporteRptTest, GivesSheetsWithABackCountOfZero) { CheckKind(L"F", ", d.FRENTE, 0 AS VERSO "); }

TEST(CEstatSuporteRptTest, GivesFrontAndBackPages) { CheckKind(L"P", ", d.FRENTE, d.VERSO "); }

TEST(CEstatSuporteRptTest, GivesDocumentsOnlyForAnyOtherKind) {
  for (const wchar_t* kind : {L"", L"N", L"f", L"p", L"FF", L" F"}) CheckKind(kind, "");
}

TEST(CEstatSuporteRptTest, IsOneWholeStatementOnMySQL) {
  EXPECT_EQ(Stage(Report(L"F"), DatabaseOf(3)).Run(),
            ListingCalls(DatabaseOf(3),
                         "SELECT 'Período: 01/03/2024 a 31/03/2024' AS TIT, d.COD_DOCTO, s.DESCR_SUPORTE, d.FRENTE, "
                         "0 AS VERSO  FROM DOCUMENTO d INNER JOIN SUPORTE s ON d.COD_SUPORTE = s.COD_SUPORTE "
                         "WHERE d.DT_ARMAZ BETWEEN STR_TO_DATE('01/03/2024','%d/%m/%Y') "
                         "AND STR_TO_DATE('31/03/2024','%d/%m/%Y')",
                         MarchReads({{"TipoRpt", "F"}})));
}

TEST(CEstatSuporteRptTest, TakesOneLetterInUpperCaseFromItsOwnParameterObject) {
  Stage stage(Report(L""), DatabaseOf(2));
  frame::ParameterObject parameters(frame::ParameterClassNamed(L"CEstatSuporteRptObj"));
  parameters.Let(L"DataInicial", k1March2024);
  parameters.Let(L"DataFinal", k31March2024);
  parameters.Let(L"TipoRpt", L"folhas");
  frame::ReportObject report(L"CEstatSuporteRpt", stage.around);
  report.SetStringConexao(L"Provider=SQLNCLI11;Data Source=arquivo;");
  EXPECT_NE(frame::Run(report, L"RelatorioEstatisticas", &CEstatSuporteRpt::RelatorioEstatisticas, &parameters),
            nullptr);
  EXPECT_EQ(stage.around.journal.Calls(),
            ListingCalls(DatabaseOf(2), Statement(", d.FRENTE, 0 AS VERSO ", " BETWEEN '20240301' AND '20240331'")));
}

TEST(CEstatSuporteRptTest, RefusesADatabaseWithoutDialectBeforeItConnects) {
  Scene scene(Report(L"F"), DatabaseOf(4));
  EXPECT_EQ(scene.RunRaising(), Framed(kName, "Não há entrada para o banco tipo 4"));
  std::vector<std::string> lines = InitialisationLines(DatabaseOf(4));
  Append(lines, MarchReads({}));
  EXPECT_EQ(scene.Around().journal.Calls(), Joined(lines));
}

TEST(CEstatSuporteRptTest, NamesThePropertyThatAnotherObjectDoesNotHave) {
  for (const wchar_t* property : {L"DataInicial", L"DataFinal", L"TipoRpt"}) {
    Subject report = Report(L"");
    report.parameters.erase(property);
    EXPECT_EQ(Scene(report, DatabaseOf(2)).RunRaising(),
              Framed(kName, "O objeto de parâmetros não tem a propriedade \"" + Utf8(property) + "\"."));
  }
}

TEST(CEstatSuporteRptTest, RaisesEveryErrorInItsFrame) { CheckFrame(Report(L"P")); }

TEST(CEstatSuporteRptTest, OutlivesTheFailureOfAnyCall) {
  for (const Condition& condition : kInMarch) {
    Scene scene(Report(L"P"), DatabaseOf(condition.code));
    CheckEachCallFailing(scene, FramedOutcome);
  }
}

}  // namespace
}  // namespace kodra::reports
