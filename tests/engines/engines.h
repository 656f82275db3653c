// The engines that execute the statements, each for one database.
#pragma once

#include <span>
#include <string_view>

namespace kodra::engines {

enum class Database { kOracle, kSqlServer, kMySql, kDb2, kSqlite };

struct Engine {
  std::string_view name;  // as the tests and the page call it
  Database database;
  // Of an engine in the Java runner: where it runs, and the script of tests/engines/shims/ that completes it. The
  // others are reached through ODBC.
  std::string_view jdbcUrl = {};
  std::string_view shims = {};
  // Where it sorts nulls.
  bool nullsLast = false;

  bool InJava() const { return !jdbcUrl.empty(); }
  // Oracle takes an empty text for a null.
  bool KnowsNoEmptyText() const { return database == Database::kOracle; }
};

// The first is the one that the rows of the others are compared with: the one server that is the database itself and
// takes every statement that is meant to be taken.
std::span<const Engine> Engines();
inline const Engine& Reference() { return Engines().front(); }

std::string_view NameOf(Database database);

}  // namespace kodra::engines
