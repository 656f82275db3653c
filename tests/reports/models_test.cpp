// The document models.
#include "reports/reports.h"

#include <gtest/gtest.h>

#include "tests/reports/report_scenario.h"

namespace kodra::reports {
namespace {

using recorder::Framed;
using recorder::Utf8;

constexpr auto kAll =
    "SELECT c.DESCR_CLASSE AS GRUPO, g.DESCR_GRUPO AS SUBGRUPO, a.DESCR_ASSUNTO AS SERIE, "
    "a.DESCR_CHAVE1, a.DESCR_CHAVE2, a.DESCR_CHAVE3, a.DESCR_CHAVE4, a.DESCR_CHAVE5, "
    "m.CHAVE1, m.CHAVE2, m.CHAVE3, m.CHAVE4, m.CHAVE5, m.VALIDADE FROM MODELO m "
    "INNER JOIN GRUPO g ON m.COD_GRUPO = g.COD_GRUPO LEFT JOIN CLASSE c ON c.COD_CLASSE = g.COD_CLASSE "
    "INNER JOIN ASSUNTO a ON m.COD_ASSUNTO = a.COD_ASSUNTO "
    "ORDER BY c.DESCR_CLASSE, g.DESCR_GRUPO, a.DESCR_ASSUNTO";
constexpr auto kOne =
    "SELECT c.DESCR_CLASSE AS GRUPO, g.DESCR_GRUPO AS SUBGRUPO, a.DESCR_ASSUNTO AS SERIE, "
    "a.DESCR_CHAVE1, a.DESCR_CHAVE2, a.DESCR_CHAVE3, a.DESCR_CHAVE4, a.DESCR_CHAVE5, "
    "m.CHAVE1, m.CHAVE2, m.CHAVE3, m.CHAVE4, m.CHAVE5, m.VALIDADE FROM MODELO m "
    "INNER JOIN GRUPO g ON m.COD_GRUPO = g.COD_GRUPO LEFT JOIN CLASSE c ON c.COD_CLASSE = g.COD_CLASSE "
    "INNER JOIN ASSUNTO a ON m.COD_ASSUNTO = a.COD_ASSUNTO "
    "WHERE UPPER(m.COD_MODELO) = ? "
    "ORDER BY c.DESCR_CLASSE, g.DESCR_GRUPO, a.DESCR_ASSUNTO";

Subject Report(const Value& codModelo) {
  Subject subject =
      SubjectOf("CModeloRpt::RelatorioModelos", &CModeloRpt::RelatorioModelos, {{L"CodModelo", {codModelo}}});
  subject.firehose = false;
  return subject;
}

// All calls of a report that makes those calls before it connects, and opens that statement by a command with those
// parameters.
std::string CommandCalls(const Database& database, const CallLines& before, const std::string& statement,
                         const CallLines& commandParameters) {
  return All({InitialisationLines(database),
              before,
              {"NewCommand() -> Command1"},
              OpeningLines(database),
              {
                  "Command1.SetActiveConnection(Connection1)",
                  "Command1.SetCommandText(" + Quoted(statement) + ")",
                  "Command1.SetCommandType(1)",
              },
              commandParameters,
              {
                  "NewRecordset() -> Recordset1",
                  "Recordset1.SetCursorType(2)",
                  "Recordset1.SetCursorLocation(3)",
                  "Recordset1.Open(Command1, missing, -1, -1, -1)",
                  "Command1.HasActiveConnection() -> True",
                  "Command1.SetActiveConnection(Nothing)",
                  "~Connection1",
                  "~Command1",
                  "~Recordset1",
              }});
}

TEST(CModeloRptTest, ListsEveryModelForAnEmptyCodeOnEveryDatabase) {
  for (const Database& database : Databases())
    EXPECT_EQ(Scenario(Report(L""), database).Run(),
              CommandCalls(database, {R"(Parametros.Get(CodModelo) -> "")"}, kAll, {}));
}

TEST(CModeloRptTest, ListsOneModelByAParameterOnEveryDatabase) {
  for (const Database& database : Databases())
    EXPECT_EQ(Scenario(Report(L"M01"), database).Run(),
              CommandCalls(database, {R"(Parametros.Get(CodModelo) -> "M01")"}, kOne,
                           {R"(Command1.AppendParameter("COD_MODELO", 200, 1, 128, "M01"))"}));
}

TEST(CModeloRptTest, ComparesTheCodeCutThenTrimmedAndUpperCased) {
  const std::pair<std::wstring, std::wstring> kCodes[] = {
      {L"m01", L"M01"},
      {L"  m 01 ", L"M 01"},
      {L"ação", L"AÇÃO"},
      {L" ", L""},
      {L"o'x", L"O'X"},
      {std::wstring(128, L'a'), std::wstring(128, L'A')},
      {std::wstring(129, L'a'), std::wstring(128, L'A')},
      {L"  " + std::wstring(128, L'a'), std::wstring(126, L'A')},
      {std::wstring(120, L'a') + std::wstring(8, L' ') + L"b", std::wstring(120, L'A')},
  };
  for (const auto& [given, compared] : kCodes)
    EXPECT_EQ(Scenario(Report(given), DatabaseOf(tbSQLServer)).Run(),
              CommandCalls(DatabaseOf(tbSQLServer), {"Parametros.Get(CodModelo) -> " + Quoted(Utf8(given))}, kOne,
                           {"Command1.AppendParameter(\"COD_MODELO\", 200, 1, 128, " + Quoted(Utf8(compared)) + ")"}));
}

TEST(CModeloRptTest, TakesACodeOfBlanksFromItsOwnParameterObjectForNone) {
  EXPECT_EQ(Scenario(Report(L""), DatabaseOf(tbSQLServer)).RunWithOwn({{L"CodModelo", L"   "}}),
            CommandCalls(DatabaseOf(tbSQLServer), {}, kAll, {}));
  EXPECT_EQ(Scenario(Report(L""), DatabaseOf(tbSQLServer)).RunWithOwn({{L"CodModelo", L" m01 "}}),
            CommandCalls(DatabaseOf(tbSQLServer), {}, kOne,
                         {R"(Command1.AppendParameter("COD_MODELO", 200, 1, 128, "M01"))"}));
}

TEST(CModeloRptTest, NamesThePropertyThatAnotherObjectDoesNotHave) { CheckPropertiesNeeded(Report(L"")); }

TEST(CModeloRptTest, RefusesANullCode) {
  EXPECT_EQ(Scenario(Report(Null{}), DatabaseOf(tbSQLServer)).RunRaising(),
            Framed("CModeloRpt::RelatorioModelos", "Uso de 'Null' inválido"));
}

TEST(CModeloRptTest, RaisesEveryErrorInItsFrame) { CheckFrame(Report(L"M01")); }

TEST(CModeloRptTest, WorksAgainAfterTheFailureOfAnyCall) {
  CheckFailures(Report(L"M01"));
  CheckFailures(Report(L""));
}

}  // namespace
}  // namespace kodra::reports
