// Compares what each report needs with a table written by hand, with the schema of the sample archive and with the
// statements of all dialects.
#include "console/statements/needs.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <sstream>

#include "console/command_line/databases.h"
#include "console/command_line/report_name.h"
#include "console/statements/capture.h"
#include "testbed/archive/schema.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

using values::ToUtf8;
using Columns = std::map<std::string, std::set<std::string>>;  // by table

struct Expected {
  std::string report;
  // "TABLE: COLUMN COLUMN".
  std::vector<std::string> tables = {};
  std::vector<std::string> siblingTables = {};
  // In the order in which the report asks for them.
  std::vector<std::string> siblings = {};
};

const std::vector<Expected> kExpected = {
    {.report = "CCDRpt.RelatorioMidias",
     .tables = {"CD: NUM_CD DOC_INICIAL DOC_FINAL DATA_GRAVACAO COD_MIDIA", "TIPO_MIDIA: COD_MIDIA VALIDADE_MIDIA"}},
    {.report = "CTipo_MidiaRpt.RelatorioTiposMidia",
     .tables = {"TIPO_MIDIA: DESCR_MIDIA VALIDADE_MIDIA CAPACIDADE_MIDIA"}},
    {.report = "CSuporteRpt.RelatorioSuportes", .tables = {"SUPORTE: DESCR_SUPORTE"}},
    {.report = "CSerieRpt.RelatorioSeries",
     .tables =
         {"ASSUNTO: COD_GRUPO DESCR_ASSUNTO OBS_ASSUNTO DONO IDC_ATIVO DESCR_CHAVE1 DESCR_CHAVE2 DESCR_CHAVE3 "
          "DESCR_CHAVE4 DESCR_CHAVE5 OBRIGATORIA2 OBRIGATORIA3 OBRIGATORIA4 OBRIGATORIA5 MASK1 MASK2 MASK3 MASK4 MASK5",
          "GRUPO: COD_GRUPO DESCR_GRUPO COD_CLASSE", "OPERADOR: COD_OPERADOR DESCR_OPERADOR",
          "CLASSE: COD_CLASSE DESCR_CLASSE", "PARAMETRO: CODIGO NOMEGRUPO NOMESUBGRUPO NOMESERIE NOMESERIEPLURAL"}},
    {.report = "CDepositoRpt.RelatorioDepositos",
     .tables = {"DEPOSITO: NOME ENDERECO CIDADE ESTADO CEP TELEFONE FAX CONTATO"}},
    {.report = "CDicionarioRpt.RelatorioTermosControlados",
     .tables = {"DICIONARIO: COD_ASSUNTO COD_PALAVRA DESCR_DICIONARIO",
                "ASSUNTO: COD_ASSUNTO COD_GRUPO DESCR_ASSUNTO DESCR_CHAVE1 DESCR_CHAVE2 DESCR_CHAVE3 DESCR_CHAVE4 "
                "DESCR_CHAVE5",
                "GRUPO: COD_GRUPO DESCR_GRUPO"}},
    {.report = "CDeptoRpt.RelatorioDeptos", .tables = {"DEPTO: DESCR_DEPTO ENDERECO CIDADE ESTADO CEP END_EMAIL"}},
    {.report = "CGrupoRpt.RelatorioGrupos", .tables = {"CLASSE: DESCR_CLASSE OBS_CLASSE"}},
    {.report = "CModeloRpt.RelatorioModelos",
     .tables = {"MODELO: COD_MODELO COD_GRUPO COD_ASSUNTO CHAVE1 CHAVE2 CHAVE3 CHAVE4 CHAVE5 VALIDADE",
                "GRUPO: COD_GRUPO COD_CLASSE DESCR_GRUPO", "CLASSE: COD_CLASSE DESCR_CLASSE",
                "ASSUNTO: COD_ASSUNTO DESCR_ASSUNTO DESCR_CHAVE1 DESCR_CHAVE2 DESCR_CHAVE3 DESCR_CHAVE4 DESCR_CHAVE5"}},
    {.report = "CTipo_CaixaRpt.RelatorioTiposModulo",
     .tables = {"TIPO_CAIXA: COD_TIPO_CX DESCR_TIPO_CX NUM_MAX_DOCS NUM_MAX_FOLHAS"}},
    {.report = "CGrupoOperadorRpt.RelatorioGruposOperadores", .tables = {"GRUPOS_OPERADORES: DESCR_GRPOP OBS_GRPOP"}},
    {.report = "CSubgrupoRpt.RelatorioSubgrupos",
     .tables = {"GRUPO: COD_CLASSE DESCR_GRUPO OBS_GRUPO IDC_ATIVO", "CLASSE: COD_CLASSE DESCR_CLASSE"}},
    {.report = "COperadorRpt.RelatorioOperadores",
     .tables = {"OPERADOR: COD_DEPTO COD_GRPOP DESCR_OPERADOR NOME_COMPLETO TIPO CHAPA RAMAL IDC_ATIVO OPCOES_PESSOAIS",
                "DEPTO: COD_DEPTO DESCR_DEPTO", "GRUPOS_OPERADORES: COD_GRPOP DESCR_GRPOP"},
     .siblings = {"KodraBsnV3.ObtedorDeTiposOperadores"}},
    {.report = "CDocumentoRpt.RelatorioSintetico",
     .tables = {"DOCUMENTO: COD_DOCTO COD_SUPORTE COD_DEPTO NUM_CAIXA NUM_CD DT_ARMAZ DT_VENC FRENTE VERSO",
                "SUPORTE: COD_SUPORTE DESCR_SUPORTE"}},
    {.report = "CDocumentoRpt.RelatorioAnalitico",
     .tables =
         {"DOCUMENTO: COD_DOCTO COD_SUPORTE COD_OPERADOR COD_ASSUNTO COD_GRUPO COD_DEPTO DESCR_CHAVE1 DESCR_CHAVE2 "
          "DESCR_CHAVE3 DESCR_CHAVE4 DESCR_CHAVE5 DT_ARMAZ ARQUIVO OBS FRENTE NUM_CAIXA DT_VENC VERSO NUM_CD",
          "SUPORTE: COD_SUPORTE DESCR_SUPORTE", "OPERADOR: COD_OPERADOR DESCR_OPERADOR",
          "ASSUNTO: COD_ASSUNTO DESCR_ASSUNTO", "GRUPO: COD_GRUPO DESCR_GRUPO"}},
    {.report = "CDocumentoRpt.RelatorioInventarios",
     .tables = {"DOCUMENTO: COD_DOCTO COD_ASSUNTO COD_GRUPO COD_DEPTO NUM_CAIXA MACO DT_ARMAZ DESCR_CHAVE1 "
                "DESCR_CHAVE2 DESCR_CHAVE3 DESCR_CHAVE4 DESCR_CHAVE5 OBS EXTENSAO",
                "ASSUNTO: COD_ASSUNTO DESCR_ASSUNTO DESCR_CHAVE1 DESCR_CHAVE2 DESCR_CHAVE3 DESCR_CHAVE4 DESCR_CHAVE5",
                "GRUPO: COD_GRUPO DESCR_GRUPO"}},
    {.report = "CSolicitacaoRpt.RelatorioRetiradaOriginal",
     .tables = {"SOLICITACAO: COD_SOLICIT COD_DOCTO COD_OPERADOR DEVOLVIDO DT_DEVOLUCAO OBS_SOLICIT",
                "DOCUMENTO: COD_DOCTO NUM_CAIXA", "CAIXA: NUM_CAIXA COORD_X COORD_Y COORD_Z",
                "OPERADOR: COD_OPERADOR NOME_COMPLETO DESCR_OPERADOR"},
     .siblings = {"VantLib.Conversoes"}},
    {.report = "CSolicitacaoRpt.RelatorioDevolucaoOriginal",
     .tables = {"SOLICITACAO: COD_DOCTO COD_OPERADOR DT_RETIRADA DEVOLVIDO DT_DEVOLUCAO",
                "OPERADOR: COD_OPERADOR NOME_COMPLETO DESCR_OPERADOR"}},
    {.report = "CLogRpt.RelatorioLog",
     .siblingTables = {"EVENTO: COD_EVENTO DATA_INICIAL NOME_OPERADOR MAQUINA COD_DOCTO TIPO_EVENTO ACAO"},
     .siblings = {"KodraRegEvt.RegEvtFind", "KodraRegEvt.RegEvtDAO"}},
    {.report = "CCaixaRpt.EtiquetaAbertura",
     .tables = {"CAIXA: NUM_CAIXA DESC_CAIXA TIPO_GUARDA ANOS_VENCIMENTO",
                "CAIXA_SUBORDINADA: NUM_CAIXA NUM_SEQ TIPO_GUARDA ANOS_VENCIMENTO"},
     .siblings = {"KodraBsnV3.ModulosBsn"}},
    {.report = "CCaixaRpt.EtiquetaFechamento",
     .tables = {"CAIXA: NUM_CAIXA DESC_CAIXA DOC_INICIAL DOC_FINAL DATA_VENCIMENTO TIPO_GUARDA",
                "PARAMETRO: CODIGO EMPRESA"}},
    {.report = "CCaixaRpt.EtiquetaFechamentoSubordinada",
     .tables = {"CAIXA: NUM_CAIXA DESC_CAIXA",
                "CAIXA_SUBORDINADA: NUM_CAIXA NUM_SEQ DOC_INICIAL DOC_FINAL DATA_VENCIMENTO TIPO_GUARDA",
                "PARAMETRO: CODIGO EMPRESA"},
     .siblingTables = {"CAIXA: NUM_CAIXA",
                       "CAIXA_SUBORDINADA: NUM_CAIXA NUM_SEQ DOC_INICIAL DOC_FINAL DATA_VENCIMENTO DATA_FECHAMENTO "
                       "TIPO_GUARDA ANOS_VENCIMENTO"},
     .siblings = {"VantLog.FnLog", "KodraBsnV3.ModulosFiltro", "KodraBsnV3.ObtedorDeModulos", "KodraBsnV3.ModulosBsn"}},
    {.report = "CCaixaRpt.EtiquetaDivisoria", .tables = {"DOCUMENTO: COD_DOCTO NUM_CAIXA"}},
    {.report = "CCaixaRpt.ModulosExcluidos",
     .tables =
         {"CAIXA: NUM_CAIXA DESC_CAIXA DOC_INICIAL DOC_FINAL DATA_VENCIMENTO DATA_FECHAMENTO TIPO_GUARDA COD_DEPTO "
          "DOCS_PREGRESSOS",
          "CAIXA_SUBORDINADA: NUM_CAIXA NUM_SEQ DOC_INICIAL DOC_FINAL DATA_VENCIMENTO DATA_FECHAMENTO TIPO_GUARDA"},
     .siblings = {"KodraBsnV3.ModulosBsn"}},
    {.report = "CCaixaRpt.ModulosVencidos",
     .tables = {"CAIXA: NUM_CAIXA DESC_CAIXA DOC_INICIAL DOC_FINAL DATA_VENCIMENTO DATA_FECHAMENTO TIPO_GUARDA "
                "ANOS_VENCIMENTO COD_DEPTO DOCS_PREGRESSOS",
                "CAIXA_SUBORDINADA: NUM_CAIXA NUM_SEQ DOC_INICIAL DOC_FINAL DATA_VENCIMENTO DATA_FECHAMENTO "
                "TIPO_GUARDA ANOS_VENCIMENTO",
                "DEPTO: COD_DEPTO DESCR_DEPTO", "DOCUMENTO: NUM_CAIXA FRENTE"},
     .siblings = {"KodraBsnV3.ModulosBsn"}},
    {.report = "CCaixaRpt.DocsNoModulo",
     .tables = {"CAIXA: NUM_CAIXA DESC_CAIXA OBS_CAIXA DOC_INICIAL DOC_FINAL DATA_VENCIMENTO DATA_FECHAMENTO COORD_X "
                "COORD_Y COORD_Z CONTAINER COD_DEPOSITO COD_DEPTO",
                "CAIXA_SUBORDINADA: NUM_CAIXA NUM_SEQ DOC_INICIAL DOC_FINAL", "CONTAINER: NUM_CONTAINER DESC_CONTAINER",
                "DEPOSITO: COD_DEPOSITO NOME ENDERECO CIDADE ESTADO TELEFONE CONTATO"},
     .siblings = {"KodraBsnV3.ModulosBsn"}},
    {.report = "CCaixaRpt.DocsNoModuloSubRpt", .tables = {"DOCUMENTO: COD_DOCTO NUM_CAIXA"}},
    {.report = "CCaixaRpt.DocsNaoIndexadosNosModulos",
     .tables = {"CAIXA: NUM_CAIXA DESC_CAIXA COD_DEPTO", "DOCUMENTO: NUM_CAIXA COD_ASSUNTO"}},
    {.report = "CCaixaRpt.RelatoriosModulos",
     .tables =
         {"CAIXA: NUM_CAIXA DESC_CAIXA DOC_INICIAL DOC_FINAL DATA_VENCIMENTO DATA_FECHAMENTO COORD_X COORD_Y COORD_Z "
          "CONTAINER TIPO_GUARDA COD_DEPTO DOCS_PREGRESSOS",
          "CAIXA_SUBORDINADA: NUM_CAIXA NUM_SEQ DOC_INICIAL DOC_FINAL DATA_VENCIMENTO DATA_FECHAMENTO TIPO_GUARDA",
          "CONTAINER: NUM_CONTAINER DESC_CONTAINER"},
     .siblings = {"KodraBsnV3.ModulosBsn"}},
    {.report = "CCaixaRpt.AutorizacaoDescarteModuloSubRpt",
     .tables = {"DOCUMENTO: COD_DOCTO NUM_CAIXA FRENTE VERSO"},
     .siblings = {"VantLog.FnLog"}},
    {.report = "CContainerRpt.RelatorioContainers", .tables = {"CONTAINER: NUM_CONTAINER DESC_CONTAINER"}},
    {.report = "CContainerRpt.EtiquetaAbertura",
     .tables = {"CAIXA: CONTAINER DATA_VENCIMENTO TIPO_GUARDA", "PARAMETRO: EMPRESA"},
     .siblings = {"VantLib.Conversoes"}},
    {.report = "CContainerRpt.EtiquetaAberturaSubRpt", .tables = {"CAIXA: CONTAINER NUM_CAIXA"}},
    {.report = "CEstatImgRpt.RelatorioEstatisticas",
     .tables = {"DOCUMENTO: COD_DOCTO COD_SUPORTE COD_OPERADOR COD_DEPTO NUM_CAIXA DT_ARMAZ FRENTE VERSO",
                "SUPORTE: COD_SUPORTE DESCR_SUPORTE", "OPERADOR: COD_OPERADOR DESCR_OPERADOR",
                "DEPTO: COD_DEPTO DESCR_DEPTO", "PARAMETRO: CODIGO EMPRESA"}},
    {.report = "CEstatIndexRpt.RelatorioEstatisticasPorDocumento",
     .tables = {"DOCUMENTO: COD_DOCTO COD_INDEXADOR COD_DEPTO DATA_INDEXACAO", "OPERADOR: COD_OPERADOR DESCR_OPERADOR",
                "DEPTO: COD_DEPTO DESCR_DEPTO", "PARAMETRO: CODIGO EMPRESA"}},
    {.report = "CEstatIndexRpt.RelatorioEstatisticasPorPalavrasChave", .tables = {"PARAMETRO: CODIGO EMPRESA"}},
    {.report = "CEstatSuporteRpt.RelatorioEstatisticas",
     .tables = {"DOCUMENTO: COD_DOCTO COD_SUPORTE DT_ARMAZ FRENTE VERSO", "SUPORTE: COD_SUPORTE DESCR_SUPORTE"}},
    {.report = "CEstatSubgrupoRpt.RelatorioEstatisticas",
     .tables = {"DOCUMENTO: COD_DOCTO COD_GRUPO DT_ARMAZ FRENTE VERSO", "GRUPO: COD_GRUPO DESCR_GRUPO"},
     .siblingTables = {"PARAMETRO: CODIGO NOMEGRUPO NOMESUBGRUPO NOMESERIE NOMESERIEPLURAL MINUTOS_BLOQUEIO "
                       "MAX_DIAS_SENHA TESTAR_QUALIDADE_SENHA USAR_AD TAMANHO_MAXIMO_ARQUIVO"},
     .siblings = {"KodraParamSist.Obtedor"}},
    {.report = "CEstatSerieRpt.RelatorioEstatisticas",
     .tables = {"ASSUNTO: COD_ASSUNTO COD_GRUPO DESCR_ASSUNTO", "GRUPO: COD_GRUPO DESCR_GRUPO",
                "DOCUMENTO: COD_ASSUNTO DT_ARMAZ FRENTE"},
     .siblingTables = {"PARAMETRO: CODIGO NOMEGRUPO NOMESUBGRUPO NOMESERIE NOMESERIEPLURAL MINUTOS_BLOQUEIO "
                       "MAX_DIAS_SENHA TESTAR_QUALIDADE_SENHA USAR_AD TAMANHO_MAXIMO_ARQUIVO"},
     .siblings = {"KodraParamSist.Obtedor"}},
};

