#include "tests/rows/driver.h"
#include "tests/rows/sample.h"
#include "tests/wine/report_rows.h"

namespace kodra::rows {
namespace {

// A value as a client sets it in a parameter object.
face::Var VarOf(const Value& value) {
  if (value.Is<bool>()) return value.As<bool>();
  if (value.Is<Date>()) return face::Var::Date(value.As<Date>().days);
  return value.As<std::wstring>();
}

// Creates a database with the tables of the given archive, with or without their rows: the tests of rows do not change
// the archive that other tests read.
std::wstring CopyOnMariaDb(const std::wstring& database, bool withRows) {
  std::vector<std::wstring> statements{L"DROP DATABASE IF EXISTS " + database,
                                       L"CREATE DATABASE " + database + L" CHARACTER SET utf8mb4"};
  for (const testbed::TableShape& shape : testbed::AllShapes()) {
    const std::wstring table(shape.name);
    statements.push_back(L"CREATE TABLE " + database + L"." + table + L" LIKE " + table);
    if (withRows) statements.push_back(L"INSERT INTO " + database + L"." + table + L" SELECT * FROM " + table);
  }
  Execute(statements, face::Variable(L"KODRA_MYSQL"));
  return face::ConnectionOnMariaDb(database);
}

std::wstring SampleOnMariaDb() {
  const std::wstring connection = CopyOnMariaDb(L"arquivo_linhas", true);
  Execute(ExtraRowStatements(), connection);
  return connection;
}

const face::ArchiveCopy& SampleOnSqlite() {
  static const face::ArchiveCopy copy(ExtraRowStatements(), L"linhas.db");
  return copy;
}

const face::ArchiveCopy& EmptyOnSqlite() {
  static const face::ArchiveCopy copy(
      [] {
        std::vector<std::wstring> statements;
        for (const testbed::TableShape& table : testbed::AllShapes())
          statements.push_back(L"DELETE FROM " + std::wstring(table.name));
        return statements;
      }(),
      L"linhas-vazias.db");
  return copy;
}

}  // namespace

Outcome Run(const Report& report, const Properties& properties, const std::wstring& connectionString, From from) {
  const auto parameters = face::ParametersOf(report.className);
  for (const auto& [name, value] : properties)
    EXPECT_EQ(S_OK, face::Put(parameters, name, VarOf(value)).hr) << testing::PrintToString(name);
  const face::Outcome called =
      face::RunReport(report.className, report.method, face::Var(parameters.get()), connectionString);
  Outcome outcome;
  if (called.hr != S_OK) {
    const auto& [number, source, description] = called.failure;
    outcome.error = {number, source, description};
  } else {
    EXPECT_EQ(VT_DISPATCH, called.value.type());
  }
  if (const auto recordset = called.value.object())
    outcome.rows = from == From::kFirstRow ? face::ReadFromFirst(recordset) : face::ReadAll(recordset);
  return outcome;
}

Table Query(const std::wstring& statement, const std::wstring& connectionString) {
  const auto recordset = face::Create(L"ADODB.Recordset");
  face::Got(face::Call(recordset, L"Open", {statement, connectionString, 0, 1, 1}));
  return face::ReadAll(recordset);
}

void Execute(const std::vector<std::wstring>& statements, const std::wstring& connectionString) {
  const auto connection = face::Create(L"ADODB.Connection");
  face::Got(face::Call(connection, L"Open", {connectionString}));
  for (const auto& statement : statements) face::Got(face::Call(connection, L"Execute", {statement}));
  face::Got(face::Call(connection, L"Close"));
}

std::wstring SampleOn(Engine engine) {
  if (engine == Engine::kSqlite) return SqliteFile(SampleOnSqlite().path());
  static const std::wstring mariaDb = SampleOnMariaDb();
  return mariaDb;
}

std::wstring EmptyOn(Engine engine) {
  if (engine == Engine::kSqlite) return SqliteFile(EmptyOnSqlite().path());
  static const std::wstring mariaDb = CopyOnMariaDb(L"arquivo_vazio", false);
  return mariaDb;
}

std::wstring CopySampleFile() {
  static int copies = 0;
  const std::wstring& sample = SampleOnSqlite().path();
  const std::wstring path = sample + L"-copia-" + std::to_wstring(++copies);
  EXPECT_TRUE(CopyFileW(face::WindowsPath(sample).c_str(), face::WindowsPath(path).c_str(), FALSE)) << GetLastError();
  return path;
}
void RemoveFile(const std::wstring& path) { DeleteFileW(face::WindowsPath(path).c_str()); }

}  // namespace kodra::rows
