// The list of withdrawn originals.
#include <gtest/gtest.h>

#include "frame/parameter_object.h"
#include "reports/reports.h"
#include "tests/reports/report_scene.h"

namespace kodra::reports {
namespace {

using recorder::Framed;
using recorder::Lines;

constexpr auto kName = "CSolicitacaoRpt::RelatorioDevolucaoOriginal";

Subject Report(const Value& listReturned) {
  return SubjectOf(kName, &CSolicitacaoRpt::RelatorioDevolucaoOriginal, {{L"ListarJaDevolvidos", {listReturned}}});
}

// The two dates as text, in the words of each database that has any.
struct Dates {
  std::int32_t code;
  std::string withdrawn;
  std::string returned;
};
const Dates kDates[] = {
    {1, "TO_CHAR(s.DT_RETIRADA,'DD/MM/YYYY')", "TO_CHAR(s.DT_DEVOLUCAO,'DD/MM/YYYY')"},
    {2, "CONVERT(CHAR(10),s.DT_RETIRADA,103)", "CONVERT(CHAR(10),s.DT_DEVOLUCAO,103)"},
    {3, "DATE_FORMAT(s.DT_RETIRADA,'%d/%m/%Y')", "DATE_FORMAT(s.DT_DEVOLUCAO,'%d/%m/%Y')"},
    {5, "TO_CHAR(s.DT_RETIRADA,'DD/MM/YYYY')", "TO_CHAR(s.DT_DEVOLUCAO,'DD/MM/YYYY')"},
    {6, "TO_CHAR(s.DT_RETIRADA,'DD/MM/YYYY')", "TO_CHAR(s.DT_DEVOLUCAO,'DD/MM/YYYY')"},
    {7, "", ""},  // SQLite has no text for a date
};

std::string Statement(const std::string& title, const Dates& dates, const std::string& where) {
  return "SELECT '" + title +
         "' AS TITULO, s.COD_DOCTO, "
         "CASE WHEN o.NOME_COMPLETO IS NULL OR o.NOME_COMPLETO='' THEN o.DESCR_OPERADOR "
         "ELSE o.NOME_COMPLETO END AS DESCR_OPERADOR, " +
         dates.withdrawn + " AS DT_RETIRADA, s.DEVOLVIDO, " + dates.returned +
         " AS DT_DEVOLUCAO FROM SOLICITACAO s INNER JOIN OPERADOR o ON s.COD_OPERADOR = o.COD_OPERADOR" + where;
}

std::string OutOnly(const Dates& dates) {
  return Statement("Listagem De Originais Retirados", dates, " WHERE s.DEVOLVIDO <> 'S'");
}

std::string OutAndReturned(const Dates& dates) {
  return Statement("Listagem De Originais Retirados E Originais Devolvidos", dates, "");
}

TEST(WithdrawnOriginalsTest, AreListedInTheWordsOfEachDatabase) {
  for (const Dates& dates : kDates)
    EXPECT_EQ(Stage(Report(false), DatabaseOf(dates.code)).Run(),
              ListingCalls(DatabaseOf(dates.code), OutOnly(dates), {"Parametros.Get(ListarJaDevolvidos) -> False"}));
}

TEST(WithdrawnOriginalsTest, AreListedWithReturnedOnesInTheWordsOfEachDatabase) {
  for (const Dates& dates : kDates)
    EXPECT_EQ(
        Stage(Report(true), DatabaseOf(dates.code)).Run(),
        ListingCalls(DatabaseOf(dates.code), OutAndReturned(dates), {"Parametros.Get(ListarJaDevolvidos) -> True"}));
}

TEST(WithdrawnOriginalsTest, AreRefusedOnADatabaseWithoutDialectBeforeItConnects) {
  Scene scene(Report(false), DatabaseOf(4));
  EXPECT_EQ(scene.RunRaising(), Framed(kName, "Não há entrada para o banco tipo 4"));
  EXPECT_EQ(scene.Around().journal.Calls(), Lines({
                                                R"(CreateObject("KodraConexao.StrCon") -> Object1)",
                                                R"(Object1.Let(StrCon, "Provider=Outro"))",
                                                "Object1.Get(TipoBanco) -> 4",
                                                "~Object1",
                                                "Parametros.Get(ListarJaDevolvidos) -> False",
                                            }));
}

TEST(WithdrawnOriginalsTest, CoverAllRequestsWhateverCodesAreGiven) {
  Stage stage(Report(false), DatabaseOf(2));
  frame::ParameterObject parameters(frame::ParameterClassNamed(L"CSolicitacaoRptObj"));
  frame::ReportObject report(L"CSolicitacaoRpt", stage.around);
  report.SetStringConexao(L"Provider=SQLNCLI11;Data Source=arquivo;");
  parameters.Let(L"CodSolicit", L"77");
  EXPECT_NE(
      frame::Run(report, L"RelatorioDevolucaoOriginal", &CSolicitacaoRpt::RelatorioDevolucaoOriginal, &parameters),
      nullptr);
  EXPECT_EQ(stage.around.journal.Calls(), ListingCalls(DatabaseOf(2), OutOnly(kDates[1])));
}

TEST(WithdrawnOriginalsTest, AreListedWithReturnedOnesForAnyFlagButZero) {
  const std::pair<Value, std::string> kFlags[] = {{1, "1"}, {-1, "-1"}, {L"Verdadeiro", "\"Verdadeiro\""}};
  for (const auto& [flag, shown] : kFlags)
    EXPECT_EQ(
        Stage(Report(flag), DatabaseOf(2)).Run(),
        ListingCalls(DatabaseOf(2), OutAndReturned(kDates[1]), {"Parametros.Get(ListarJaDevolvidos) -> " + shown}));
}

TEST(WithdrawnOriginalsTest, RefuseAFlagThatIsNone) {
  EXPECT_EQ(Scene(Report(L"talvez"), DatabaseOf(2)).RunRaising(), Framed(kName, "Tipos incompatíveis"));
  EXPECT_EQ(Scene(Report(Null{}), DatabaseOf(2)).RunRaising(), Framed(kName, "Uso de 'Null' inválido"));
}

TEST(WithdrawnOriginalsTest, NameThePropertyThatAnotherObjectDoesNotHave) {
  Subject report = Report(false);
  report.parameters = {};
  EXPECT_EQ(Scene(report, DatabaseOf(2)).RunRaising(),
            Framed(kName, R"(O objeto de parâmetros não tem a propriedade "ListarJaDevolvidos".)"));
}

TEST(WithdrawnOriginalsTest, RaiseEveryErrorInTheirFrame) {
  CheckFrame(Report(false));
  CheckFrame(Report(true));
}

TEST(WithdrawnOriginalsTest, OutliveTheFailureOfAnyCall) {
  for (const Dates& dates : kDates) {
    Scene scene(Report(false), DatabaseOf(dates.code));
    CheckEachCallFailing(scene, FramedOutcome);
  }
}

}  // namespace
}  // namespace kodra::reports
