// The archives that the benchmarks read: sample archives, and one of registers that contains the rows of the datasets.
#include <sqlite3.h>

#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>
#include <stdexcept>

#include "testbed/archive/writer.h"

namespace {

void Execute(const std::string& path, const std::string& statements) {
  sqlite3* opened = nullptr;
  const int result = sqlite3_open(path.c_str(), &opened);
  const std::unique_ptr<sqlite3, int (*)(sqlite3*)> database(opened, &sqlite3_close);
  if (result != SQLITE_OK || sqlite3_exec(opened, statements.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
    throw std::runtime_error(path + ": " + sqlite3_errmsg(opened));
}

// Fills a table with `rows` rows, copies of its own rows, each under its own key.
std::string Multiply(const std::string& table, const std::string& key, const std::string& rows) {
  return "CREATE TEMP TABLE COPIA AS WITH RECURSIVE N(I) AS (SELECT 0 UNION ALL SELECT I + 1 FROM N WHERE I + 1 < " +
         rows + ") SELECT T.* FROM N JOIN " + table + " T ON T.rowid = 1 + N.I % (SELECT COUNT(*) FROM " + table +
         ");"
         "UPDATE COPIA SET " +
         key + " = rowid;" + "DELETE FROM " + table + ";" + "INSERT INTO " + table +
         " SELECT * FROM COPIA;"
         "DROP TABLE COPIA;";
}

// Ten departments, and the requested number of operators, events and rows of some registers.
std::string Registers(const std::string& rows) {
  return "PRAGMA synchronous=OFF;"
         "BEGIN;"
         "DELETE FROM DEPTO WHERE COD_DEPTO > '010';" +
         Multiply("OPERADOR", "COD_OPERADOR", rows) + Multiply("EVENTO", "COD_EVENTO", rows) +
         Multiply("SUPORTE", "COD_SUPORTE", rows) + Multiply("TIPO_CAIXA", "COD_TIPO_CX", rows) +
         Multiply("DEPOSITO", "COD_DEPOSITO", rows) + Multiply("ASSUNTO", "COD_ASSUNTO", rows) +
         "UPDATE OPERADOR SET COD_DEPTO = substr('00' || (1 + rowid % 10), -3), COD_GRPOP = 1 + rowid % 5,"
         " OPCOES_PESSOAIS = NULL;"
         "COMMIT;";
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app("Gera os acervos que os bancos de medida leem.");
  std::string path;
  kodra::testbed::Size size;
  int rows = 0;
  app.add_option("arquivo", path, "Banco de dados SQLite a gravar")->required();
  app.add_option("--documents", size.documents, "Quantidade de documentos")->required();
  app.add_option("--registers", rows, "Quantidade de linhas dos cadastros, com dez departamentos");
  CLI11_PARSE(app, argc, argv);
  try {
    kodra::testbed::WriteSqlite(path, size);
    if (rows > 0) Execute(path, Registers(std::to_string(rows)));
  } catch (const std::exception& error) {
    std::cerr << "kodra-bench-archives: " << error.what() << "\n";
    return 1;
  }
  return 0;
}
