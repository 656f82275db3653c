#include "tests/console/check/archive.h"

#include <memory>

#include "odbc/engine/connection.h"
#include "testbed/archive/schema.h"
#include "tests/db/mariadb.h"
#include "tests/db/sqlite_file.h"

namespace kodra::console {
namespace {

std::wstring NewDatabase(tests::Engine engine) {
  if (engine == tests::Engine::kMariaDb) {
    tests::MariaDb().CreateDatabase(L"alterado");
    return tests::MariaDb().ConnectionString(L"alterado");
  }
  static std::unique_ptr<tests::SqliteFile> file;
  file = std::make_unique<tests::SqliteFile>();
  return file->ConnectionString();
}

std::wstring NewArchive(tests::Engine engine, const std::vector<testbed::TableShape>& tables,
                        const std::vector<std::wstring>& statements) {
  std::wstring connectionString = NewDatabase(engine);
  odbc::Connection connection;
  connection.Open(connectionString, L"", L"", platform::ad::kUnspecified);
  const auto run = [&](const std::wstring& statement) { connection.Execute(statement, platform::ad::kCmdText); };
  const auto dialect = engine == tests::Engine::kSqlite ? testbed::Engine::kSqlite : testbed::Engine::kMySql;
  for (const testbed::TableShape& table : tables) run(CreateTable(table, dialect));
  for (const std::wstring& statement : statements) run(statement);
  return connectionString;
}

}  // namespace

std::wstring NewArchiveOn(tests::Engine engine, const std::vector<std::wstring>& statements) {
  return NewArchive(engine, testbed::AllShapes(), statements);
}

std::wstring NewArchiveWithoutKeysOn(tests::Engine engine, const std::vector<std::wstring>& statements) {
  std::vector<testbed::TableShape> tables = testbed::AllShapes();
  for (testbed::TableShape& table : tables) table.keyColumns = 0;
  return NewArchive(engine, tables, statements);
}

std::vector<std::wstring> Rows(const std::wstring& table, const std::wstring& column, int thousands) {
  const std::wstring digits =
      L"(SELECT 0 AS D UNION ALL SELECT 1 UNION ALL SELECT 2 UNION ALL SELECT 3 UNION ALL "
      L"SELECT 4 UNION ALL SELECT 5 UNION ALL SELECT 6 UNION ALL SELECT 7 UNION ALL SELECT 8 "
      L"UNION ALL SELECT 9)";
  std::vector<std::wstring> statements;
  for (int thousand = 0; thousand < thousands; ++thousand)
    statements.push_back(L"INSERT INTO " + table + L" (" + column + L") SELECT " + std::to_wstring(thousand) +
                         L" * 1000 + A.D * 100 + B.D * 10 + C.D FROM " + digits + L" A, " + digits + L" B, " + digits +
                         L" C");
  return statements;
}

std::vector<std::wstring> Documents(int thousands) { return Rows(L"DOCUMENTO", L"COD_DOCTO", thousands); }

}  // namespace kodra::console
