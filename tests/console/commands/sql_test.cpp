// kodrarpt sql: whole statements, as each database gets them.
#include <gtest/gtest.h>

#include "tests/console/run.h"

namespace kodra::console {
namespace {

constexpr const char* kSubordinateNote =
    "nota: a expressão com NUM_SEQ vem do componente KodraBsnV3.ModulosBsn; o da instalação pode devolver outra\n";

TEST(SqlTest, PrintsAStatementInOneLine) {
  EXPECT_EQ(RunProgram({"sql", "CTipo_CaixaRpt", "--banco", "db2"}),
            Success("SELECT DESCR_TIPO_CX, NUM_MAX_DOCS, NUM_MAX_FOLHAS FROM TIPO_CAIXA WHERE COD_TIPO_CX<>'0' "
                    "ORDER BY DESCR_TIPO_CX;\n"));
}

TEST(SqlTest, PrintsTheStatementOfEachDatabaseUnderItsName) {
  EXPECT_EQ(
      RunProgram({"sql", "ccdrpt", "--TipoRpt", "vencidas", "--banco", "todos"}),
      Success("-- Oracle\n"
              "SELECT NUM_CD, DOC_INICIAL, DOC_FINAL, DATA_GRAVACAO, 'Mídias Vencidas' AS RELATORIO  FROM CD "
              "INNER JOIN TIPO_MIDIA t ON CD.COD_MIDIA=t.COD_MIDIA "
              "WHERE ADD_MONTHS(DATA_GRAVACAO, t.VALIDADE_MIDIA * 12) <= TRUNC(SYSDATE) ORDER BY NUM_CD;\n"
              "\n"
              "-- SQL Server\n"
              "SELECT NUM_CD, DOC_INICIAL, DOC_FINAL, DATA_GRAVACAO, 'Mídias Vencidas' AS RELATORIO  FROM CD "
              "INNER JOIN TIPO_MIDIA t ON CD.COD_MIDIA=t.COD_MIDIA "
              "WHERE DATEADD(yyyy, t.VALIDADE_MIDIA, DATA_GRAVACAO) <= DATEADD(dd, 0, DATEDIFF(dd, 0, GETDATE())) "
              "ORDER BY NUM_CD;\n"
              "\n"
              "-- MySQL\n"
              "SELECT NUM_CD, DOC_INICIAL, DOC_FINAL, DATA_GRAVACAO, 'Mídias Vencidas' AS RELATORIO  FROM CD "
              "INNER JOIN TIPO_MIDIA t ON CD.COD_MIDIA=t.COD_MIDIA "
              "WHERE DATE_ADD(DATA_GRAVACAO, INTERVAL t.VALIDADE_MIDIA YEAR) <= CURDATE() ORDER BY NUM_CD;\n"
              "\n"
              "-- DB2\n"
              "SELECT NUM_CD, DOC_INICIAL, DOC_FINAL, DATA_GRAVACAO, 'Mídias Vencidas' AS RELATORIO  FROM CD "
              "INNER JOIN TIPO_MIDIA t ON CD.COD_MIDIA=t.COD_MIDIA "
              "WHERE ADD_MONTHS(DATA_GRAVACAO, t.VALIDADE_MIDIA * 12) <= CURRENT DATE ORDER BY NUM_CD;\n"
              "\n"
              "-- SQLite\n"
              "SELECT NUM_CD, DOC_INICIAL, DOC_FINAL, DATA_GRAVACAO, 'Mídias Vencidas' AS RELATORIO  FROM CD "
              "INNER JOIN TIPO_MIDIA t ON CD.COD_MIDIA=t.COD_MIDIA "
              "WHERE date('DATA_GRAVACAO', '+t.VALIDADE_MIDIA years') <= date('now') ORDER BY NUM_CD;\n"));
}

TEST(SqlTest, PutsParametersIntoTheStatement) {
  EXPECT_EQ(RunProgram({"sql", "CDocumentoRpt.RelatorioSintetico", "--banco", "oracle", "--DataArmazenamento1",
                        "01/02/2024", "--DataArmazenamento2", "2024-02-29", "--CodDepto", "7"}),
            Success("SELECT d.COD_DOCTO, s.DESCR_SUPORTE, d.NUM_CAIXA, d.NUM_CD, d.DT_ARMAZ, d.DT_VENC, d.FRENTE, "
                    "d.VERSO  FROM DOCUMENTO d INNER JOIN SUPORTE s ON d.COD_SUPORTE = s.COD_SUPORTE WHERE (1=1) "
                    "AND d.DT_ARMAZ BETWEEN TO_DATE('2024/02/01','YYYY/MM/DD') AND TO_DATE('2024/02/29','YYYY/MM/DD') "
                    "AND d.COD_DEPTO = '7' ORDER BY d.COD_DOCTO;\n"));
}

TEST(SqlTest, NotesTheValueOfAParameterMarker) {
  EXPECT_EQ(RunProgram({"sql", "CModeloRpt", "--banco", "sqlserver", "--CodModelo", " ofício "}),
            Success("SELECT c.DESCR_CLASSE AS GRUPO, g.DESCR_GRUPO AS SUBGRUPO, a.DESCR_ASSUNTO AS SERIE, "
                    "a.DESCR_CHAVE1, a.DESCR_CHAVE2, a.DESCR_CHAVE3, a.DESCR_CHAVE4, a.DESCR_CHAVE5, m.CHAVE1, "
                    "m.CHAVE2, m.CHAVE3, m.CHAVE4, m.CHAVE5, m.VALIDADE FROM MODELO m INNER JOIN GRUPO g ON "
                    "m.COD_GRUPO = g.COD_GRUPO LEFT JOIN CLASSE c ON c.COD_CLASSE = g.COD_CLASSE INNER JOIN ASSUNTO a "
                    "ON m.COD_ASSUNTO = a.COD_ASSUNTO WHERE UPPER(m.COD_MODELO) = ? ORDER BY c.DESCR_CLASSE, "
                    "g.DESCR_GRUPO, a.DESCR_ASSUNTO;\n",
                    "kodrarpt: nota: no lugar de ? vai o texto 'OFÍCIO'\n"));
}

TEST(SqlTest, PrintsTheNameOfASystemParameterInsteadOfItsValue) {
  EXPECT_EQ(
      RunProgram({"sql", "CEstatSerieRpt", "--banco", "mysql", "--DataInicial", "01/03/2024", "--DataFinal",
                  "31/03/2024", "--TipoRpt", "n", "--CodGrupo", "12"}),
      Success(
          "SELECT 'ESTATÍSTICAS POR <NOME_SERIE>' AS Titulo, '(por número de documentos)' AS Subtitulo, "
          "'Período: 01/03/2024 a 31/03/2024' AS Periodo, CONCAT('<NOME_SUBGRUPO>: ',g.DESCR_GRUPO) AS "
          "Subgrupo, a.DESCR_ASSUNTO AS Serie, COUNT(CAST(d.FRENTE AS UNSIGNED)) AS Total FROM ASSUNTO a "
          "INNER JOIN GRUPO g ON a.COD_GRUPO = g.COD_GRUPO INNER JOIN DOCUMENTO d ON a.COD_ASSUNTO = "
          "d.COD_ASSUNTO WHERE (d.DT_ARMAZ BETWEEN STR_TO_DATE('01/03/2024','%d/%m/%Y') AND "
          "STR_TO_DATE('01/04/2024','%d/%m/%Y')) AND d.COD_ASSUNTO IN (SELECT COD_ASSUNTO FROM ASSUNTO WHERE "
          "COD_GRUPO='12') GROUP BY g.DESCR_GRUPO, a.DESCR_ASSUNTO ORDER BY a.DESCR_ASSUNTO;\n",
          "kodrarpt: nota: o nome entre os sinais < e > é o de um parâmetro do sistema: o relatório põe ali o valor da "
          "instalação, em maiúsculas no título\n"));
}

TEST(SqlTest, PrintsAStatementThatDependsOnTheDataOfTheFirst) {
  EXPECT_EQ(RunProgram({"sql", "RelatorioRetiradaOriginal", "--banco", "sqlite", "--CodSolicit", "3,4"}),
            Success("SELECT d.COD_DOCTO, d.NUM_CAIXA, s.DT_DEVOLUCAO, c.COORD_X AS FILEIRA, c.COORD_Y AS ESTANTE, "
                    "c.COORD_Z AS PRATELEIRA FROM SOLICITACAO s INNER JOIN DOCUMENTO d ON s.COD_DOCTO = d.COD_DOCTO "
                    "INNER JOIN CAIXA c ON d.NUM_CAIXA = c.NUM_CAIXA WHERE s.COD_SOLICIT IN (3,4) ORDER BY "
                    "d.NUM_CAIXA;\n"
                    "SELECT DISTINCT CASE WHEN o.NOME_COMPLETO IS NULL OR o.NOME_COMPLETO='' THEN o.DESCR_OPERADOR "
                    "ELSE o.NOME_COMPLETO END AS OPERADOR, CASE s.DEVOLVIDO WHEN 'P' THEN 'O documento será retirado "
                    "permanentemente.' WHEN 'I' THEN 'A devolução não tem data determinada para ocorrer.' WHEN 'D' "
                    "THEN 'A devolução deste documento deverá ser realizada em 30/12/1899.' END AS DEVOLUCAO, "
                    "s.OBS_SOLICIT FROM SOLICITACAO s INNER JOIN OPERADOR o ON s.COD_OPERADOR = o.COD_OPERADOR WHERE "
                    "s.COD_SOLICIT IN (3,4);\n",
                    "kodrarpt: nota: a segunda instrução depende dos dados da primeira: 30/12/1899 está no lugar da "
                    "data de devolução do último documento e, com dois ou mais documentos, as frases vão para o "
                    "plural\n"));
}

TEST(SqlTest, PrintsTheStatementThatIsSentIfTheFirstReturnsNoRow) {
  EXPECT_EQ(RunProgram({"sql", "AutorizacaoDescarteModuloSubRpt", "--banco", "oracle", "--Modulo1", "AB123"}),
            Success("SELECT d.COD_DOCTO, (SELECT COUNT(*) FROM DOCUMENTO dd WHERE dd.NUM_CAIXA = d.NUM_CAIXA) AS "
                    "TOTAL_DOCS, (SELECT SUM(TO_NUMBER(ddd.FRENTE)+TO_NUMBER(ddd.VERSO)) FROM DOCUMENTO ddd WHERE "
                    "ddd.NUM_CAIXA = d.NUM_CAIXA) AS TOTAL_PAGINAS  FROM DOCUMENTO d WHERE d.NUM_CAIXA = 'AB123' "
                    "ORDER BY d.COD_DOCTO;\n"
                    "SELECT ' ' AS COD_DOCTO, 0 AS TOTAL_DOCS, 0 AS TOTAL_PAGINAS FROM SYS.DUAL ;\n",
                    "kodrarpt: nota: a segunda instrução só é enviada se a primeira não devolver nenhuma linha\n"));
}

TEST(SqlTest, NotesThatAReportSendsNoStatement) {
  EXPECT_EQ(RunProgram({"sql", "CLogRpt", "--banco", "oracle"}),
            Success("",
                    "kodrarpt: nota: o relatório não envia nenhuma instrução: os eventos vêm do componente "
                    "KodraRegEvt.RegEvtDAO\n"));
}

TEST(SqlTest, PrintsNoHeadingsForAReportThatSendsNoStatement) {
  EXPECT_EQ(RunProgram({"sql", "CLogRpt", "--banco", "todos"}),
            Success("",
                    "kodrarpt: nota: o relatório não envia nenhuma instrução: os eventos vêm do componente "
                    "KodraRegEvt.RegEvtDAO\n"));
}

TEST(SqlTest, LaysOutWithNotesAsComments) {
  EXPECT_EQ(RunProgram({"sql", "EtiquetaFechamentoSubordinada", "--banco", "DB2", "--bonito", "--Modulo1", "AB123"}),
            Success(std::string("-- ") + kSubordinateNote +
                    "-- nota: a instrução só é enviada se o componente KodraBsnV3.ObtedorDeModulos encontrar um "
                    "subordinado fechado\n"
                    "SELECT\n"
                    "  c.DESC_CAIXA,\n"
                    "  s.NUM_CAIXA || SUBSTR(DIGITS(INTEGER(s.NUM_SEQ)), 9) AS NUM_CAIXA,\n"
                    "  s.DOC_INICIAL,\n"
                    "  s.DOC_FINAL,\n"
                    "  s.DATA_VENCIMENTO,\n"
                    "  s.TIPO_GUARDA,\n"
                    "  p.EMPRESA AS Nome_Empresa\n"
                    "FROM CAIXA c\n"
                    "INNER JOIN PARAMETRO p ON p.CODIGO = '1'\n"
                    "INNER JOIN CAIXA_SUBORDINADA s ON c.NUM_CAIXA = s.NUM_CAIXA\n"
                    "WHERE s.NUM_CAIXA = 'AB123'\n"
                    "ORDER BY NUM_CAIXA;\n"));
}

TEST(SqlTest, SeparatesLaidOutStatements) {
  EXPECT_EQ(RunProgram({"sql", "CContainerRpt.EtiquetaAbertura", "--banco", "mysql", "--bonito", "--Container1", "C1",
                        "--Container2", "C2"}),
            Success("SELECT cx.CONTAINER, cx.DATA_VENCIMENTO, cx.TIPO_GUARDA, p.EMPRESA AS NOME_EMPRESA\n"
                    "FROM CAIXA cx\n"
                    "INNER JOIN PARAMETRO p ON 1=1\n"
                    "WHERE cx.CONTAINER='C1';\n"
                    "\n"
                    "SELECT cx.CONTAINER, cx.DATA_VENCIMENTO, cx.TIPO_GUARDA, p.EMPRESA AS NOME_EMPRESA\n"
                    "FROM CAIXA cx\n"
                    "INNER JOIN PARAMETRO p ON 1=1\n"
                    "WHERE cx.CONTAINER='C2';\n"
                    "\n"
                    "SELECT cx.CONTAINER, cx.DATA_VENCIMENTO, cx.TIPO_GUARDA, p.EMPRESA AS NOME_EMPRESA\n"
                    "FROM CAIXA cx\n"
                    "INNER JOIN PARAMETRO p ON 1=1\n"
                    "WHERE cx.CONTAINER='';\n"));
}

TEST(SqlTest, RefusesAParameterThatTheReportDoesNotRead) {
  EXPECT_EQ(RunProgram({"sql", "CSerieRpt", "--banco", "db2", "--Owner", "eu"}),
            UsageFailure("CSerieRpt.RelatorioSeries não lê o parâmetro \"Owner\", nem nenhum outro"));
}

TEST(SqlTest, WarnsOfAPeriodThatEndsBeforeItBegins) {
  const RunResult result = RunProgram(
      {"sql", "CEstatImgRpt", "--banco", "mysql", "--DataInicial", "31/12/2024", "--DataFinal", "01/01/2024"});
  EXPECT_EQ(result.code, ExitCode::kOk);
  EXPECT_EQ(result.err, "kodrarpt: aviso: DataFinal é antes de DataInicial, e nenhuma data cai nesse período\n");
}

TEST(SqlTest, RefusesAnUnknownOption) {
  EXPECT_EQ(RunProgram({"sql", "CDeptoRpt", "--banko", "db2"}),
            UsageFailure("\"sql\" não tem a opção \"--banko\" (quis dizer \"--banco\"?)"));
}

TEST(SqlTest, RefusesAnUnknownDatabase) {
  EXPECT_EQ(
      RunProgram({"sql", "CDeptoRpt", "--banco", "orcale"}),
      UsageFailure("o banco \"orcale\" não existe (quis dizer \"oracle\"?); escolha oracle, sqlserver, mysql, db2, "
                   "sqlite ou todos"));
}

TEST(SqlTest, RefusesAnIncompleteCommandLine) {
  EXPECT_EQ(RunProgram({"sql", "CDeptoRpt"}), UsageFailure("falta --banco"));
  EXPECT_EQ(RunProgram({"sql", "--banco", "db2"}), UsageFailure("falta RELATÓRIO"));
}

}  // namespace
}  // namespace kodra::console
