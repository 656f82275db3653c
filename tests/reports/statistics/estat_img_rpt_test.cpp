// Imaging production.
#include "reports/reports.h"

#include <gtest/gtest.h>

#include "tests/reports/report_scenario.h"
#include "tests/reports/statistics/march.h"

namespace kodra::reports {
namespace {

using recorder::Utf8;

constexpr auto kName = "CEstatImgRpt::RelatorioEstatisticas";

// What a client chooses.
struct Choice {
  std::wstring operatorCode;
  std::wstring departmentCode;
  std::wstring kind;
};

Subject Report(const Choice& choice, const Value& owner = L"X") {
  return SubjectOf(kName, &CEstatImgRpt::RelatorioEstatisticas,
                   {{L"Owner", {owner}},
                    {L"DataInicial", {k1March2024}},
                    {L"DataFinal", {k31March2024}},
                    {L"CodOperador", {choice.operatorCode}},
                    {L"CodDepto", {choice.departmentCode}},
                    {L"TipoRpt", {choice.kind}}});
}

CallLines Reads(const Choice& choice) {
  return MarchReads({{"CodOperador", Utf8(choice.operatorCode)},
                     {"CodDepto", Utf8(choice.departmentCode)},
                     {"Owner", "X"},
                     {"TipoRpt", Utf8(choice.kind)}});
}

// The columns of each kind of report.
struct Kind {
  const wchar_t* kind;
  std::string columns;
};
const Kind kKinds[] = {
    {L"P", ", d.FRENTE, d.VERSO "}, {L"F", ", d.FRENTE "},    {L"N", ", d.COD_DOCTO "},  {L"", ", d.COD_DOCTO "},
    {L"p", ", d.COD_DOCTO "},       {L"f", ", d.COD_DOCTO "}, {L"PP", ", d.COD_DOCTO "}, {L" P", ", d.COD_DOCTO "},
};

std::string AllStatement(const std::string& columns, const std::string& inMarch) {
  return "SELECT 'Período: 01/03/2024 a 31/03/2024' AS TIT1, 'Todos os Operadores' AS OPERADOR, "
         "'Todos os Departamentos' AS DEPTO, d.DT_ARMAZ, p.EMPRESA AS FUNDO, 'X' AS OWNER" +
         columns +
         " FROM DOCUMENTO d INNER JOIN SUPORTE s ON d.COD_SUPORTE = s.COD_SUPORTE "
         "INNER JOIN PARAMETRO p ON p.CODIGO = '1' WHERE d.DT_ARMAZ" +
         inMarch + " AND d.NUM_CAIXA <> 'AA000'  AND s.DESCR_SUPORTE <> 'DIGITAL' ";
}

std::string OperatorStatement(const std::string& columns, const std::string& inMarch) {
  return "SELECT 'Período: 01/03/2024 a 31/03/2024' AS TIT1, o.DESCR_OPERADOR AS OPERADOR, "
         "'Todos os Departamentos' AS DEPTO, d.DT_ARMAZ, p.EMPRESA AS FUNDO, 'X' AS OWNER" +
         columns +
         " FROM DOCUMENTO d INNER JOIN SUPORTE s ON d.COD_SUPORTE = s.COD_SUPORTE "
         "INNER JOIN OPERADOR o ON d.COD_OPERADOR = o.COD_OPERADOR "
         "INNER JOIN PARAMETRO p ON p.CODIGO = '1' WHERE d.DT_ARMAZ" +
         inMarch + " AND d.NUM_CAIXA <> 'AA000'  AND s.DESCR_SUPORTE <> 'DIGITAL'  AND d.COD_OPERADOR = '7'";
}

std::string DepartmentStatement(const std::string& columns, const std::string& inMarch) {
  return "SELECT 'Período: 01/03/2024 a 31/03/2024' AS TIT1, 'Todos os Operadores' AS OPERADOR, "
         "dp.DESCR_DEPTO AS DEPTO, d.DT_ARMAZ, p.EMPRESA AS FUNDO, 'X' AS OWNER" +
         columns +
         " FROM DOCUMENTO d INNER JOIN SUPORTE s ON d.COD_SUPORTE = s.COD_SUPORTE "
         "INNER JOIN DEPTO dp ON d.COD_DEPTO = dp.COD_DEPTO "
         "INNER JOIN PARAMETRO p ON p.CODIGO = '1' WHERE d.DT_ARMAZ" +
         inMarch + " AND d.NUM_CAIXA <> 'AA000'  AND s.DESCR_SUPORTE <> 'DIGITAL'  AND d.COD_DEPTO = 'D01'";
}

std::string BothStatement(const std::string& columns, const std::string& inMarch) {
  return "SELECT 'Período: 01/03/2024 a 31/03/2024' AS TIT1, o.DESCR_OPERADOR AS OPERADOR, "
         "dp.DESCR_DEPTO AS DEPTO, d.DT_ARMAZ, p.EMPRESA AS FUNDO, 'X' AS OWNER" +
         columns +
         " FROM DOCUMENTO d INNER JOIN SUPORTE s ON d.COD_SUPORTE = s.COD_SUPORTE "
         "INNER JOIN OPERADOR o ON d.COD_OPERADOR = o.COD_OPERADOR "
         "INNER JOIN DEPTO dp ON d.COD_DEPTO = dp.COD_DEPTO "
         "INNER JOIN PARAMETRO p ON p.CODIGO = '1' WHERE d.DT_ARMAZ" +
         inMarch +
         " AND d.NUM_CAIXA <> 'AA000'  AND s.DESCR_SUPORTE <> 'DIGITAL'  AND d.COD_OPERADOR = '7' "
         "AND d.COD_DEPTO = 'D01'";
}

// Expects that statement of every kind of report on every database.
void CheckChoice(const std::wstring& operatorCode, const std::wstring& departmentCode,
                 std::string (*statement)(const std::string&, const std::string&)) {
  for (const auto& [code, inMarch] : kInMarch)
    for (const auto& [kind, columns] : kKinds) {
      const Choice choice = {operatorCode, departmentCode, kind};
      CheckListing(DatabaseOf(code), Report(choice), statement(columns, inMarch), Reads(choice));
    }
}

TEST(CEstatImgRptTest, UsesNoOtherTablesForAllOperatorsAndDepartments) { CheckChoice(L"", L"", AllStatement); }

TEST(CEstatImgRptTest, CountsWhatAnOperatorStored) { CheckChoice(L"7", L"", OperatorStatement); }

TEST(CEstatImgRptTest, CountsTheDocumentsOfADepartment) { CheckChoice(L"", L"D01", DepartmentStatement); }

TEST(CEstatImgRptTest, CountsWhatAnOperatorStoredOfADepartment) { CheckChoice(L"7", L"D01", BothStatement); }

TEST(CEstatImgRptTest, IsOneWholeStatementOnOracle) {
  CheckListing(DatabaseOf(tbOracle), Report({L"7", L"", L"F"}),
               "SELECT 'Período: 01/03/2024 a 31/03/2024' AS TIT1, o.DESCR_OPERADOR AS OPERADOR, "
               "'Todos os Departamentos' AS DEPTO, d.DT_ARMAZ, p.EMPRESA AS FUNDO, 'X' AS OWNER, d.FRENTE  "
               "FROM DOCUMENTO d INNER JOIN SUPORTE s ON d.COD_SUPORTE = s.COD_SUPORTE "
               "INNER JOIN OPERADOR o ON d.COD_OPERADOR = o.COD_OPERADOR INNER JOIN PARAMETRO p ON p.CODIGO = '1' "
               "WHERE d.DT_ARMAZ BETWEEN TO_DATE('01/03/2024','DD/MM/YYYY') AND TO_DATE('31/03/2024','DD/MM/YYYY') "
               "AND d.NUM_CAIXA <> 'AA000'  AND s.DESCR_SUPORTE <> 'DIGITAL'  AND d.COD_OPERADOR = '7'",
               Reads({L"7", L"", L"F"}));
}

TEST(CEstatImgRptTest, IncludesTheLastDayOfThePeriod) {
  Subject report = Report({L"", L"", L""});
  report.parameters[L"DataInicial"] = {k31March2024};
  Scenario scenario(report, DatabaseOf(tbSQLServer));
  const std::string calls = scenario.Run();
  EXPECT_NE(calls.find("WHERE d.DT_ARMAZ BETWEEN '20240331' AND '20240331' AND d.NUM_CAIXA <> 'AA000'  "
                       "AND s.DESCR_SUPORTE <> 'DIGITAL' \", Connection1, 0, 1, 1)\n"),
            std::string::npos)
      << calls;
}

TEST(CEstatImgRptTest, TakesOneLetterInUpperCaseAndTrimmedCodesFromItsOwnParameterObject) {
  EXPECT_EQ(Scenario(Report({}), DatabaseOf(tbSQLServer))
                .RunWithOwn({{L"DataInicial", k1March2024},
                             {L"DataFinal", k31March2024},
                             {L"Owner", L"X"},
                             {L"CodOperador", L" 7 "},
                             {L"CodDepto", L"  "},
                             {L"TipoRpt", L"páginas"}}),
            ListingCalls(DatabaseOf(tbSQLServer),
                         OperatorStatement(", d.FRENTE, d.VERSO ", " BETWEEN '20240301' AND '20240331'")));
}

TEST(CEstatImgRptTest, InsertsTheOwnerAsItIs) {
  const std::string calls = Scenario(Report({}, L"Arquivo d'Oeste"), DatabaseOf(tbSQLServer)).Run();
  EXPECT_NE(calls.find(", 'Arquivo d'Oeste' AS OWNER, d.COD_DOCTO  FROM "), std::string::npos) << calls;
}

TEST(CEstatImgRptTest, RefusesADatabaseWithoutDialectBeforeItConnects) {
  CheckDialectNeeded(Report({L"7", L"", L"F"}), Reads({L"7", L"", L"F"}));
}

TEST(CEstatImgRptTest, NamesThePropertyThatAnotherObjectDoesNotHave) { CheckPropertiesNeeded(Report({})); }

TEST(CEstatImgRptTest, RaisesEveryErrorInItsFrame) { CheckFrame(Report({L"7", L"D01", L"P"})); }

TEST(CEstatImgRptTest, WorksAgainAfterTheFailureOfAnyCall) {
  CheckFailures(Report({L"7", L"D01", L"P"}), kCodesWithDialect);
}

}  // namespace
}  // namespace kodra::reports
