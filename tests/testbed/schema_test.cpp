#include "testbed/archive/schema.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "testbed/archive/writer.h"
#include "tests/testbed/sqlite_reader.h"
#include "values/utf8.h"

namespace kodra::testbed {
namespace {

// The columns that the reports read, table by table.
const std::map<std::string, std::vector<std::string>> kReadByReports = {
    {"CD", {"NUM_CD", "DOC_INICIAL", "DOC_FINAL", "DATA_GRAVACAO", "COD_MIDIA"}},
    {"TIPO_MIDIA", {"COD_MIDIA", "DESCR_MIDIA", "VALIDADE_MIDIA", "CAPACIDADE_MIDIA"}},
    {"SUPORTE", {"COD_SUPORTE", "DESCR_SUPORTE"}},
    {"CLASSE", {"COD_CLASSE", "DESCR_CLASSE", "OBS_CLASSE"}},
    {"GRUPO", {"COD_GRUPO", "COD_CLASSE", "DESCR_GRUPO", "OBS_GRUPO", "IDC_ATIVO"}},
    {"ASSUNTO",
     {"COD_ASSUNTO",  "COD_GRUPO",    "DESCR_ASSUNTO", "OBS_ASSUNTO",  "DONO",         "IDC_ATIVO",    "DESCR_CHAVE1",
      "DESCR_CHAVE2", "DESCR_CHAVE3", "DESCR_CHAVE4",  "DESCR_CHAVE5", "OBRIGATORIA2", "OBRIGATORIA3", "OBRIGATORIA4",
      "OBRIGATORIA5", "MASK1",        "MASK2",         "MASK3",        "MASK4",        "MASK5"}},
    {"OPERADOR",
     {"COD_OPERADOR", "DESCR_OPERADOR", "NOME_COMPLETO", "TIPO", "COD_DEPTO", "COD_GRPOP", "CHAPA", "RAMAL",
      "IDC_ATIVO", "OPCOES_PESSOAIS"}},
    {"PARAMETRO", {"CODIGO", "EMPRESA", "NOMEGRUPO", "NOMESUBGRUPO", "NOMESERIE", "NOMESERIEPLURAL"}},
    {"DEPOSITO", {"COD_DEPOSITO", "NOME", "ENDERECO", "CIDADE", "ESTADO", "CEP", "TELEFONE", "FAX", "CONTATO"}},
    {"DICIONARIO", {"COD_PALAVRA", "COD_ASSUNTO", "DESCR_DICIONARIO"}},
    {"DEPTO", {"COD_DEPTO", "DESCR_DEPTO", "ENDERECO", "CIDADE", "ESTADO", "CEP", "END_EMAIL"}},
    {"MODELO",
     {"COD_MODELO", "COD_GRUPO", "COD_ASSUNTO", "CHAVE1", "CHAVE2", "CHAVE3", "CHAVE4", "CHAVE5", "VALIDADE"}},
    {"TIPO_CAIXA", {"COD_TIPO_CX", "DESCR_TIPO_CX", "NUM_MAX_DOCS", "NUM_MAX_FOLHAS"}},
    {"GRUPOS_OPERADORES", {"COD_GRPOP", "DESCR_GRPOP", "OBS_GRPOP"}},
    {"CAIXA",
     {"NUM_CAIXA", "DESC_CAIXA", "OBS_CAIXA", "DOC_INICIAL", "DOC_FINAL", "DATA_VENCIMENTO", "DATA_FECHAMENTO",
      "TIPO_GUARDA", "ANOS_VENCIMENTO", "COD_DEPTO", "DOCS_PREGRESSOS", "COORD_X", "COORD_Y", "COORD_Z", "CONTAINER",
      "COD_DEPOSITO"}},
    {"CAIXA_SUBORDINADA",
     {"NUM_CAIXA", "NUM_SEQ", "DOC_INICIAL", "DOC_FINAL", "DATA_VENCIMENTO", "DATA_FECHAMENTO", "TIPO_GUARDA",
      "ANOS_VENCIMENTO"}},
    {"CONTAINER", {"NUM_CONTAINER", "DESC_CONTAINER"}},
    {"DOCUMENTO", {"COD_DOCTO",    "COD_SUPORTE",  "NUM_CAIXA",    "NUM_CD",        "DT_ARMAZ",      "DT_VENC",
                   "FRENTE",       "VERSO",        "COD_GRUPO",    "COD_ASSUNTO",   "COD_OPERADOR",  "COD_DEPTO",
                   "DESCR_CHAVE1", "DESCR_CHAVE2", "DESCR_CHAVE3", "DESCR_CHAVE4",  "DESCR_CHAVE5",  "ARQUIVO",
                   "OBS",          "MACO",         "EXTENSAO",     "COD_INDEXADOR", "DATA_INDEXACAO"}},
    {"SOLICITACAO",
     {"COD_SOLICIT", "COD_DOCTO", "COD_OPERADOR", "DEVOLVIDO", "DT_RETIRADA", "DT_DEVOLUCAO", "OBS_SOLICIT"}},
    {"EVENTO", {"DATA_INICIAL", "NOME_OPERADOR", "MAQUINA", "COD_DOCTO", "TIPO_EVENTO", "ACAO"}},
};

TEST(Schema, HasEveryTableAndColumnThatAReportReads) {
  const TemporaryFile file("schema.db");
  WriteSqlite(file.Path(), {.documents = 0});
  for (const auto& [table, columns] : kReadByReports) {
    const auto found = Query(file.Path(), "SELECT name FROM pragma_table_info('" + table + "')");
    for (const std::string& column : columns) {
      EXPECT_NE(std::ranges::find(found, TextRow{column}), found.end()) << table << "." << column;
    }
  }
}

TEST(Schema, MakesATableForSqlite) {
  EXPECT_EQ(values::ToUtf8(CreateTable(TableOf<CaixaSubordinada>().shape, Engine::kSqlite)),
            "CREATE TABLE CAIXA_SUBORDINADA (\n"
            "  NUM_CAIXA VARCHAR(5) NOT NULL,\n"
            "  NUM_SEQ INTEGER NOT NULL,\n"
            "  DOC_INICIAL VARCHAR(10),\n"
            "  DOC_FINAL VARCHAR(10),\n"
            "  DATA_VENCIMENTO DATE,\n"
            "  DATA_FECHAMENTO DATE,\n"
            "  TIPO_GUARDA VARCHAR(1),\n"
            "  ANOS_VENCIMENTO INTEGER,\n"
            "  PRIMARY KEY (NUM_CAIXA, NUM_SEQ)\n"
            ")");
}

TEST(Schema, MakesATableWithoutAKey) {
  TableShape shape = TableOf<Suporte>().shape;
  shape.keyColumns = 0;
  EXPECT_EQ(values::ToUtf8(CreateTable(shape, Engine::kSqlite)),
            "CREATE TABLE SUPORTE (\n"
            "  COD_SUPORTE VARCHAR(10),\n"
            "  DESCR_SUPORTE VARCHAR(50)\n"
            ")");
}

TEST(Schema, MakesATableForMySql) {
  EXPECT_EQ(values::ToUtf8(CreateTable(TableOf<Evento>().shape, Engine::kMySql)),
            "CREATE TABLE EVENTO (\n"
            "  COD_EVENTO INT NOT NULL,\n"
            "  DATA_INICIAL DATETIME,\n"
            "  NOME_OPERADOR VARCHAR(300),\n"
            "  MAQUINA VARCHAR(255),\n"
            "  COD_DOCTO VARCHAR(10),\n"
            "  TIPO_EVENTO VARCHAR(3),\n"
            "  ACAO TEXT,\n"
            "  PRIMARY KEY (COD_EVENTO)\n"
            ") DEFAULT CHARACTER SET utf8mb4 COLLATE utf8mb4_bin");
}

TEST(Schema, MakesATableForEnginesOfTheStandard) {
  EXPECT_EQ(values::ToUtf8(CreateTable(TableOf<Evento>().shape, Engine::kStandard)),
            "CREATE TABLE EVENTO (\n"
            "  COD_EVENTO INTEGER NOT NULL,\n"
            "  DATA_INICIAL TIMESTAMP,\n"
            "  NOME_OPERADOR VARCHAR(300),\n"
            "  MAQUINA VARCHAR(255),\n"
            "  COD_DOCTO VARCHAR(10),\n"
            "  TIPO_EVENTO VARCHAR(3),\n"
            "  ACAO VARCHAR(32000),\n"
            "  PRIMARY KEY (COD_EVENTO)\n"
            ")");
}

TEST(Schema, WritesDatesAsTheEnginesReadThem) {
  const Day day = std::chrono::year(2024) / 5 / 31;
  EXPECT_EQ(IsoText(day), "2024-05-31");
  EXPECT_EQ(IsoText(Moment(day) + std::chrono::seconds(8 * 3600 + 5 * 60 + 9)), "2024-05-31 08:05:09");
}

}  // namespace
}  // namespace kodra::testbed