// The columns of each table in texts like "TABLE: COLUMN COLUMN".
Columns Required(const std::vector<std::string>& tables) {
  Columns required;
  for (const std::string& table : tables) {
    const std::size_t colon = table.find(": ");
    std::istringstream columns(table.substr(colon + 2));
    for (std::string column; columns >> column;) required[table.substr(0, colon)].insert(column);
  }
  return required;
}

Columns Required(const std::vector<TableNeed>& needs) {
  Columns required;
  for (const TableNeed& need : needs)
    for (const std::wstring& column : need.columns) required[ToUtf8(need.table)].insert(ToUtf8(column));
  return required;
}

std::string Shown(const Columns& columns) {
  std::string text;
  for (const auto& [table, names] : columns)
    for (const std::string& name : names) text += table + "." + name + "\n";
  return text;
}

const reports::ReportMethod& MethodOf(const Expected& expected) { return FindReport(expected.report); }

TEST(NeedsTest, AreExpectedForEveryReport) {
  std::multiset<std::string> expected;
  for (const Expected& entry : kExpected) expected.insert(entry.report);
  std::multiset<std::string> methods;
  for (const reports::ReportMethod& method : reports::ReportMethods()) methods.insert(NameOf(method));
  EXPECT_EQ(expected, methods);
}

