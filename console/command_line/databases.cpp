#include "console/command_line/databases.h"

#include <array>
#include <string>

#include "console/command_line/suggest.h"
#include "console/command_line/usage_error.h"
#include "sql/tipo_banco.h"

namespace kodra::console {
namespace {

constexpr auto kDatabases = std::to_array<Database>({
    {"oracle", "Oracle", sql::tbOracle},
    {"sqlserver", "SQL Server", sql::tbSQLServer},
    {"mysql", "MySQL", sql::tbMySQL},
    {"db2", "DB2", sql::tbDB2},
    {"sqlite", "SQLite", sql::tbSQLite},
});

constexpr std::string_view kAll = "todos";

}  // namespace

std::span<const Database> Databases() { return kDatabases; }

std::vector<Database> DatabasesNamed(std::string_view name) {
  const std::string folded = Folded(name);
  if (folded == kAll) return {kDatabases.begin(), kDatabases.end()};
  std::vector<std::string> known;
  for (const Database& database : kDatabases) {
    if (database.name == folded) return {database};
    known.emplace_back(database.name);
  }
  known.emplace_back(kAll);
  throw UsageError("o banco \"" + std::string(name) + "\" não existe" + DidYouMean(name, known) +
                   "; escolha oracle, sqlserver, mysql, db2, sqlite ou todos");
}

}  // namespace kodra::console
