#include "console/statements/every_statement.h"

#include <gtest/gtest.h>

#include "console/command_line/databases.h"
#include "console/command_line/report_name.h"
#include "sql/tipo_banco.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

std::vector<std::string> TextsOf(const std::vector<Statement>& statements) {
  std::vector<std::string> texts;
  for (const Statement& statement : statements) texts.push_back(values::ToUtf8(statement.text));
  return texts;
}

TEST(EveryStatementTest, HasEachFormOfAStatementOnceInTheDialectOfTheDatabase) {
  const EveryStatement every = EveryStatementOf(FindReport("CCDRpt"), sql::tbMySQL);
  EXPECT_EQ(TextsOf(every.ofReport),
            (std::vector<std::string>{
                "SELECT NUM_CD, DOC_INICIAL, DOC_FINAL, DATA_GRAVACAO, 'Mídias Vencidas' AS RELATORIO  FROM CD "
                "INNER JOIN TIPO_MIDIA t ON CD.COD_MIDIA=t.COD_MIDIA "
                "WHERE DATE_ADD(DATA_GRAVACAO, INTERVAL t.VALIDADE_MIDIA YEAR) <= CURDATE() ORDER BY NUM_CD",
                "SELECT NUM_CD, DOC_INICIAL, DOC_FINAL, DATA_GRAVACAO, 'Todas as Mídias' AS RELATORIO  FROM CD "
                "ORDER BY NUM_CD"}));
}

TEST(EveryStatementTest, HasWhatTheSiblingsSendInTheSameDialect) {
  const EveryStatement every = EveryStatementOf(FindReport("EtiquetaFechamentoSubordinada"), sql::tbOracle);
  EXPECT_EQ(TextsOf(every.ofSiblings),
            (std::vector<std::string>{
                "SELECT s.NUM_CAIXA || LPAD(TO_CHAR(s.NUM_SEQ), 2, '0') AS CODIGO, s.NUM_SEQ, s.DOC_INICIAL, "
                "s.DOC_FINAL, s.DATA_VENCIMENTO, s.DATA_FECHAMENTO, s.TIPO_GUARDA, s.ANOS_VENCIMENTO "
                "FROM CAIXA_SUBORDINADA s WHERE s.NUM_CAIXA = 'AA001' AND s.DATA_FECHAMENTO IS NOT NULL "
                "ORDER BY s.NUM_SEQ",
                "SELECT c.NUM_CAIXA FROM CAIXA c WHERE c.NUM_CAIXA = 'AA001'"}));
}

TEST(EveryStatementTest, HasOneForEveryReportOnEveryDatabase) {
  for (const reports::ReportMethod& method : reports::ReportMethods())
    for (const Database& database : Databases()) {
      const EveryStatement every = EveryStatementOf(method, database.code);
      EXPECT_FALSE(every.ofReport.empty() && every.ofSiblings.empty()) << NameOf(method) << " " << database.name;
    }
}

}  // namespace
}  // namespace kodra::console
