// The media.
#include "reports/reports.h"

#include <gtest/gtest.h>

#include "frame/parameter_object.h"
#include "tests/reports/listing_checks.h"

namespace kodra::reports {
namespace {

using recorder::Framed;
using recorder::Lines;
using recorder::RaisedBy;
using recorder::Utf8;

constexpr auto kAll =
    "SELECT NUM_CD, DOC_INICIAL, DOC_FINAL, DATA_GRAVACAO, 'Todas as Mídias' AS RELATORIO  FROM CD ORDER BY NUM_CD";

// The media whose condition is that one.
std::string Expired(const std::string& condition) {
  return "SELECT NUM_CD, DOC_INICIAL, DOC_FINAL, DATA_GRAVACAO, 'Mídias Vencidas' AS RELATORIO  FROM CD "
         "INNER JOIN TIPO_MIDIA t ON CD.COD_MIDIA=t.COD_MIDIA WHERE " +
         condition + " ORDER BY NUM_CD";
}

Subject Report(std::deque<Value> tipoRpt) {
  return SubjectOf("CCDRpt::RelatorioMidias", &CCDRpt::RelatorioMidias, {{L"TipoRpt", std::move(tipoRpt)}});
}

std::vector<std::string> Reads(const std::string& first, const std::string& second) {
  return {"Parametros.Get(TipoRpt) -> \"" + first + "\"", "Parametros.Get(TipoRpt) -> \"" + second + "\""};
}

TEST(CCDRptTest, ListsExpiredMediaInTheWordsOfEachDatabase) {
  const std::pair<std::int32_t, const char*> kConditions[] = {
      {1, "ADD_MONTHS(DATA_GRAVACAO, t.VALIDADE_MIDIA * 12) <= TRUNC(SYSDATE)"},
      {2, "DATEADD(yyyy, t.VALIDADE_MIDIA, DATA_GRAVACAO) <= DATEADD(dd, 0, DATEDIFF(dd, 0, GETDATE()))"},
      {3, "DATE_ADD(DATA_GRAVACAO, INTERVAL t.VALIDADE_MIDIA YEAR) <= CURDATE()"},
      {5, "ADD_MONTHS(DATA_GRAVACAO, t.VALIDADE_MIDIA * 12) <= TRUNC(SYSDATE)"},
      {6, "ADD_MONTHS(DATA_GRAVACAO, t.VALIDADE_MIDIA * 12) <= CURRENT DATE"},
      {7, "date('DATA_GRAVACAO', '+t.VALIDADE_MIDIA years') <= date('now')"},
  };
  for (const auto& [code, condition] : kConditions) {
    const Database& database = DatabaseOf(code);
    EXPECT_EQ(Stage(Report({L"V"}), database).Run(), ListingCalls(database, Expired(condition), Reads("V", "V")));
  }
}

TEST(CCDRptTest, ListsAllMediaAlikeOnEveryDatabase) {
  for (const Database& database : Databases())
    EXPECT_EQ(Stage(Report({L"T"}), database).Run(), ListingCalls(database, kAll, Reads("T", "T")));
}

TEST(CCDRptTest, ListsAllMediaForAnythingButAnUpperCaseV) {
  for (const char* value : {"", "T", "v", "VV", "V ", " "}) {
    const Database& database = DatabaseOf(2);
    EXPECT_EQ(Stage(Report({std::wstring(value, value + std::string(value).size())}), database).Run(),
              ListingCalls(database, kAll, Reads(value, value)));
  }
}

TEST(CCDRptTest, ReadsTheKindOfReportTwice) {
  const Database& database = DatabaseOf(3);
  EXPECT_EQ(
      Stage(Report({L"V", L"T"}), database).Run(),
      ListingCalls(database,
                   "SELECT NUM_CD, DOC_INICIAL, DOC_FINAL, DATA_GRAVACAO, 'Mídias Vencidas' AS RELATORIO  FROM CD "
                   "WHERE DATE_ADD(DATA_GRAVACAO, INTERVAL t.VALIDADE_MIDIA YEAR) <= CURDATE() ORDER BY NUM_CD",
                   Reads("V", "T")));
  EXPECT_EQ(
      Stage(Report({L"T", L"V"}), database).Run(),
      ListingCalls(database,
                   "SELECT NUM_CD, DOC_INICIAL, DOC_FINAL, DATA_GRAVACAO, 'Todas as Mídias' AS RELATORIO  FROM CD "
                   "INNER JOIN TIPO_MIDIA t ON CD.COD_MIDIA=t.COD_MIDIA ORDER BY NUM_CD",
                   Reads("T", "V")));
}

TEST(CCDRptTest, TakesAnyWordWithVFromItsOwnParameterObject) {
  const std::pair<const wchar_t*, bool> kWords[] = {
      {L"v", true}, {L"vencidas", true}, {L"V", true}, {L"", false}, {L"todas", false}, {L" v", false},
  };
  for (const auto& [word, expired] : kWords) {
    Stage stage(Report({}), DatabaseOf(3));
    frame::ParameterObject parameters(frame::ParameterClassNamed(L"CCDRptObj"));
    parameters.Let(L"TipoRpt", word);
    frame::ReportObject report(L"CCDRpt", stage.around);
    report.SetStringConexao(L"Driver={MySQL ODBC 8.0 Unicode Driver};Server=arquivo");
    frame::Run(report, L"RelatorioMidias", &CCDRpt::RelatorioMidias, &parameters);
    EXPECT_EQ(
        stage.around.journal.Calls(),
        ListingCalls(DatabaseOf(3),
                     expired ? Expired("DATE_ADD(DATA_GRAVACAO, INTERVAL t.VALIDADE_MIDIA YEAR) <= CURDATE()") : kAll))
        << Utf8(word);
  }
}

TEST(CCDRptTest, RefusesExpiredMediaOnADatabaseWithoutDialectBeforeItConnects) {
  Stage stage(Report({L"V"}), DatabaseOf(4));
  EXPECT_EQ(RaisedBy([&] { stage.Call(); }), Framed("CCDRpt::RelatorioMidias", "Não há entrada para o banco tipo 4"));
  EXPECT_EQ(stage.around.journal.Calls(), Lines({
                                              R"(CreateObject("KodraConexao.StrCon") -> Object1)",
                                              R"(Object1.Let(StrCon, "Provider=Outro"))",
                                              "Object1.Get(TipoBanco) -> 4",
                                              "~Object1",
                                              R"(Parametros.Get(TipoRpt) -> "V")",
                                          }));
}

TEST(CCDRptTest, NamesThePropertyThatAnotherObjectDoesNotHave) {
  Subject report = Report({});
  report.parameters = {{L"Owner", {L"Arquivo"}}};
  Stage stage(report, DatabaseOf(2));
  EXPECT_EQ(RaisedBy([&] { stage.Call(); }),
            Framed("CCDRpt::RelatorioMidias", R"(O objeto de parâmetros não tem a propriedade "TipoRpt".)"));
}

TEST(CCDRptTest, RefusesANullKindOfReport) {
  Stage stage(Report({Null{}}), DatabaseOf(2));
  EXPECT_EQ(RaisedBy([&] { stage.Call(); }), Framed("CCDRpt::RelatorioMidias", "Uso de 'Null' inválido"));
}

TEST(CCDRptTest, RaisesEveryErrorInItsFrame) {
  CheckFrame(Report({L"V"}));
  CheckFrame(Report({L""}));
}

TEST(CCDRptTest, OutlivesTheFailureOfAnyCall) { CheckFailures(Report({L""})); }

}  // namespace
}  // namespace kodra::reports
