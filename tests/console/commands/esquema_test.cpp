// kodrarpt esquema: whole outputs.
#include <gtest/gtest.h>

#include "tests/console/run.h"

namespace kodra::console {
namespace {

TEST(EsquemaTest, ShowsTheColumnsOfAReportWithTheTypesOfTheDatabase) {
  EXPECT_EQ(RunProgram({"esquema", "CCDRpt", "--banco", "oracle"}), Success("CCDRpt.RelatorioMidias\n"
                                                                            "  CD\n"
                                                                            "    NUM_CD         VARCHAR2(10)\n"
                                                                            "    DOC_INICIAL    VARCHAR2(10)\n"
                                                                            "    DOC_FINAL      VARCHAR2(10)\n"
                                                                            "    DATA_GRAVACAO  DATE\n"
                                                                            "    COD_MIDIA      VARCHAR2(10)\n"
                                                                            "  TIPO_MIDIA\n"
                                                                            "    COD_MIDIA       VARCHAR2(10)\n"
                                                                            "    VALIDADE_MIDIA  NUMBER(10)\n"));
}

TEST(EsquemaTest, NamesTheTablesThatOtherComponentsRead) {
  EXPECT_EQ(RunProgram({"esquema", "CLogRpt", "--banco", "sqlserver"}),
            Success("CLogRpt.RelatorioLog\n"
                    "  Pelos outros componentes do sistema:\n"
                    "  EVENTO\n"
                    "    DATA_INICIAL   DATETIME\n"
                    "    NOME_OPERADOR  VARCHAR(300)\n"
                    "    MAQUINA        VARCHAR(255)\n"
                    "    COD_DOCTO      VARCHAR(10)\n"
                    "    TIPO_EVENTO    VARCHAR(3)\n"
                    "    ACAO           VARCHAR(MAX)\n"
                    "    COD_EVENTO     INT\n"));
}

TEST(EsquemaTest, ShowsEveryReportOfEveryDatabase) {
  const RunResult result = RunProgram({"esquema", "--banco", "todos"});
  EXPECT_EQ(result.code, ExitCode::kOk);
  for (const char* database : {"-- Oracle\nCCDRpt.", "\n\n-- SQL Server\nCCDRpt.", "\n\n-- MySQL\nCCDRpt.",
                               "\n\n-- DB2\nCCDRpt.", "\n\n-- SQLite\nCCDRpt."})
    EXPECT_NE(result.out.find(database), std::string::npos) << database;
  std::size_t reports = 0;
  for (std::size_t at = result.out.find("Rpt."); at != std::string::npos; at = result.out.find("Rpt.", at + 1))
    ++reports;
  EXPECT_EQ(reports, 5 * 39U);
}

TEST(EsquemaTest, PrintsTheIndexesWithTheReportsThatTheySpeedUp) {
  EXPECT_EQ(RunProgram({"esquema", "--banco", "sqlite", "--indices"}),
            Success("-- Acelera: CCaixaRpt.ModulosVencidos, CCaixaRpt.AutorizacaoDescarteModuloSubRpt, "
                    "CCaixaRpt.DocsNoModuloSubRpt, CCaixaRpt.EtiquetaDivisoria\n"
                    "CREATE INDEX IX_DOCUMENTO_NUM_CAIXA ON DOCUMENTO (NUM_CAIXA);\n"
                    "-- Acelera: CSolicitacaoRpt.RelatorioRetiradaOriginal\n"
                    "CREATE INDEX IX_DOCUMENTO_COD_DOCTO ON DOCUMENTO (COD_DOCTO);\n"
                    "-- Acelera: CDocumentoRpt.RelatorioSintetico, CDocumentoRpt.RelatorioAnalitico, "
                    "CDocumentoRpt.RelatorioInventarios\n"
                    "CREATE INDEX IX_DOCUMENTO_COD_DEPTO ON DOCUMENTO (COD_DEPTO);\n"
                    "-- Acelera: CCaixaRpt.DocsNaoIndexadosNosModulos\n"
                    "CREATE INDEX IX_DOCUMENTO_COD_ASSUNTO ON DOCUMENTO (COD_ASSUNTO);\n"
                    "-- Acelera: CSolicitacaoRpt.RelatorioRetiradaOriginal\n"
                    "CREATE INDEX IX_SOLICITACAO_COD_SOLICIT ON SOLICITACAO (COD_SOLICIT);\n"
                    "-- Acelera: CLogRpt.RelatorioLog\n"
                    "CREATE INDEX IX_EVENTO_DATA_INICIAL ON EVENTO (DATA_INICIAL);\n"));
}

TEST(EsquemaTest, PrintsTheIndexesForPeriodsWhereAPeriodFindsDocuments) {
  const RunResult result = RunProgram({"esquema", "--banco", "db2", "--indices"});
  EXPECT_NE(result.out.find("-- Acelera: CDocumentoRpt.RelatorioSintetico, CDocumentoRpt.RelatorioAnalitico, "
                            "CDocumentoRpt.RelatorioInventarios, CEstatImgRpt.RelatorioEstatisticas, "
                            "CEstatSuporteRpt.RelatorioEstatisticas, CEstatSubgrupoRpt.RelatorioEstatisticas\n"
                            "CREATE INDEX IX_DOCUMENTO_DT_ARMAZ ON DOCUMENTO (DT_ARMAZ);\n"
                            "-- Acelera: CEstatIndexRpt.RelatorioEstatisticasPorDocumento\n"
                            "CREATE INDEX IX_DOCUMENTO_DATA_INDEXACAO ON DOCUMENTO (DATA_INDEXACAO);\n"),
            std::string::npos)
      << result.out;
}

TEST(EsquemaTest, PrintsThePermissionToReadEveryTable) {
  EXPECT_EQ(RunProgram({"esquema", "--banco", "mysql", "--permissoes", "ana@localhost"}),
            Success("GRANT SELECT ON PARAMETRO TO 'ana'@'localhost';\n"
                    "GRANT SELECT ON CLASSE TO 'ana'@'localhost';\n"
                    "GRANT SELECT ON GRUPO TO 'ana'@'localhost';\n"
                    "GRANT SELECT ON ASSUNTO TO 'ana'@'localhost';\n"
                    "GRANT SELECT ON DICIONARIO TO 'ana'@'localhost';\n"
                    "GRANT SELECT ON MODELO TO 'ana'@'localhost';\n"
                    "GRANT SELECT ON SUPORTE TO 'ana'@'localhost';\n"
                    "GRANT SELECT ON TIPO_MIDIA TO 'ana'@'localhost';\n"
                    "GRANT SELECT ON CD TO 'ana'@'localhost';\n"
                    "GRANT SELECT ON DEPTO TO 'ana'@'localhost';\n"
                    "GRANT SELECT ON GRUPOS_OPERADORES TO 'ana'@'localhost';\n"
                    "GRANT SELECT ON OPERADOR TO 'ana'@'localhost';\n"
                    "GRANT SELECT ON DEPOSITO TO 'ana'@'localhost';\n"
                    "GRANT SELECT ON CONTAINER TO 'ana'@'localhost';\n"
                    "GRANT SELECT ON TIPO_CAIXA TO 'ana'@'localhost';\n"
                    "GRANT SELECT ON CAIXA TO 'ana'@'localhost';\n"
                    "GRANT SELECT ON CAIXA_SUBORDINADA TO 'ana'@'localhost';\n"
                    "GRANT SELECT ON DOCUMENTO TO 'ana'@'localhost';\n"
                    "GRANT SELECT ON SOLICITACAO TO 'ana'@'localhost';\n"
                    "GRANT SELECT ON EVENTO TO 'ana'@'localhost';\n"));
}

TEST(EsquemaTest, SaysThatSQLiteHasNoUsers) {
  EXPECT_EQ(RunProgram({"esquema", "--banco", "sqlite", "--permissoes", "ana"}),
            Success("-- O SQLite não tem usuários: quem pode ler o arquivo do banco pode ler todas as tabelas.\n"));
}

TEST(EsquemaTest, RefusesAUserThatNoStatementCanName) {
  EXPECT_EQ(RunProgram({"esquema", "--banco", "oracle", "--permissoes", "ana\" WITH GRANT OPTION"}),
            UsageFailure("o usuário \"ana\" WITH GRANT OPTION\" não é um nome que possa ir para uma instrução SQL"));
}

TEST(EsquemaTest, RefusesAnEmptyUser) {
  EXPECT_EQ(RunProgram({"esquema", "--banco", "oracle", "--permissoes", ""}),
            UsageFailure("o usuário \"\" não é um nome que possa ir para uma instrução SQL"));
}

TEST(EsquemaTest, ShowsOneThingAtATime) {
  const RunResult refusal = UsageFailure("informe só um: RELATÓRIO, --indices ou --permissoes");
  EXPECT_EQ(RunProgram({"esquema", "--banco", "oracle", "--indices", "--permissoes", "ANA"}), refusal);
  EXPECT_EQ(RunProgram({"esquema", "CCDRpt", "--banco", "oracle", "--indices"}), refusal);
  EXPECT_EQ(RunProgram({"esquema", "CCDRpt", "--banco", "oracle", "--permissoes", "ANA"}), refusal);
}

}  // namespace
}  // namespace kodra::console
