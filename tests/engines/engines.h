// The engines that execute the statements, each for one database.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace kodra::engines {

enum class Database { kOracle, kSqlServer, kMySql, kDb2, kSqlite };

struct Engine {
  std::string_view name;  // the name in the tests and on the page
  Database database;
  // For an engine in the Java runner: where it runs, and the script of tests/engines/shims/ that completes it. The
  // others are used through ODBC.
  std::string_view jdbcUrl = {};
  std::string_view shims = {};
  // Where it sorts nulls.
  bool nullsLast = false;
  // The statement that creates the user "LEITURA"; empty where a permission needs no user.
  std::string_view createUser = {};

  bool InJava() const { return !jdbcUrl.empty(); }
  // Oracle treats an empty text as a null.
  bool KnowsNoEmptyText() const { return database == Database::kOracle; }
};

// The rows of the first one are the reference for the others: it is the only server that is the database itself and
// executes every statement that is meant to be executed.
std::span<const Engine> Engines();
inline const Engine& Reference() { return Engines().front(); }

std::string_view NameOf(Database database);
// Its code in sql/tipo_banco.h.
std::int32_t CodeOf(Database database);

}  // namespace kodra::engines