TEST(NeedsTest, AreTheTablesAndColumnsThatAReportMayRead) {
  for (const Expected& expected : kExpected)
    EXPECT_EQ(Shown(Required(NeedsOf(MethodOf(expected)).tables)), Shown(Required(expected.tables))) << expected.report;
}

TEST(NeedsTest, AreTheTablesAndColumnsThatTheSiblingsReadForIt) {
  for (const Expected& expected : kExpected)
    EXPECT_EQ(Shown(Required(NeedsOf(MethodOf(expected)).siblingTables)), Shown(Required(expected.siblingTables)))
        << expected.report;
}

// Every report but the one without a frame asks for the connection component first.
TEST(NeedsTest, AreTheSiblingsThatAReportAsksFor) {
  for (const Expected& expected : kExpected) {
    std::vector<std::string> siblings;
    if (expected.report != "CCaixaRpt.DocsNoModuloSubRpt") siblings.emplace_back("KodraConexao.StrCon");
    siblings.insert(siblings.end(), expected.siblings.begin(), expected.siblings.end());
    std::vector<std::string> asked;
    for (const std::wstring& sibling : NeedsOf(MethodOf(expected)).siblings) asked.push_back(ToUtf8(sibling));
    EXPECT_EQ(asked, siblings) << expected.report;
  }
}

