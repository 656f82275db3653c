#include "tests/console/small_archive.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "tests/db/mariadb.h"
#include "tests/db/sqlite_file.h"

namespace kodra::tests {
namespace {

// In SQL that both databases execute.
constexpr const wchar_t* kStatements[] = {
    L"CREATE TABLE DEPTO (COD_DEPTO VARCHAR(10), DESCR_DEPTO VARCHAR(100), ENDERECO VARCHAR(150), CIDADE VARCHAR(60), "
    L"ESTADO VARCHAR(2), CEP VARCHAR(9), END_EMAIL VARCHAR(100))",
    L"INSERT INTO DEPTO VALUES ('1', 'Jurídico', 'Rua \"A\", 10', 'São Paulo', 'SP', '01000-000', NULL)",
    L"INSERT INTO DEPTO VALUES ('2', 'Finanças', '', '=Rio', 'RJ', NULL, 'fin@acervo.br')",
    L"CREATE TABLE SUPORTE (COD_SUPORTE VARCHAR(10), DESCR_SUPORTE VARCHAR(50))",
    L"INSERT INTO SUPORTE VALUES ('P', 'Papel')",
    L"CREATE TABLE DOCUMENTO (COD_DOCTO VARCHAR(10), COD_SUPORTE VARCHAR(10), NUM_CAIXA VARCHAR(5), NUM_CD "
    L"VARCHAR(10), "
    L"COD_DEPTO VARCHAR(10), DT_ARMAZ DATETIME, DT_VENC DATETIME, FRENTE INTEGER, VERSO INTEGER)",
    L"INSERT INTO DOCUMENTO VALUES ('0000000001', 'P', 'AB001', NULL, '1', '2023-12-31 10:20:30', '2028-12-31', 1200, "
    L"3)",
    L"INSERT INTO DOCUMENTO VALUES ('0000000002', 'P', 'AB002', 'CD1', '2', '2024-02-29 00:00:00', NULL, 7, NULL)",
    L"CREATE TABLE PARAMETRO (CODIGO VARCHAR(10), EMPRESA VARCHAR(64))",
    L"INSERT INTO PARAMETRO VALUES ('1', 'Acervo & Cia')",
    L"CREATE TABLE CAIXA (NUM_CAIXA VARCHAR(5), CONTAINER VARCHAR(10), DATA_VENCIMENTO DATE, TIPO_GUARDA VARCHAR(1))",
    L"INSERT INTO CAIXA VALUES ('AB001', 'C1', '2030-01-31', 'T')",
    L"INSERT INTO CAIXA VALUES ('AB002', 'C2', '2031-01-31', 'T')",
    L"CREATE TABLE OPERADOR (COD_OPERADOR VARCHAR(10), DESCR_OPERADOR VARCHAR(50), NOME_COMPLETO VARCHAR(300), "
    L"TIPO VARCHAR(10), COD_DEPTO VARCHAR(10), COD_GRPOP VARCHAR(10), CHAPA VARCHAR(20), RAMAL VARCHAR(10), "
    L"IDC_ATIVO VARCHAR(12), OPCOES_PESSOAIS VARCHAR(255))",
    L"CREATE TABLE CONTAINER (NUM_CONTAINER VARCHAR(10), DESC_CONTAINER VARCHAR(100))",
    L"INSERT INTO CONTAINER VALUES ('C1', 'Estante 1')",
    L"INSERT INTO CONTAINER VALUES ('C2', 'Estante 2')",
    L"CREATE TABLE EVENTO (COD_EVENTO INTEGER, DATA_INICIAL DATETIME, NOME_OPERADOR VARCHAR(300), MAQUINA "
    L"VARCHAR(255), "
    L"COD_DOCTO VARCHAR(10), TIPO_EVENTO VARCHAR(3), ACAO VARCHAR(255))",
    L"CREATE TABLE GRUPOS_OPERADORES (COD_GRPOP VARCHAR(10), DESCR_GRPOP VARCHAR(100))",
};

std::wstring OnSqliteFile() {
  static SqliteFile file;
  static const bool made = [] {
    for (const wchar_t* statement : kStatements) file.Run(statement);
    return true;
  }();
  return made ? file.ConnectionString() : L"";
}

std::wstring OnServer() {
  static const std::wstring connection = [] {
    MariaDb().CreateDatabase(L"pequeno");
    const std::wstring text = MariaDb().ConnectionString(L"pequeno");
    odbc::Connection database;
    database.SetConnectionString(text);
    database.Open(L"", L"", platform::ad::kUnspecified);
    for (const wchar_t* statement : kStatements) database.Execute(statement, platform::ad::kCmdText);
    return text;
  }();
  return connection;
}

}  // namespace

std::wstring SmallArchiveOn(Engine engine) { return engine == Engine::kSqlite ? OnSqliteFile() : OnServer(); }

}  // namespace kodra::tests
