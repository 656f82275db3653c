// The listings of documents.
#include "reports/reports.h"

#include <gtest/gtest.h>

#include "frame/parameter_object.h"
#include "tests/reports/report_scene.h"

namespace kodra::reports {
namespace {

using recorder::Failure;
using recorder::Framed;
using recorder::Lines;
using recorder::RaisedBy;

constexpr Date kNoDate = {0};
constexpr Date k1March2024 = {45352};
constexpr Date k31March2024 = {45382};

// A listing: its method, and its statement up to where the filters stand.
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
std::vector<std::string> Reads(const std::string& first, const std::string& last, const std::string& depto) {
  std::vector<std::string> reads = {"Parametros.Get(DataArmazenamento2) -> Date(" + last + ")"};
  if (!first.empty()) reads.push_back("Parametros.Get(DataArmazenamento1) -> Date(" + first + ")");
  reads.push_back("Parametros.Get(CodDepto) -> \"" + depto + "\"");
  return reads;
}

// March 2024 in the words of each database that has any.
struct March {
  std::int32_t code;
  const char* condition;
};
constexpr March kMarches[] = {
    {1, " AND d.DT_ARMAZ BETWEEN TO_DATE('2024/03/01','YYYY/MM/DD') AND TO_DATE('2024/03/31','YYYY/MM/DD')"},
    {2, " AND d.DT_ARMAZ BETWEEN '20240301' AND '20240331'"},
    {3, " AND d.DT_ARMAZ BETWEEN STR_TO_DATE('2024/03/01','%Y/%m/%d') AND STR_TO_DATE('2024/03/31','%Y/%m/%d')"},
    {5, " AND d.DT_ARMAZ BETWEEN TO_DATE('2024/03/01','YYYY/MM/DD') AND TO_DATE('2024/03/31','YYYY/MM/DD')"},
    {6, " AND d.DT_ARMAZ BETWEEN TO_DATE('2024/03/01','YYYY/MM/DD') AND TO_DATE('2024/03/31','YYYY/MM/DD')"},
    {7,
     " AND d.DT_ARMAZ BETWEEN strftime('%Y-%m-%d',2024-03-01 00:00:00) AND "
     "strftime('%Y-%m-%d',2024-03-31 23:59:59)"},
};

class CDocumentoRptTest : public testing::TestWithParam<Listing> {};

INSTANTIATE_TEST_SUITE_P(Listings, CDocumentoRptTest, testing::Values(kSintetico, kAnalitico, kInventarios),
                         [](const auto& instance) { return instance.param.method; });

TEST_P(CDocumentoRptTest, ListsEverythingAlikeOnEveryDatabase) {
  for (const Database& database : Databases())
    EXPECT_EQ(Stage(Report(GetParam(), kNoDate, kNoDate, L""), database).Run(),
              ListingCalls(database, Statement(GetParam(), ""), Reads("", "0", "")));
}

TEST_P(CDocumentoRptTest, ListsADepartmentAlikeOnEveryDatabase) {
  for (const Database& database : Databases())
    EXPECT_EQ(Stage(Report(GetParam(), kNoDate, kNoDate, L"D01"), database).Run(),
              ListingCalls(database, Statement(GetParam(), " AND d.COD_DEPTO = 'D01'"), Reads("", "0", "D01")));
}

TEST_P(CDocumentoRptTest, ListsAPeriodInTheWordsOfEachDatabase) {
  for (const auto& [code, condition] : kMarches)
    EXPECT_EQ(Stage(Report(GetParam(), k1March2024, k31March2024, L""), DatabaseOf(code)).Run(),
              ListingCalls(DatabaseOf(code), Statement(GetParam(), condition), Reads("45352", "45382", "")));
}

TEST_P(CDocumentoRptTest, ListsADepartmentInAPeriodInTheWordsOfEachDatabase) {
  for (const auto& [code, condition] : kMarches)
    EXPECT_EQ(Stage(Report(GetParam(), k1March2024, k31March2024, L"D01"), DatabaseOf(code)).Run(),
              ListingCalls(DatabaseOf(code), Statement(GetParam(), std::string(condition) + " AND d.COD_DEPTO = 'D01'"),
                           Reads("45352", "45382", "D01")));
}

TEST_P(CDocumentoRptTest, RefusesAPeriodOnADatabaseWithoutDialectBeforeItConnects) {
  Scene scene(Report(GetParam(), k1March2024, k31March2024, L""), DatabaseOf(4));
  EXPECT_EQ(scene.RunRaising(), Framed(scene.Name(), "Não há entrada para o banco tipo 4"));
  EXPECT_EQ(scene.Around().journal.Calls(), Lines({
                                                R"(CreateObject("KodraConexao.StrCon") -> Object1)",
                                                R"(Object1.Let(StrCon, "Provider=Outro"))",
                                                "Object1.Get(TipoBanco) -> 4",
                                                "~Object1",
                                                "Parametros.Get(DataArmazenamento2) -> Date(45382)",
                                                "Parametros.Get(DataArmazenamento1) -> Date(45352)",
                                            }));
}

TEST_P(CDocumentoRptTest, FiltersNoPeriodByItsFirstDayAlone) {
  EXPECT_EQ(Stage(Report(GetParam(), k1March2024, kNoDate, L""), DatabaseOf(2)).Run(),
            ListingCalls(DatabaseOf(2), Statement(GetParam(), ""), Reads("", "0", "")));
}

TEST_P(CDocumentoRptTest, StartsAPeriodWithoutFirstDayAtTheZeroDate) {
  const std::pair<std::int32_t, const char*> kConditions[] = {
      {1, " AND d.DT_ARMAZ BETWEEN TO_DATE('1899/12/30','YYYY/MM/DD') AND TO_DATE('2024/03/31','YYYY/MM/DD')"},
      {2, " AND d.DT_ARMAZ BETWEEN '18991230' AND '20240331'"},
      {3, " AND d.DT_ARMAZ BETWEEN STR_TO_DATE('1899/12/30','%Y/%m/%d') AND STR_TO_DATE('2024/03/31','%Y/%m/%d')"},
      {6, " AND d.DT_ARMAZ BETWEEN TO_DATE('1899/12/30','YYYY/MM/DD') AND TO_DATE('2024/03/31','YYYY/MM/DD')"},
      {7,
       " AND d.DT_ARMAZ BETWEEN strftime('%Y-%m-%d',1899-12-30 00:00:00) AND "
       "strftime('%Y-%m-%d',2024-03-31 23:59:59)"},
  };
  for (const auto& [code, condition] : kConditions)
    EXPECT_EQ(Stage(Report(GetParam(), kNoDate, k31March2024, L""), DatabaseOf(code)).Run(),
              ListingCalls(DatabaseOf(code), Statement(GetParam(), condition), Reads("0", "45382", "")));
}

TEST_P(CDocumentoRptTest, LeavesTheTimeOfDayOfThePeriodToTheTranslator) {
  for (const auto& [code, condition] : kMarches)
    EXPECT_EQ(Stage(Report(GetParam(), Date{45352.75}, Date{45382.25}, L""), DatabaseOf(code)).Run(),
              ListingCalls(DatabaseOf(code), Statement(GetParam(), condition), Reads("45352.8", "45382.2", "")));
}

TEST_P(CDocumentoRptTest, FiltersAPeriodUpToATimeOnTheZeroDay) {
  EXPECT_EQ(Stage(Report(GetParam(), kNoDate, Date{0.5}, L""), DatabaseOf(2)).Run(),
            ListingCalls(DatabaseOf(2), Statement(GetParam(), " AND d.DT_ARMAZ BETWEEN '18991230' AND '18991230'"),
                         Reads("0", "0.5", "")));
}

TEST_P(CDocumentoRptTest, FiltersADepartmentOfOneBlank) {
  EXPECT_EQ(Stage(Report(GetParam(), kNoDate, kNoDate, L" "), DatabaseOf(2)).Run(),
            ListingCalls(DatabaseOf(2), Statement(GetParam(), " AND d.COD_DEPTO = ' '"), Reads("", "0", " ")));
}

TEST_P(CDocumentoRptTest, LeavesAQuoteInTheDepartmentToTheDatabase) {
  Scene scene(Report(GetParam(), kNoDate, kNoDate, L"O'X"), DatabaseOf(2));
  EXPECT_EQ(scene.Run(),
            ListingCalls(DatabaseOf(2), Statement(GetParam(), " AND d.COD_DEPTO = 'O'X'"), Reads("", "0", "O'X")));
  scene.Prepare();
  scene.Around().ado.nativeErrors = {105};
  scene.Around().journal.FailOn(L"Recordset1.Open", Failure(Erro(-2147217900, L"SQLNCLI11", L"Aspas não fechadas")));
  EXPECT_EQ(RaisedBy([&] { scene.Call(); }), Framed(scene.Name(), "[SQLNCLI11]: Aspas não fechadas [N:105]"));
}

TEST_P(CDocumentoRptTest, ListsEverythingForANewParameterObject) {
  Stage stage(Report(GetParam(), kNoDate, kNoDate, L""), DatabaseOf(2));
  frame::ParameterObject parameters(frame::ParameterClassNamed(L"CDocumentoRptObj"));
  frame::ReportObject report(L"CDocumentoRpt", stage.around);
  report.SetStringConexao(L"Provider=SQLNCLI11;Data Source=arquivo;");
  EXPECT_NE(frame::Run(report, L"RelatorioAnalitico", GetParam().call, &parameters), nullptr);
  EXPECT_EQ(stage.around.journal.Calls(), ListingCalls(DatabaseOf(2), Statement(GetParam(), "")));
}

TEST_P(CDocumentoRptTest, NamesThePropertyThatAnotherObjectDoesNotHave) {
  Subject report = Report(GetParam(), kNoDate, kNoDate, L"");
  report.parameters = {{L"DataArmazenamento2", {kNoDate}}};
  EXPECT_EQ(Scene(report, DatabaseOf(2)).RunRaising(),
            Framed(report.name, R"(O objeto de parâmetros não tem a propriedade "CodDepto".)"));
}

TEST_P(CDocumentoRptTest, RaisesEveryErrorInItsFrame) {
  CheckFrame(Report(GetParam(), kNoDate, kNoDate, L""));
  CheckFrame(Report(GetParam(), k1March2024, k31March2024, L"D01"));
}

TEST_P(CDocumentoRptTest, OutlivesTheFailureOfAnyCall) {
  for (const std::int32_t code : {1, 2, 3, 5, 6, 7}) {
    Scene scene(Report(GetParam(), k1March2024, k31March2024, L"D01"), DatabaseOf(code));
    CheckEachCallFailing(scene, FramedOutcome);
  }
  Scene scene(Report(GetParam(), kNoDate, kNoDate, L""), DatabaseOf(4));
  CheckEachCallFailing(scene, FramedOutcome);
}

}  // namespace
}  // namespace kodra::reports
