// Production by subgroup.
#include "reports/reports.h"

#include <gtest/gtest.h>

#include "frame/parameter_object.h"
#include "tests/reports/statistics/march.h"
#include "tests/reports/statistics/taxonomy_fakes.h"

namespace kodra::reports {
namespace {

using recorder::Framed;
using recorder::Raised;
using recorder::RaisedBy;
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

// The calls between InicializaPS and the opening.
std::vector<std::string> Reads(const Database& database, const std::string& name, const std::wstring& kind) {
  std::vector<std::string> lines = NameLines(database, 2, "Subgrupo", name);
  Append(lines, MarchReads({{"TipoRpt", Utf8(kind)}}));
  return lines;
}

// Expects those columns for that kind of report on every database.
void CheckKind(const std::wstring& kind, const std::string& columns) {
  for (const auto& [code, inMarch] : kInMarchYearFirst) {
    const Database& database = DatabaseOf(code);
    EXPECT_EQ(Scene(Report(kind), database, Naming(L"Série", L"Subgrupo")).Run(),
              ListingCalls(database, Statement("ESTATÍSTICAS POR SUBGRUPO", columns, inMarch),
                           Reads(database, "Subgrupo", kind)));
  }
}

TEST(CEstatSubgrupoRptTest, GivesSheets) { CheckKind(L"F", "g.DESCR_GRUPO, d.FRENTE"); }

TEST(CEstatSubgrupoRptTest, GivesFrontAndBackPages) { CheckKind(L"P", "g.DESCR_GRUPO, d.FRENTE, d.VERSO"); }

TEST(CEstatSubgrupoRptTest, GivesDocumentsForAnyOtherKind) {
  for (const wchar_t* kind : {L"", L"N", L"f", L"p", L"PP", L" P"}) CheckKind(kind, "g.DESCR_GRUPO, d.COD_DOCTO");
}

TEST(CEstatSubgrupoRptTest, IsOneWholeStatementOnOracle) {
  EXPECT_EQ(
      Scene(Report(L"P"), DatabaseOf(5), Naming(L"Série", L"Subgrupo")).Run(),
      ListingCalls(DatabaseOf(5),
                   "SELECT 'ESTATÍSTICAS POR SUBGRUPO' AS TITULO, 'Período: 01/03/2024 a 31/03/2024' AS TIT1, "
                   "g.DESCR_GRUPO, d.FRENTE, d.VERSO FROM DOCUMENTO d INNER JOIN GRUPO g ON g.COD_GRUPO = d.COD_GRUPO "
                   "WHERE d.DT_ARMAZ BETWEEN TO_DATE('2024/03/01','YYYY/MM/DD') AND TO_DATE('2024/03/31','YYYY/MM/DD')",
                   Reads(DatabaseOf(5), "Subgrupo", L"P")));
}

TEST(CEstatSubgrupoRptTest, IsTitledByTheInstallationsNameInUpperCase) {
  const std::pair<std::wstring, std::string> kNames[] = {{L"Subgrupo", "ESTATÍSTICAS POR SUBGRUPO"},
                                                         {L"Espécie de ação", "ESTATÍSTICAS POR ESPÉCIE DE AÇÃO"},
                                                         {L"", "ESTATÍSTICAS POR "}};
  for (const auto& [name, title] : kNames)
    EXPECT_EQ(Scene(Report(L""), DatabaseOf(2), Naming(L"Série", name)).Run(),
              ListingCalls(DatabaseOf(2),
                           Statement(title, "g.DESCR_GRUPO, d.COD_DOCTO", " BETWEEN '20240301' AND '20240331'"),
                           Reads(DatabaseOf(2), Utf8(name), L"")));
}

TEST(CEstatSubgrupoRptTest, TakesOneLetterInUpperCaseFromItsOwnParameterObject) {
  Scene scene(Report(L""), DatabaseOf(2), Naming(L"Série", L"Subgrupo"));
  scene.Prepare();
  frame::ParameterObject parameters(frame::ParameterClassNamed(L"CEstatSubgrupoRptObj"));
  parameters.Let(L"DataInicial", k1March2024);
  parameters.Let(L"DataFinal", k31March2024);
  parameters.Let(L"TipoRpt", L"páginas");
  frame::ReportObject report(L"CEstatSubgrupoRpt", scene.Around());
  report.SetStringConexao(L"Provider=SQLNCLI11;Data Source=arquivo;");
  EXPECT_NE(frame::Run(report, L"RelatorioEstatisticas", &CEstatSubgrupoRpt::RelatorioEstatisticas, &parameters),
            nullptr);
  EXPECT_EQ(scene.Around().journal.Calls(),
            ListingCalls(DatabaseOf(2),
                         Statement("ESTATÍSTICAS POR SUBGRUPO", "g.DESCR_GRUPO, d.FRENTE, d.VERSO",
                                   " BETWEEN '20240301' AND '20240331'"),
                         NameLines(DatabaseOf(2), 2, "Subgrupo", "Subgrupo")));
}

TEST(CEstatSubgrupoRptTest, RefusesADatabaseWithoutDialectBeforeItConnects) {
  Scene scene(Report(L"F"), DatabaseOf(4), Naming(L"Série", L"Subgrupo"));
  EXPECT_EQ(scene.RunRaising(), Framed(kName, "Não há entrada para o banco tipo 4"));
  std::vector<std::string> lines = InitialisationLines(DatabaseOf(4));
  Append(lines, NameLines(DatabaseOf(4), 2, "Subgrupo", "Subgrupo"));
  Append(lines, MarchReads({}));
  EXPECT_EQ(scene.Around().journal.Calls(), Joined(lines));
}

TEST(CEstatSubgrupoRptTest, NeedsTheParameterComponent) {
  EXPECT_EQ(Scene(Report(L"F"), DatabaseOf(2)).RunRaising(),
            Framed(kName, R"(Não foi possível criar objeto da classe "KodraParamSist.Obtedor".)"));
}

TEST(CEstatSubgrupoRptTest, NamesThePropertyThatAnotherObjectDoesNotHave) {
  for (const wchar_t* property : {L"DataInicial", L"DataFinal", L"TipoRpt"}) {
    Subject report = Report(L"");
    report.parameters.erase(property);
    EXPECT_EQ(Scene(report, DatabaseOf(2), Naming(L"Série", L"Subgrupo")).RunRaising(),
              Framed(kName, "O objeto de parâmetros não tem a propriedade \"" + Utf8(property) + "\"."));
  }
}

TEST(CEstatSubgrupoRptTest, RaisesEveryErrorInItsFrame) {
  const auto raised = [](const std::wstring& connectionString, bool withParameters) {
    recorder::FakeSurroundings around;
    frame::ReportObject report(L"CEstatSubgrupoRpt", around);
    report.SetStringConexao(connectionString);
    frame::ParameterObject parameters(frame::ParameterClassNamed(L"CEstatSubgrupoRptObj"));
    return RaisedBy([&] {
      frame::Run(report, L"RelatorioEstatisticas", &CEstatSubgrupoRpt::RelatorioEstatisticas,
                 withParameters ? &parameters : nullptr);
    });
  };
  EXPECT_EQ(raised(L"", true), Framed(kName, R"(É preciso definir a propriedade "StringConexao".)"));
  EXPECT_EQ(raised(L"", false), Framed(kName, R"(É preciso definir a propriedade "StringConexao".)"));
  EXPECT_EQ(raised(L"Provider=Outro", false), Framed(kName, "Objeto não definido."));
  EXPECT_EQ(raised(L"Provider=Outro", true), Framed(kName, "O componente ActiveX não pode criar o objeto"));
}

TEST(CEstatSubgrupoRptTest, OutlivesTheFailureOfAnyCall) {
  for (const Condition& condition : kInMarchYearFirst) {
    Scene scene(Report(L"P"), DatabaseOf(condition.code), Naming(L"Série", L"Subgrupo"));
    CheckEachCallFailing(scene, NamedOutcome);
  }
}

}  // namespace
}  // namespace kodra::reports
