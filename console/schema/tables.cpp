#include "console/schema/tables.h"

#include <algorithm>

#include "sql/tipo_banco.h"

namespace kodra::console::schema {
namespace {

// The size of the fields of the recordset that the report of operators makes in memory.
constexpr int kOperatorField = 255;

Column Text(std::wstring_view name, int length, int longest = 0) { return {name, Kind::kText, length, longest}; }
Column LongText(std::wstring_view name) { return {name, Kind::kLongText}; }
Column Integer(std::wstring_view name) { return {name, Kind::kNumber}; }
Column Date(std::wstring_view name) { return {name, Kind::kDate}; }
Column Moment(std::wstring_view name) { return {name, Kind::kMoment}; }

}  // namespace

const std::vector<Table>& Tables() {
  static const std::vector<Table> tables = {
      {L"PARAMETRO",
       {Text(L"CODIGO", 10), Text(L"EMPRESA", 64), Text(L"NOMEGRUPO", 50), Text(L"NOMESUBGRUPO", 50),
        Text(L"NOMESERIE", 50), Text(L"NOMESERIEPLURAL", 50), Integer(L"MINUTOS_BLOQUEIO"), Integer(L"MAX_DIAS_SENHA"),
        Text(L"TESTAR_QUALIDADE_SENHA", 1), Text(L"USAR_AD", 1), Integer(L"TAMANHO_MAXIMO_ARQUIVO")}},
      {L"CLASSE", {Text(L"COD_CLASSE", 10), Text(L"DESCR_CLASSE", 100), Text(L"OBS_CLASSE", 255)}},
      {L"GRUPO",
       {Text(L"COD_GRUPO", 10), Text(L"COD_CLASSE", 10), Text(L"DESCR_GRUPO", 100), Text(L"OBS_GRUPO", 255),
        Text(L"IDC_ATIVO", 1)}},
      {L"ASSUNTO",
       {Text(L"COD_ASSUNTO", 10),  Text(L"COD_GRUPO", 10),    Text(L"DESCR_ASSUNTO", 100), Text(L"OBS_ASSUNTO", 255),
        Text(L"DONO", 10),         Text(L"IDC_ATIVO", 1),     Text(L"DESCR_CHAVE1", 50),   Text(L"DESCR_CHAVE2", 50),
        Text(L"DESCR_CHAVE3", 50), Text(L"DESCR_CHAVE4", 50), Text(L"DESCR_CHAVE5", 50),   Text(L"OBRIGATORIA2", 1),
        Text(L"OBRIGATORIA3", 1),  Text(L"OBRIGATORIA4", 1),  Text(L"OBRIGATORIA5", 1),    Text(L"MASK1", 50),
        Text(L"MASK2", 50),        Text(L"MASK3", 50),        Text(L"MASK4", 50),          Text(L"MASK5", 50)}},
      {L"DICIONARIO", {Text(L"COD_PALAVRA", 10), Text(L"COD_ASSUNTO", 10), Text(L"DESCR_DICIONARIO", 255)}},
      {L"MODELO",
       {Text(L"COD_MODELO", 128), Text(L"COD_GRUPO", 10), Text(L"COD_ASSUNTO", 10), Text(L"CHAVE1", 100),
        Text(L"CHAVE2", 100), Text(L"CHAVE3", 100), Text(L"CHAVE4", 100), Text(L"CHAVE5", 100), Integer(L"VALIDADE")}},
      {L"SUPORTE", {Text(L"COD_SUPORTE", 10), Text(L"DESCR_SUPORTE", 50)}},
      {L"TIPO_MIDIA",
       {Text(L"COD_MIDIA", 10), Text(L"DESCR_MIDIA", 50), Integer(L"VALIDADE_MIDIA"), Integer(L"CAPACIDADE_MIDIA")}},
      {L"CD",
       {Text(L"NUM_CD", 10), Text(L"DOC_INICIAL", 10), Text(L"DOC_FINAL", 10), Date(L"DATA_GRAVACAO"),
        Text(L"COD_MIDIA", 10)}},
      {L"DEPTO",
       {Text(L"COD_DEPTO", 10), Text(L"DESCR_DEPTO", 100, kOperatorField), Text(L"ENDERECO", 150), Text(L"CIDADE", 60),
        Text(L"ESTADO", 2), Text(L"CEP", 9), Text(L"END_EMAIL", 100)}},
      {L"GRUPOS_OPERADORES",
       {Text(L"COD_GRPOP", 10), Text(L"DESCR_GRPOP", 100, kOperatorField), Text(L"OBS_GRPOP", 255)}},
      {L"OPERADOR",
       {Text(L"COD_OPERADOR", 10), Text(L"DESCR_OPERADOR", 50, kOperatorField),
        Text(L"NOME_COMPLETO", 300, kOperatorField), Text(L"TIPO", 10), Text(L"COD_DEPTO", 10), Text(L"COD_GRPOP", 10),
        Text(L"CHAPA", 20, kOperatorField), Text(L"RAMAL", 10, kOperatorField), Text(L"IDC_ATIVO", 12),
        Text(L"OPCOES_PESSOAIS", 255)}},
      {L"DEPOSITO",
       {Text(L"COD_DEPOSITO", 10), Text(L"NOME", 100), Text(L"ENDERECO", 150), Text(L"CIDADE", 60), Text(L"ESTADO", 2),
        Text(L"CEP", 9), Text(L"TELEFONE", 20), Text(L"FAX", 20), Text(L"CONTATO", 100)}},
      {L"CONTAINER", {Text(L"NUM_CONTAINER", 10), Text(L"DESC_CONTAINER", 100)}},
      {L"TIPO_CAIXA",
       {Text(L"COD_TIPO_CX", 10), Text(L"DESCR_TIPO_CX", 50), Integer(L"NUM_MAX_DOCS"), Integer(L"NUM_MAX_FOLHAS")}},
      {L"CAIXA",
       {Text(L"NUM_CAIXA", 5), Text(L"DESC_CAIXA", 100), Text(L"OBS_CAIXA", 255), Text(L"DOC_INICIAL", 10),
        Text(L"DOC_FINAL", 10), Date(L"DATA_VENCIMENTO"), Date(L"DATA_FECHAMENTO"), Text(L"TIPO_GUARDA", 1),
        Integer(L"ANOS_VENCIMENTO"), Text(L"COD_DEPTO", 10), Integer(L"DOCS_PREGRESSOS"), Text(L"COORD_X", 10),
        Text(L"COORD_Y", 10), Text(L"COORD_Z", 10), Text(L"CONTAINER", 10), Text(L"COD_DEPOSITO", 10)}},
      {L"CAIXA_SUBORDINADA",
       {Text(L"NUM_CAIXA", 5), Integer(L"NUM_SEQ"), Text(L"DOC_INICIAL", 10), Text(L"DOC_FINAL", 10),
        Date(L"DATA_VENCIMENTO"), Date(L"DATA_FECHAMENTO"), Text(L"TIPO_GUARDA", 1), Integer(L"ANOS_VENCIMENTO")}},
      {L"DOCUMENTO",
       {Text(L"COD_DOCTO", 10),     Text(L"COD_SUPORTE", 10),   Text(L"NUM_CAIXA", 5),      Text(L"NUM_CD", 10),
        Text(L"COD_GRUPO", 10),     Text(L"COD_ASSUNTO", 10),   Text(L"COD_DEPTO", 10),     Text(L"COD_OPERADOR", 10),
        Text(L"COD_INDEXADOR", 10), Moment(L"DT_ARMAZ"),        Moment(L"DATA_INDEXACAO"),  Date(L"DT_VENC"),
        Integer(L"FRENTE"),         Integer(L"VERSO"),          Text(L"DESCR_CHAVE1", 100), Text(L"DESCR_CHAVE2", 100),
        Text(L"DESCR_CHAVE3", 100), Text(L"DESCR_CHAVE4", 100), Text(L"DESCR_CHAVE5", 100), Text(L"ARQUIVO", 255),
        Text(L"EXTENSAO", 10),      Text(L"MACO", 20),          Text(L"OBS", 255)}},
      {L"SOLICITACAO",
       {Integer(L"COD_SOLICIT"), Text(L"COD_DOCTO", 10), Text(L"COD_OPERADOR", 10), Text(L"DEVOLVIDO", 1),
        Moment(L"DT_RETIRADA"), Moment(L"DT_DEVOLUCAO"), Text(L"OBS_SOLICIT", 255)}},
      {L"EVENTO",
       {Integer(L"COD_EVENTO"), Moment(L"DATA_INICIAL"), Text(L"NOME_OPERADOR", 300), Text(L"MAQUINA", 255),
        Text(L"COD_DOCTO", 10), Text(L"TIPO_EVENTO", 3), LongText(L"ACAO")}},
  };
  return tables;
}

const Column& ColumnOf(std::wstring_view table, std::wstring_view column) {
  return *std::ranges::find(std::ranges::find(Tables(), table, &Table::name)->columns, column, &Column::name);
}

std::string TypeName(const Column& column, std::int32_t databaseCode) {
  switch (column.kind) {
    case Kind::kText:
      return (databaseCode == sql::tbOracle ? "VARCHAR2(" : "VARCHAR(") + std::to_string(column.length) + ")";
    case Kind::kLongText:
      if (databaseCode == sql::tbSQLServer) return "VARCHAR(MAX)";
      return databaseCode == sql::tbOracle || databaseCode == sql::tbDB2 ? "CLOB" : "TEXT";
    case Kind::kNumber:
      if (databaseCode == sql::tbOracle) return "NUMBER(10)";
      return databaseCode == sql::tbSQLServer || databaseCode == sql::tbMySQL ? "INT" : "INTEGER";
    case Kind::kDate:
      return "DATE";
    case Kind::kMoment:
      if (databaseCode == sql::tbOracle) return "DATE";
      return databaseCode == sql::tbSQLServer || databaseCode == sql::tbMySQL ? "DATETIME" : "TIMESTAMP";
  }
  return {};
}

}  // namespace kodra::console::schema
