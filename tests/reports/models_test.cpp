// The document models.
#include "reports/reports.h"

#include <gtest/gtest.h>

#include "frame/parameter_object.h"
#include "tests/reports/listing_checks.h"

namespace kodra::reports {
namespace {

using recorder::Framed;
using recorder::RaisedBy;
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

std::string AllCalls(const Database& database, const std::vector<std::string>& parameterReads,
                     const std::string& statement, const std::vector<std::string>& commandParameters) {
  std::string calls;
  const auto add = [&](const std::vector<std::string>& lines) {
    for (const std::string& line : lines) calls += line + "\n";
  };
  add(InitialisationLines(database));
  add(parameterReads);
  add({"NewCommand() -> Command1"});
  add(OpeningLines(database));
  add({
      "Command1.SetActiveConnection(Connection1)",
      "Command1.SetCommandText(\"" + statement + "\")",
      "Command1.SetCommandType(1)",
  });
  add(commandParameters);
  add({
      "NewRecordset() -> Recordset1",
      "Recordset1.SetCursorType(2)",
      "Recordset1.SetCursorLocation(3)",
      "Recordset1.Open(Command1, missing, -1, -1, -1)",
      "Command1.HasActiveConnection() -> True",
      "Command1.SetActiveConnection(Nothing)",
      "~Connection1",
      "~Command1",
      "~Recordset1",
  });
  return calls;
}

TEST(CModeloRptTest, ListsEveryModelForAnEmptyCodeOnEveryDatabase) {
  for (const Database& database : Databases())
    EXPECT_EQ(Stage(Report(L""), database).Run(), AllCalls(database, {R"(Parametros.Get(CodModelo) -> "")"}, kAll, {}));
}

TEST(CModeloRptTest, ListsOneModelByAParameterOnEveryDatabase) {
  for (const Database& database : Databases())
    EXPECT_EQ(Stage(Report(L"M01"), database).Run(),
              AllCalls(database, {R"(Parametros.Get(CodModelo) -> "M01")"}, kOne,
                       {R"(Command1.AppendParameter("COD_MODELO", 200, 1, 128, "M01"))"}));
}

struct Code {
  std::wstring given;
  std::wstring compared;
};

class CModeloRptCodeTest : public testing::TestWithParam<Code> {};

TEST_P(CModeloRptCodeTest, ComparesTheCodeCutThenTrimmedAndUpperCased) {
  const Database& database = DatabaseOf(2);
  EXPECT_EQ(Stage(Report(GetParam().given), database).Run(),
            AllCalls(database, {"Parametros.Get(CodModelo) -> \"" + Utf8(GetParam().given) + "\""}, kOne,
                     {"Command1.AppendParameter(\"COD_MODELO\", 200, 1, 128, \"" + Utf8(GetParam().compared) + "\")"}));
}

INSTANTIATE_TEST_SUITE_P(
    Codes, CModeloRptCodeTest,
    testing::Values(Code{L"m01", L"M01"}, Code{L"  m 01 ", L"M 01"}, Code{L"ação", L"AÇÃO"}, Code{L" ", L""},
                    Code{L"o'x", L"O'X"}, Code{std::wstring(128, L'a'), std::wstring(128, L'A')},
                    Code{std::wstring(129, L'a'), std::wstring(128, L'A')},
                    Code{L"  " + std::wstring(128, L'a'), std::wstring(126, L'A')},
                    Code{std::wstring(120, L'a') + std::wstring(8, L' ') + L"b", std::wstring(120, L'A')}));

TEST(CModeloRptTest, TakesACodeOfBlanksFromItsOwnParameterObjectForNone) {
  Stage stage(Report(L""), DatabaseOf(2));
  frame::ParameterObject parameters(frame::ParameterClassNamed(L"CModeloRptObj"));
  frame::ReportObject report(L"CModeloRpt", stage.around);
  report.SetStringConexao(L"Provider=SQLNCLI11;Data Source=arquivo;");
  parameters.Let(L"CodModelo", L"   ");
  frame::Run(report, L"RelatorioModelos", &CModeloRpt::RelatorioModelos, &parameters);
  EXPECT_EQ(stage.around.journal.Calls(), AllCalls(DatabaseOf(2), {}, kAll, {}));
  stage.around.journal.Forget();
  parameters.Let(L"CodModelo", L" m01 ");
  frame::Run(report, L"RelatorioModelos", &CModeloRpt::RelatorioModelos, &parameters);
  EXPECT_EQ(stage.around.journal.Calls(),
            AllCalls(DatabaseOf(2), {}, kOne, {R"(Command1.AppendParameter("COD_MODELO", 200, 1, 128, "M01"))"}));
}

TEST(CModeloRptTest, NamesThePropertyThatAnotherObjectDoesNotHave) {
  Subject report = Report(L"");
  report.parameters = {{L"Owner", {L"Arquivo"}}};
  Stage stage(report, DatabaseOf(2));
  EXPECT_EQ(RaisedBy([&] { stage.Call(); }),
            Framed("CModeloRpt::RelatorioModelos", R"(O objeto de parâmetros não tem a propriedade "CodModelo".)"));
}

TEST(CModeloRptTest, RefusesANullCode) {
  Stage stage(Report(Null{}), DatabaseOf(2));
  EXPECT_EQ(RaisedBy([&] { stage.Call(); }), Framed("CModeloRpt::RelatorioModelos", "Uso de 'Null' inválido"));
}

TEST(CModeloRptTest, RaisesEveryErrorInItsFrame) { CheckFrame(Report(L"M01")); }

TEST(CModeloRptTest, OutlivesTheFailureOfAnyCall) {
  CheckFailures(Report(L"M01"));
  CheckFailures(Report(L""));
}

}  // namespace
}  // namespace kodra::reports
