#include "tests/db/sample.h"

#include <fstream>
#include <map>

#include "odbc/engine/connection.h"
#include "testbed/archive/writer.h"
#include "tests/db/mariadb.h"
#include "tests/db/temporary_folder.h"
#include "values/utf8.h"

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
  const auto dialect = engine == Engine::kSqlite ? testbed::Engine::kSqlite : testbed::Engine::kMySql;
  std::vector<std::wstring> statements;
  for (const testbed::TableShape& table : testbed::AllShapes()) statements.push_back(CreateTable(table, dialect));
  return DatabaseOf(engine, L"vazio", statements);
}

std::wstring DatabaseOf(Engine engine, const std::wstring& name, const std::vector<std::wstring>& statements) {
  static std::map<std::pair<Engine, std::wstring>, std::wstring> made;
  const std::pair key(engine, name);
  if (made.contains(key)) return made[key];
  if (engine == Engine::kMariaDb) MariaDb().CreateDatabase(name);
  std::wstring text = engine == Engine::kMariaDb ? MariaDb().ConnectionString(name)
                                                 : SqliteString(ProgramFolder() / values::ToUtf8(name + L".db"));
  Run(text, statements);
  made[key] = text;
  return text;
}

}  // namespace kodra::tests
