// The listings of documents.
#include "reports/reports.h"

#include <gtest/gtest.h>

#include "tests/reports/report_scenario.h"

namespace kodra::reports {
namespace {

using recorder::Failure;
using recorder::Framed;
using recorder::RaisedBy;

constexpr Date kNoDate = {0};
constexpr Date k1March2024 = {45352};
constexpr Date k31March2024 = {45382};

// A listing: its method, and its statement up to the filters.
struct Listing {
  const char* method;
  frame::ReportRows (*call)(Call&);
  const char* unfiltered;
};

constexpr Listing kSintetico = {
    "RelatorioSintetico", &CDocumentoRpt::RelatorioSintetico,
    "SELECT d.COD_DOCTO, s.DESCR_SUPORTE, d.NUM_CAIXA, d.NUM_CD, d.DT_ARMAZ, d.DT_VENC, d.FRENTE, d.VERSO  "
    "FROM DOCUMENTO d "
    "INNER JOIN SUPORTE s ON d.COD_SUPORTE = s.COD_SUPORTE "
    "WHERE (1=1)"};
constexpr Listing kAnalitico = {"RelatorioAnalitico", &CDocumentoRpt::RelatorioAnalitico,
                                "SELECT d.COD_DOCTO, g.DESCR_GRUPO, a.DESCR_ASSUNTO, "
                                "d.DESCR_CHAVE1, d.DESCR_CHAVE2, d.DESCR_CHAVE3, d.DESCR_CHAVE4, d.DESCR_CHAVE5, "
                                "o.DESCR_OPERADOR, s.DESCR_SUPORTE, d.DT_ARMAZ, d.ARQUIVO, d.OBS, d.FRENTE, "
                                "d.NUM_CAIXA, d.DT_VENC, d.VERSO, d.NUM_CD "
                                "FROM DOCUMENTO d "
                                "INNER JOIN SUPORTE s ON d.COD_SUPORTE = s.COD_SUPORTE "
                                "INNER JOIN OPERADOR o ON d.COD_OPERADOR = o.COD_OPERADOR "
                                "INNER JOIN ASSUNTO a ON d.COD_ASSUNTO = a.COD_ASSUNTO  "
                                "INNER JOIN GRUPO g ON d.COD_GRUPO = g.COD_GRUPO "
                                "WHERE d.COD_GRUPO IS NOT NULL"};
constexpr Listing kInventarios = {
    "RelatorioInventarios", &CDocumentoRpt::RelatorioInventarios,
    "SELECT d.COD_DOCTO, g.DESCR_GRUPO, a.DESCR_ASSUNTO, d.NUM_CAIXA, d.MACO, d.DT_ARMAZ, "
    "a.DESCR_CHAVE1 AS ACHAVE1, a.DESCR_CHAVE2 AS ACHAVE2, a.DESCR_CHAVE3 AS ACHAVE3, "
    "a.DESCR_CHAVE4 AS ACHAVE4, a.DESCR_CHAVE5 AS ACHAVE5, "
    "d.DESCR_CHAVE1, d.DESCR_CHAVE2, d.DESCR_CHAVE3, d.DESCR_CHAVE4, d.DESCR_CHAVE5, d.OBS "
    "FROM DOCUMENTO d "
    "INNER JOIN ASSUNTO a ON d.COD_ASSUNTO = a.COD_ASSUNTO  "
    "INNER JOIN GRUPO g ON d.COD_GRUPO = g.COD_GRUPO "
    "WHERE d.COD_GRUPO IS NOT NULL AND d.EXTENSAO='#INV'"};

std::string Statement(const Listing& listing, const std::string& filters) {
  return listing.unfiltered + filters + " ORDER BY d.COD_DOCTO";
}

Subject Report(const Listing& listing, const Value& first, const Value& last, const Value& depto) {
  return SubjectOf(std::string("CDocumentoRpt::") + listing.method, listing.call,
                   {{L"DataArmazenamento1", {first}}, {L"DataArmazenamento2", {last}}, {L"CodDepto", {depto}}});
}

// The reads of a period between those two days, and of a department; without a period its first day is not read.
CallLines Reads(const std::string& first, const std::string& last, const std::string& depto) {
  CallLines reads = {"Parametros.Get(DataArmazenamento2) -> Date(" + last + ")"};
  if (!first.empty()) reads.push_back("Parametros.Get(DataArmazenamento1) -> Date(" + first + ")");
  reads.push_back("Parametros.Get(CodDepto) -> " + Quoted(depto));
  return reads;
}

// March 2024 in each dialect.
struct March {
  std::int32_t code;
  const char* condition;
};
constexpr March kMarches[] = {
    {tbOracle, " AND d.DT_ARMAZ BETWEEN TO_DATE('2024/03/01','YYYY/MM/DD') AND TO_DATE('2024/03/31','YYYY/MM/DD')"},
    {tbSQLServer, " AND d.DT_ARMAZ BETWEEN '20240301' AND '20240331'"},
    {tbMySQL, " AND d.DT_ARMAZ BETWEEN STR_TO_DATE('2024/03/01','%Y/%m/%d') AND STR_TO_DATE('2024/03/31','%Y/%m/%d')"},
    {tbOracleAlt, " AND d.DT_ARMAZ BETWEEN TO_DATE('2024/03/01','YYYY/MM/DD') AND TO_DATE('2024/03/31','YYYY/MM/DD')"},
    {tbDB2, " AND d.DT_ARMAZ BETWEEN TO_DATE('2024/03/01','YYYY/MM/DD') AND TO_DATE('2024/03/31','YYYY/MM/DD')"},
    {tbSQLite,
     " AND d.DT_ARMAZ BETWEEN strftime('%Y-%m-%d',2024-03-01 00:00:00) AND "
     "strftime('%Y-%m-%d',2024-03-31 23:59:59)"},
};

class CDocumentoRptTest : public testing::TestWithParam<Listing> {};

INSTANTIATE_TEST_SUITE_P(Listings, CDocumentoRptTest, testing::Values(kSintetico, kAnalitico, kInventarios),
                         [](const auto& instance) { return instance.param.method; });

TEST_P(CDocumentoRptTest, ListsEverythingAlikeOnEveryDatabase) {
  CheckListing(Report(GetParam(), kNoDate, kNoDate, L""), Statement(GetParam(), ""), Reads("", "0", ""));
}

TEST_P(CDocumentoRptTest, ListsADepartmentAlikeOnEveryDatabase) {
  CheckListing(Report(GetParam(), kNoDate, kNoDate, L"D01"), Statement(GetParam(), " AND d.COD_DEPTO = 'D01'"),
               Reads("", "0", "D01"));
}

TEST_P(CDocumentoRptTest, ListsAPeriodInTheDialectOfEachDatabase) {
  for (const auto& [code, condition] : kMarches)
    CheckListing(DatabaseOf(code), Report(GetParam(), k1March2024, k31March2024, L""), Statement(GetParam(), condition),
                 Reads("45352", "45382", ""));
}

TEST_P(CDocumentoRptTest, ListsADepartmentInAPeriodInTheDialectOfEachDatabase) {
  for (const auto& [code, condition] : kMarches)
    CheckListing(DatabaseOf(code), Report(GetParam(), k1March2024, k31March2024, L"D01"),
                 Statement(GetParam(), std::string(condition) + " AND d.COD_DEPTO = 'D01'"),
                 Reads("45352", "45382", "D01"));
}

TEST_P(CDocumentoRptTest, RefusesAPeriodOnADatabaseWithoutDialectBeforeItConnects) {
  CheckDialectNeeded(
      Report(GetParam(), k1March2024, k31March2024, L""),
      {"Parametros.Get(DataArmazenamento2) -> Date(45382)", "Parametros.Get(DataArmazenamento1) -> Date(45352)"});
}

TEST_P(CDocumentoRptTest, FiltersNoPeriodByItsFirstDayAlone) {
  CheckListing(DatabaseOf(tbSQLServer), Report(GetParam(), k1March2024, kNoDate, L""), Statement(GetParam(), ""),
               Reads("", "0", ""));
}

TEST_P(CDocumentoRptTest, StartsAPeriodWithoutFirstDayAtTheZeroDate) {
  const std::pair<std::int32_t, const char*> kConditions[] = {
      {tbOracle, " AND d.DT_ARMAZ BETWEEN TO_DATE('1899/12/30','YYYY/MM/DD') AND TO_DATE('2024/03/31','YYYY/MM/DD')"},
      {tbSQLServer, " AND d.DT_ARMAZ BETWEEN '18991230' AND '20240331'"},
      {tbMySQL,
       " AND d.DT_ARMAZ BETWEEN STR_TO_DATE('1899/12/30','%Y/%m/%d') AND STR_TO_DATE('2024/03/31','%Y/%m/%d')"},
      {tbDB2, " AND d.DT_ARMAZ BETWEEN TO_DATE('1899/12/30','YYYY/MM/DD') AND TO_DATE('2024/03/31','YYYY/MM/DD')"},
      {tbSQLite,
       " AND d.DT_ARMAZ BETWEEN strftime('%Y-%m-%d',1899-12-30 00:00:00) AND "
       "strftime('%Y-%m-%d',2024-03-31 23:59:59)"},
  };
  for (const auto& [code, condition] : kConditions)
    CheckListing(DatabaseOf(code), Report(GetParam(), kNoDate, k31March2024, L""), Statement(GetParam(), condition),
                 Reads("0", "45382", ""));
}

TEST_P(CDocumentoRptTest, LeavesTheTimeOfDayOfThePeriodToTheTranslator) {
  for (const auto& [code, condition] : kMarches)
    CheckListing(DatabaseOf(code), Report(GetParam(), Date{45352.75}, Date{45382.25}, L""),
                 Statement(GetParam(), condition), Reads("45352.8", "45382.2", ""));
}

TEST_P(CDocumentoRptTest, FiltersAPeriodUpToATimeOnTheZeroDay) {
  CheckListing(DatabaseOf(tbSQLServer), Report(GetParam(), kNoDate, Date{0.5}, L""),
               Statement(GetParam(), " AND d.DT_ARMAZ BETWEEN '18991230' AND '18991230'"), Reads("0", "0.5", ""));
}

TEST_P(CDocumentoRptTest, FiltersADepartmentOfOneBlank) {
  CheckListing(DatabaseOf(tbSQLServer), Report(GetParam(), kNoDate, kNoDate, L" "),
               Statement(GetParam(), " AND d.COD_DEPTO = ' '"), Reads("", "0", " "));
}

TEST_P(CDocumentoRptTest, DoesNotEscapeAQuoteInTheDepartment) {
  Scenario scenario(Report(GetParam(), kNoDate, kNoDate, L"O'X"), DatabaseOf(tbSQLServer));
  EXPECT_EQ(scenario.Run(), ListingCalls(DatabaseOf(tbSQLServer), Statement(GetParam(), " AND d.COD_DEPTO = 'O'X'"),
                                         Reads("", "0", "O'X")));
  scenario.Prepare();
  scenario.around.ado.nativeErrors = {105};
  scenario.around.journal.FailOn(L"Recordset1.Open", Failure(Erro(-2147217900, L"SQLNCLI11", L"Aspas não fechadas")));
  EXPECT_EQ(RaisedBy([&] { scenario.Call(); }),
            Framed(scenario.Tested().name, "[SQLNCLI11]: Aspas não fechadas [N:105]"));
}

TEST_P(CDocumentoRptTest, ListsEverythingForANewParameterObject) {
  EXPECT_EQ(Scenario(Report(GetParam(), kNoDate, kNoDate, L""), DatabaseOf(tbSQLServer)).RunWithOwn({}),
            ListingCalls(DatabaseOf(tbSQLServer), Statement(GetParam(), "")));
}

TEST_P(CDocumentoRptTest, NamesThePropertyThatAnotherObjectDoesNotHave) {
  CheckPropertiesNeeded(Report(GetParam(), k1March2024, k31March2024, L""));
}

TEST_P(CDocumentoRptTest, RaisesEveryErrorInItsFrame) {
  CheckFrame(Report(GetParam(), kNoDate, kNoDate, L""));
  CheckFrame(Report(GetParam(), k1March2024, k31March2024, L"D01"));
}

TEST_P(CDocumentoRptTest, WorksAgainAfterTheFailureOfAnyCall) {
  const std::int32_t kWithoutDialect[] = {tbOther4};
  CheckFailures(Report(GetParam(), k1March2024, k31March2024, L"D01"), kCodesWithDialect);
  CheckFailures(Report(GetParam(), kNoDate, kNoDate, L""), kWithoutDialect);
}

}  // namespace
}  // namespace kodra::reports
