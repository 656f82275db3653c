#include "console/command_line/databases.h"

#include <fmt/format.h>
#include <array>
#include <string>
#include <vector>

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

std::vector<std::string> Names() {
  std::vector<std::string> names;
  names.reserve(kDatabases.size());
  for (const Database& database : kDatabases) names.emplace_back(database.name);
  return names;
}

}  // namespace

std::span<const Database> Databases() { return kDatabases; }

std::string DatabaseChoices() { return fmt::format("{} ou {}", fmt::join(Names(), ", "), kAll); }

std::vector<Database> DatabasesNamed(std::string_view name) {
  const std::string folded = Folded(name);
  if (folded == kAll) return {kDatabases.begin(), kDatabases.end()};
  for (const Database& database : kDatabases)
    if (database.name == folded) return {database};
  std::vector<std::string> known = Names();
  known.emplace_back(kAll);
  throw UsageError("o banco \"" + std::string(name) + "\" não existe" + DidYouMean(name, known) + "; escolha " +
                   DatabaseChoices());
}

}  // namespace kodra::console
