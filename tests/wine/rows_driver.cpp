#include "tests/wine/rows_driver.h"

#include "tests/rows/sample.h"

namespace kodra::face {

Var VarOf(const Value& value) {
  if (value.Is<bool>()) return value.As<bool>();
  if (value.Is<Date>()) return Var::Date(value.As<Date>().days);
  return value.As<std::wstring>();
}

Value ValueOf(const Var& field) {
  const VARIANT& raw = field.raw();
  switch (raw.vt) {
    case VT_EMPTY:
      return Empty{};
    case VT_NULL:
      return Null{};
    case VT_BOOL:
      return raw.boolVal != VARIANT_FALSE;
    case VT_I4:
      return std::int32_t{raw.lVal};
    case VT_R8:
      return raw.dblVal;
    case VT_DATE:
      return Date{raw.date};
    case VT_BSTR:
      return std::wstring(raw.bstrVal, SysStringLen(raw.bstrVal));
    case VT_I8:
      return std::int64_t{raw.llVal};
    case VT_DECIMAL: {
      double number = 0;
      EXPECT_EQ(S_OK, VarR8FromDec(const_cast<DECIMAL*>(&raw.decVal), &number));
      return number;
    }
    default:
      ADD_FAILURE() << "a field of VARTYPE " << raw.vt;
      return Empty{};
  }
}

rows::Table ReadTable(const Ref<IDispatch>& recordset) {
  rows::Table table({});
  std::vector<Ref<IDispatch>> fields;
  const auto collection = Got(Get(recordset, L"Fields")).object();
  for (int i = 0; i < Got(Get(collection, L"Count")).number(); ++i) {
    fields.push_back(Got(Call(collection, L"Item", {i})).object());
    table.columns.push_back(Got(Get(fields.back(), L"Name")).text().value());
  }
  while (Got(Get(recordset, L"EOF")).raw().boolVal == VARIANT_FALSE) {
    rows::Table::Row& row = table.rows.emplace_back();
    for (const auto& field : fields) row.push_back(rows::Cell(ValueOf(Got(Get(field, L"Value")))));
    const HRESULT moved = Call(recordset, L"MoveNext").hr;
    EXPECT_EQ(S_OK, moved);
    if (moved != S_OK) break;
  }
  return table;
}

}  // namespace kodra::face

namespace kodra::rows {
namespace {

// The archives are databases of their own beside those that the program is given: tests of other things read those.
std::wstring OnMariaDb(const std::wstring& database) {
  const std::wstring key = L";Database=";
  std::wstring text = face::Variable(L"KODRA_MYSQL");
  const std::size_t from = text.find(key) + key.size();
  return text.replace(from, text.find(L';', from) - from, database);
}

// The tables of the archive that the program is given, empty or with their rows.
std::wstring CopyOnMariaDb(const std::wstring& database, bool withRows) {
  std::vector<std::wstring> statements{L"DROP DATABASE IF EXISTS " + database,
                                       L"CREATE DATABASE " + database + L" CHARACTER SET utf8mb4"};
  for (const testbed::TableShape& shape : testbed::AllShapes()) {
    const std::wstring table(shape.name);
    statements.push_back(L"CREATE TABLE " + database + L"." + table + L" LIKE " + table);
    if (withRows) statements.push_back(L"INSERT INTO " + database + L"." + table + L" SELECT * FROM " + table);
  }
  Execute(statements, face::Variable(L"KODRA_MYSQL"));
  return OnMariaDb(database);
}

std::wstring SampleOnMariaDb() {
  const std::wstring connection = CopyOnMariaDb(L"linhas", true);
  Execute(ExtraRowStatements(), connection);
  return connection;
}

// A copy of a file under a name of this test program's.
void Copy(const std::wstring& source, const std::wstring& target) {
  EXPECT_TRUE(CopyFileW(face::WindowsPath(source).c_str(), face::WindowsPath(target).c_str(), FALSE)) << GetLastError();
}

const face::OwnFile& SampleFile() {
  static const face::OwnFile file(L"linhas.db");
  static const bool made = [] {
    Copy(face::Variable(L"KODRA_ARCHIVE"), file.path());
    Execute(ExtraRowStatements(), SqliteFile(file.path()));
    return true;
  }();
  EXPECT_TRUE(made);
  return file;
}

const face::OwnFile& EmptyFile() {
  static const face::OwnFile file(L"vazio.db");
  static const bool made = [] {
    Copy(face::Variable(L"KODRA_ARCHIVE"), file.path());
    std::vector<std::wstring> statements;
    for (const testbed::TableShape& table : testbed::AllShapes())
      statements.push_back(L"DELETE FROM " + std::wstring(table.name));
    Execute(statements, SqliteFile(file.path()));
    return true;
  }();
  EXPECT_TRUE(made);
  return file;
}

}  // namespace

Outcome Run(const Report& report, const Properties& properties, const std::wstring& connectionString, From from) {
  const auto parameters = face::ParametersOf(report.className);
  for (const auto& [name, value] : properties)
    EXPECT_EQ(S_OK, face::Put(parameters, name, face::VarOf(value)).hr) << testing::PrintToString(name);
  const face::Outcome called =
      face::RunReport(report.className, report.method, face::Var(parameters.get()), connectionString);
  Outcome outcome;
  if (called.hr != S_OK) {
    const auto& [number, source, description] = called.failure;
    outcome.error = {static_cast<std::int32_t>(number), source, description};
  } else {
    EXPECT_EQ(VT_DISPATCH, called.value.type());
  }
  if (const auto recordset = called.value.object()) {
    if (from == From::kFirstRow) EXPECT_EQ(S_OK, face::Call(recordset, L"MoveFirst").hr);
    outcome.rows = face::ReadTable(recordset);
  }
  return outcome;
}

Table Query(const std::wstring& statement, const std::wstring& connectionString) {
  const auto recordset = face::Create(L"ADODB.Recordset");
  face::Got(face::Call(recordset, L"Open", {statement, connectionString, 0, 1, 1}));
  return face::ReadTable(recordset);
}

void Execute(const std::vector<std::wstring>& statements, const std::wstring& connectionString) {
  const auto connection = face::Create(L"ADODB.Connection");
  face::Got(face::Call(connection, L"Open", {connectionString}));
  for (const auto& statement : statements) face::Got(face::Call(connection, L"Execute", {statement}));
  face::Got(face::Call(connection, L"Close"));
}

std::wstring SampleOn(Engine engine) {
  if (engine == Engine::kSqlite) return SqliteFile(SampleFile().path());
  static const std::wstring mariaDb = SampleOnMariaDb();
  return mariaDb;
}

std::wstring EmptyOn(Engine engine) {
  if (engine == Engine::kSqlite) return SqliteFile(EmptyFile().path());
  static const std::wstring mariaDb = CopyOnMariaDb(L"vazio", false);
  return mariaDb;
}

std::wstring CopySampleFile() {
  static int copies = 0;
  const std::wstring& sample = SampleFile().path();
  const std::wstring path = sample + L"-copia-" + std::to_wstring(++copies);
  Copy(sample, path);
  return path;
}
void RemoveFile(const std::wstring& path) { DeleteFileW(face::WindowsPath(path).c_str()); }

}  // namespace kodra::rows
