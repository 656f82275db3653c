#include "tests/db/sample.h"

#include <fstream>

#include "odbc/engine/connection.h"
#include "testbed/archive/writer.h"
#include "tests/db/mariadb.h"
#include "tests/db/temporary_folder.h"

namespace kodra::tests {
namespace {

namespace fs = std::filesystem;

// Deleted when the test program ends.
const TemporaryFolder& ProgramFolder() {
  static const TemporaryFolder folder;
  return folder;
}

std::wstring SqliteString(const fs::path& path) { return L"Driver={SQLite3};Database=" + path.wstring() + L";"; }

void Run(const std::wstring& connectionString, const std::vector<std::wstring>& statements) {
  odbc::Connection connection;
  connection.Open(connectionString, L"", L"", platform::ad::kUnspecified);
  for (const std::wstring& statement : statements) connection.Execute(statement, platform::ad::kCmdText);
}

void CreateTables(const std::wstring& connectionString, testbed::Engine engine) {
  std::vector<std::wstring> statements;
  for (const testbed::TableShape& table : testbed::AllShapes()) statements.push_back(CreateTable(table, engine));
  Run(connectionString, statements);
}

fs::path MakeSampleFile() {
  const fs::path path = ProgramFolder() / "acervo.db";
  testbed::WriteSqlite(path, rows::kSampleSize);
  Run(SqliteString(path), rows::ExtraRowStatements());
  return path;
}

std::wstring SampleOnMariaDb() {
  const fs::path path = ProgramFolder() / "acervo.sql";
  std::ofstream script(path, std::ios::binary);
  testbed::WriteMySql(script, rows::kSampleSize);
  script.close();
  MariaDb().CreateDatabase(L"acervo");
  MariaDb().RunScript(L"acervo", path);
  Run(MariaDb().ConnectionString(L"acervo"), rows::ExtraRowStatements());
  return MariaDb().ConnectionString(L"acervo");
}

std::wstring EmptyOnSqlite() {
  std::wstring text = SqliteString(ProgramFolder() / "vazio.db");
  CreateTables(text, testbed::Engine::kSqlite);
  return text;
}

std::wstring EmptyOnMariaDb() {
  MariaDb().CreateDatabase(L"vazio");
  CreateTables(MariaDb().ConnectionString(L"vazio"), testbed::Engine::kMySql);
  return MariaDb().ConnectionString(L"vazio");
}

}  // namespace

std::filesystem::path SampleFile() {
  static const fs::path file = MakeSampleFile();
  return file;
}

std::wstring SampleOn(Engine engine) {
  if (engine == Engine::kSqlite) return SqliteString(SampleFile());
  static const std::wstring mariaDb = SampleOnMariaDb();
  return mariaDb;
}

std::wstring EmptyOn(Engine engine) {
  if (engine == Engine::kSqlite) {
    static const std::wstring sqlite = EmptyOnSqlite();
    return sqlite;
  }
  static const std::wstring mariaDb = EmptyOnMariaDb();
  return mariaDb;
}

}  // namespace kodra::tests
