// The list of withdrawn originals.
#include <gtest/gtest.h>

#include "reports/reports.h"
#include "tests/reports/report_scenario.h"

namespace kodra::reports {
namespace {

using recorder::Framed;

constexpr auto kName = "CSolicitacaoRpt::RelatorioDevolucaoOriginal";

Subject Report(const Value& listReturned) {
  return SubjectOf(kName, &CSolicitacaoRpt::RelatorioDevolucaoOriginal, {{L"ListarJaDevolvidos", {listReturned}}});
}

// The two dates as text, in each dialect.
struct Dates {
  std::int32_t code;
  std::string withdrawn;
  std::string returned;
};
const Dates kDates[] = {
    {tbOracle, "TO_CHAR(s.DT_RETIRADA,'DD/MM/YYYY')", "TO_CHAR(s.DT_DEVOLUCAO,'DD/MM/YYYY')"},
    {tbSQLServer, "CONVERT(CHAR(10),s.DT_RETIRADA,103)", "CONVERT(CHAR(10),s.DT_DEVOLUCAO,103)"},
    {tbMySQL, "DATE_FORMAT(s.DT_RETIRADA,'%d/%m/%Y')", "DATE_FORMAT(s.DT_DEVOLUCAO,'%d/%m/%Y')"},
    {tbOracleAlt, "TO_CHAR(s.DT_RETIRADA,'DD/MM/YYYY')", "TO_CHAR(s.DT_DEVOLUCAO,'DD/MM/YYYY')"},
    {tbDB2, "TO_CHAR(s.DT_RETIRADA,'DD/MM/YYYY')", "TO_CHAR(s.DT_DEVOLUCAO,'DD/MM/YYYY')"},
    {tbSQLite, "", ""},  // SQLite's dialect has no text for a date
};
const Dates& kOnSQLServer = kDates[1];

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

TEST(WithdrawnOriginalsTest, AreListedInTheDialectOfEachDatabase) {
  for (const Dates& dates : kDates)
    CheckListing(DatabaseOf(dates.code), Report(false), OutOnly(dates),
                 {"Parametros.Get(ListarJaDevolvidos) -> False"});
}

TEST(WithdrawnOriginalsTest, AreListedWithReturnedOnesInTheDialectOfEachDatabase) {
  for (const Dates& dates : kDates)
    CheckListing(DatabaseOf(dates.code), Report(true), OutAndReturned(dates),
                 {"Parametros.Get(ListarJaDevolvidos) -> True"});
}

TEST(WithdrawnOriginalsTest, AreRefusedOnADatabaseWithoutDialectBeforeItConnects) {
  CheckDialectNeeded(Report(false), {"Parametros.Get(ListarJaDevolvidos) -> False"});
}

TEST(WithdrawnOriginalsTest, CoverAllRequestsWhateverTheRequestCodes) {
  EXPECT_EQ(Scenario(Report(false), DatabaseOf(tbSQLServer)).RunWithOwn({{L"CodSolicit", L"77"}}),
            ListingCalls(DatabaseOf(tbSQLServer), OutOnly(kOnSQLServer)));
}

TEST(WithdrawnOriginalsTest, AreListedWithReturnedOnesForAnyFlagButZero) {
  const std::pair<Value, std::string> kFlags[] = {{1, "1"}, {-1, "-1"}, {L"Verdadeiro", "\"Verdadeiro\""}};
  for (const auto& [flag, shown] : kFlags)
    CheckListing(DatabaseOf(tbSQLServer), Report(flag), OutAndReturned(kOnSQLServer),
                 {"Parametros.Get(ListarJaDevolvidos) -> " + shown});
}

TEST(WithdrawnOriginalsTest, RefuseAFlagThatIsNone) {
  EXPECT_EQ(Scenario(Report(L"talvez"), DatabaseOf(tbSQLServer)).RunRaising(), Framed(kName, "Tipos incompatíveis"));
  EXPECT_EQ(Scenario(Report(Null{}), DatabaseOf(tbSQLServer)).RunRaising(), Framed(kName, "Uso de 'Null' inválido"));
}

TEST(WithdrawnOriginalsTest, NameThePropertyThatAnotherObjectDoesNotHave) { CheckPropertiesNeeded(Report(false)); }

TEST(WithdrawnOriginalsTest, RaiseEveryErrorInTheirFrame) {
  CheckFrame(Report(false));
  CheckFrame(Report(true));
}

TEST(WithdrawnOriginalsTest, WorkAgainAfterTheFailureOfAnyCall) { CheckFailures(Report(false), kCodesWithDialect); }

}  // namespace
}  // namespace kodra::reports
