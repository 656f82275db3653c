#include "tests/engines/engines.h"

#include <array>

#include "sql/tipo_banco.h"

namespace kodra::engines {
namespace {

constexpr std::string_view kCreateUser = "CREATE USER LEITURA PASSWORD 'NuncaMostrada1'";

constexpr auto kEngines = std::to_array<Engine>({
    {"MariaDB", Database::kMySql},
    {"SQLite", Database::kSqlite},
    {"H2Oracle", Database::kOracle, "jdbc:h2:mem:oracle;MODE=Oracle", "h2_oracle.sql", false, kCreateUser},
    // As in Oracle, a null joined to a text has no effect; a literal has its own length, and is not padded to the
    // length of the longest alternative in a CASE.
    {"HSQLDB", Database::kOracle,
     "jdbc:hsqldb:mem:oracle;sql.syntax_ora=true;sql.concat_nulls=false;sql.char_literal=false", "hsqldb_oracle.sql",
     false, kCreateUser},
    {"H2SQLServer", Database::kSqlServer, "jdbc:h2:mem:sqlserver;MODE=MSSQLServer", "h2_sqlserver.sql", false,
     kCreateUser},
    {"Derby", Database::kDb2, "jdbc:derby:memory:db2;create=true", "derby_db2.sql", true},
});

}  // namespace

std::span<const Engine> Engines() { return kEngines; }

std::string_view NameOf(Database database) {
  switch (database) {
    case Database::kOracle:
      return "Oracle";
    case Database::kSqlServer:
      return "SQL Server";
    case Database::kMySql:
      return "MySQL";
    case Database::kDb2:
      return "DB2";
    case Database::kSqlite:
      return "SQLite";
  }
  return {};
}

std::int32_t CodeOf(Database database) {
  switch (database) {
    case Database::kOracle:
      return sql::tbOracle;
    case Database::kSqlServer:
      return sql::tbSQLServer;
    case Database::kMySql:
      return sql::tbMySQL;
    case Database::kDb2:
      return sql::tbDB2;
    case Database::kSqlite:
      return sql::tbSQLite;
  }
  return 0;
}

}  // namespace kodra::engines