// The needs are found in one dialect; no other dialect may read more.
TEST(NeedsTest, CoverTheStatementsOfEveryDialect) {
  for (const Expected& expected : kExpected) {
    const reports::ReportMethod& method = MethodOf(expected);
    const Columns needed = Required(NeedsOf(method).tables);
    for (const Database& database : Databases()) {
      frame::ParameterObject parameters(frame::ParameterClassNamed(method.parameterClass));
      for (const Statement& statement : Capture(method, database.code, parameters).statements) {
        for (const auto& [table, columns] : Required(TablesRead(statement.text))) {
          ASSERT_TRUE(needed.contains(table)) << ToUtf8(statement.text);
          EXPECT_TRUE(std::ranges::includes(needed.at(table), columns)) << ToUtf8(statement.text);
        }
      }
    }
  }
}

TEST(NeedsTest, ExistInTheSampleArchive) {
  Columns schema;
  for (const testbed::TableShape& table : testbed::AllShapes())
    for (const testbed::Column& column : table.columns) schema[ToUtf8(table.name)].insert(ToUtf8(column.name));
  for (const Expected& expected : kExpected) {
    for (const auto& tables : {expected.tables, expected.siblingTables}) {
      for (const auto& [table, columns] : Required(tables)) {
        ASSERT_TRUE(schema.contains(table)) << table;
        EXPECT_TRUE(std::ranges::includes(schema.at(table), columns)) << table;
      }
    }
  }
}

}  // namespace
}  // namespace kodra::console
