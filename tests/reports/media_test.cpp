// The media.
#include "reports/reports.h"

#include <gtest/gtest.h>

#include "tests/reports/report_scenario.h"

namespace kodra::reports {
namespace {

using recorder::Framed;
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

CallLines Reads(const std::string& first, const std::string& second) {
  return {"Parametros.Get(TipoRpt) -> " + Quoted(first), "Parametros.Get(TipoRpt) -> " + Quoted(second)};
}

TEST(CCDRptTest, ListsExpiredMediaInTheDialectOfEachDatabase) {
  const std::pair<std::int32_t, const char*> kConditions[] = {
      {tbOracle, "ADD_MONTHS(DATA_GRAVACAO, t.VALIDADE_MIDIA * 12) <= TRUNC(SYSDATE)"},
      {tbSQLServer, "DATEADD(yyyy, t.VALIDADE_MIDIA, DATA_GRAVACAO) <= DATEADD(dd, 0, DATEDIFF(dd, 0, GETDATE()))"},
      {tbMySQL, "DATE_ADD(DATA_GRAVACAO, INTERVAL t.VALIDADE_MIDIA YEAR) <= CURDATE()"},
      {tbOracleAlt, "ADD_MONTHS(DATA_GRAVACAO, t.VALIDADE_MIDIA * 12) <= TRUNC(SYSDATE)"},
      {tbDB2, "ADD_MONTHS(DATA_GRAVACAO, t.VALIDADE_MIDIA * 12) <= CURRENT DATE"},
      {tbSQLite, "date('DATA_GRAVACAO', '+t.VALIDADE_MIDIA years') <= date('now')"},
  };
  for (const auto& [code, condition] : kConditions)
    CheckListing(DatabaseOf(code), Report({L"V"}), Expired(condition), Reads("V", "V"));
}

TEST(CCDRptTest, ListsAllMediaAlikeOnEveryDatabase) { CheckListing(Report({L"T"}), kAll, Reads("T", "T")); }

TEST(CCDRptTest, ListsAllMediaForAnythingButAnUpperCaseV) {
  for (const char* value : {"", "T", "v", "VV", "V ", " "})
    CheckListing(DatabaseOf(tbSQLServer), Report({recorder::Wide(value)}), kAll, Reads(value, value));
}

TEST(CCDRptTest, ReadsTheKindOfReportTwice) {
  CheckListing(DatabaseOf(tbMySQL), Report({L"V", L"T"}),
               "SELECT NUM_CD, DOC_INICIAL, DOC_FINAL, DATA_GRAVACAO, 'Mídias Vencidas' AS RELATORIO  FROM CD "
               "WHERE DATE_ADD(DATA_GRAVACAO, INTERVAL t.VALIDADE_MIDIA YEAR) <= CURDATE() ORDER BY NUM_CD",
               Reads("V", "T"));
  CheckListing(DatabaseOf(tbMySQL), Report({L"T", L"V"}),
               "SELECT NUM_CD, DOC_INICIAL, DOC_FINAL, DATA_GRAVACAO, 'Todas as Mídias' AS RELATORIO  FROM CD "
               "INNER JOIN TIPO_MIDIA t ON CD.COD_MIDIA=t.COD_MIDIA ORDER BY NUM_CD",
               Reads("T", "V"));
}

TEST(CCDRptTest, TakesAnyWordWithVFromItsOwnParameterObject) {
  const std::string expired = Expired("DATE_ADD(DATA_GRAVACAO, INTERVAL t.VALIDADE_MIDIA YEAR) <= CURDATE()");
  const std::pair<const wchar_t*, std::string> kWords[] = {
      {L"v", expired}, {L"vencidas", expired}, {L"V", expired}, {L"", kAll}, {L"todas", kAll}, {L" v", kAll},
  };
  for (const auto& [word, statement] : kWords)
    EXPECT_EQ(Scenario(Report({}), DatabaseOf(tbMySQL)).RunWithOwn({{L"TipoRpt", word}}),
              ListingCalls(DatabaseOf(tbMySQL), statement))
        << Utf8(word);
}

TEST(CCDRptTest, RefusesExpiredMediaOnADatabaseWithoutDialectBeforeItConnects) {
  CheckDialectNeeded(Report({L"V"}), {R"(Parametros.Get(TipoRpt) -> "V")"});
}

TEST(CCDRptTest, NamesThePropertyThatAnotherObjectDoesNotHave) { CheckPropertiesNeeded(Report({L""})); }

TEST(CCDRptTest, RefusesANullKindOfReport) {
  EXPECT_EQ(Scenario(Report({Null{}}), DatabaseOf(tbSQLServer)).RunRaising(),
            Framed("CCDRpt::RelatorioMidias", "Uso de 'Null' inválido"));
}

TEST(CCDRptTest, RaisesEveryErrorInItsFrame) {
  CheckFrame(Report({L"V"}));
  CheckFrame(Report({L""}));
}

TEST(CCDRptTest, WorksAgainAfterTheFailureOfAnyCall) { CheckFailures(Report({L""})); }

}  // namespace
}  // namespace kodra::reports
