// The sample archive on one database as its client reaches it: its tables, and the reports run by ProgID and member
// name.
//
//   class SupportRows : public OnBothDatabases {};
//   KODRA_ON_BOTH_DATABASES(SupportRows);
//   TEST_P(SupportRows, ...) { ExpectRows(..., RowsOf(L"CSuporteRpt", L"RelatorioSuportes"), {L"DESCR_SUPORTE"}); }
#pragma once

#include <functional>
#include <map>
#include <set>

#include "tests/wine/rows.h"

namespace kodra::face {

enum class Engine { kSQLite, kMariaDb };

inline std::wstring ConnectionOn(Engine engine) {
  return engine == Engine::kSQLite ? ArchiveConnection() : Variable(L"KODRA_MYSQL");
}

// Values of a parameter object.
using Properties = std::vector<std::pair<const wchar_t*, Var>>;

inline Ref<IDispatch> ParametersOf(const std::wstring& report, const Properties& properties = {}) {
  auto parameters = Create(L"KodraRpt." + report + L"Obj");
  for (const auto& [name, value] : properties)
    EXPECT_EQ(S_OK, Put(parameters, name, value).hr) << testing::PrintToString(std::wstring(name));
  return parameters;
}

// An error in the frame that most reports have.
inline Failure Framed(const std::wstring& source, const std::wstring& cause) {
  return {0x80041FAB, L"KodraRpt." + source, L"Erro ao gerar dados para o relatório: " + cause};
}
// What the shared opener makes of SQLite's refusal of a statement.
inline std::wstring RefusedBySQLite(const std::wstring& message) {
  return L"[Microsoft OLE DB Provider for ODBC Drivers]: [SQLite]" + message + L" (1) [N:1]";
}

// A day written "2024-05-31", as a date and as people in Brazil write it.
inline Var DayOf(const std::wstring& iso) {
  SYSTEMTIME time = {};
  time.wYear = static_cast<WORD>(std::stoi(iso.substr(0, 4)));
  time.wMonth = static_cast<WORD>(std::stoi(iso.substr(5, 2)));
  time.wDay = static_cast<WORD>(std::stoi(iso.substr(8, 2)));
  double days = 0;
  EXPECT_TRUE(SystemTimeToVariantTime(&time, &days));
  return Var::Date(days);
}
inline std::wstring Brazilian(const std::wstring& iso) {
  return iso.substr(8, 2) + L"/" + iso.substr(5, 2) + L"/" + iso.substr(0, 4);
}

inline std::wstring OrEmpty(const Cell& cell) { return cell.value_or(L""); }

// Reads a recordset from its first row, wherever it stands.
inline Rows ReadFromFirst(const Ref<IDispatch>& recordset) {
  EXPECT_EQ(S_OK, Call(recordset, L"MoveFirst").hr);
  return ReadAll(recordset);
}

class ArchiveClient {
 public:
  explicit ArchiveClient(Engine engine) : engine_(engine) {}

  std::wstring Connection() const { return ConnectionOn(engine_); }

  // A table; read once for the whole program.
  const Table& TableOf(const std::wstring& name) const {
    static std::map<std::pair<Engine, std::wstring>, Table> tables;
    const auto key = std::pair(engine_, name);
    auto found = tables.find(key);
    if (found == tables.end()) found = tables.emplace(key, Table(name, Connection())).first;
    return found->second;
  }
  std::vector<Row> All(const std::wstring& table) const { return TableOf(table).rows(); }
  // The row that a join finds by a code.
  std::optional<Row> Find(const std::wstring& table, const std::wstring& column, const Cell& value) const {
    const std::vector<Row> found = TableOf(table).Where(column, value);
    EXPECT_GE(1U, found.size()) << testing::PrintToString(table);
    if (found.empty()) return std::nullopt;
    return found.front();
  }
  // The row of a code that is there.
  Row RowOf(const std::wstring& table, const std::wstring& column, const Cell& value) const {
    return Find(table, column, value).value();
  }
  // The organisation that the reports name.
  Cell Company() const { return RowOf(L"PARAMETRO", L"CODIGO", L"1")[L"EMPRESA"]; }

  Outcome OutcomeOf(const std::wstring& report, const std::wstring& method, const Properties& properties = {}) const {
    return RunReport(report, method, Var(ParametersOf(report, properties).get()), Connection());
  }
  Ref<IDispatch> Open(const std::wstring& report, const std::wstring& method, const Properties& properties = {}) const {
    return Got(OutcomeOf(report, method, properties)).object();
  }
  Rows RowsOf(const std::wstring& report, const std::wstring& method, const Properties& properties = {}) const {
    return ReadAll(Open(report, method, properties));
  }
  Failure ErrorOf(const std::wstring& report, const std::wstring& method, const Properties& properties = {}) const {
    const Outcome outcome = OutcomeOf(report, method, properties);
    EXPECT_FALSE(outcome.value.object());
    return outcome.failure;
  }

 private:
  Engine engine_;
};

// Tests of what is the same on both databases.
class OnBothDatabases : public testing::TestWithParam<Engine>, protected ArchiveClient {
 protected:
  OnBothDatabases() : ArchiveClient(GetParam()) {}
};

inline std::string EngineName(const testing::TestParamInfo<Engine>& info) {
  return info.param == Engine::kSQLite ? "OnSQLite" : "OnMariaDb";
}

#define KODRA_ON_BOTH_DATABASES(suite) \
  INSTANTIATE_TEST_SUITE_P(, suite, testing::Values(Engine::kSQLite, Engine::kMariaDb), EngineName)

// Tests of what is one database's own.
template <Engine kEngine>
class OnOneDatabase : public testing::Test, protected ArchiveClient {
 protected:
  OnOneDatabase() : ArchiveClient(kEngine) {}
};
using OnSQLite = OnOneDatabase<Engine::kSQLite>;
using OnMariaDb = OnOneDatabase<Engine::kMariaDb>;

// Compares columns, values and the place of every row.
inline void ExpectExactly(const Rows& expected, const Rows& actual) {
  ASSERT_EQ(expected.columns, actual.columns);
  ASSERT_EQ(expected.rows.size(), actual.rows.size());
  for (std::size_t i = 0; i < expected.rows.size(); ++i) EXPECT_EQ(expected.rows[i], actual.rows[i]) << i;
}

inline void ExpectNoRows(const Names& columns, const Rows& actual) {
  EXPECT_EQ(columns, actual.columns);
  EXPECT_EQ(std::vector<Cells>(), actual.rows);
}

// A copy of the archive in SQLite with changes of the test's own.
class OwnArchive {
 public:
  explicit OwnArchive(const Names& changes) : file_(L"acervo.db") {
    const std::wstring source = WindowsPath(Variable(L"KODRA_ARCHIVE"));
    EXPECT_TRUE(CopyFileW(source.c_str(), file_.windowsPath().c_str(), FALSE)) << GetLastError();
    const auto connection = Create(L"ADODB.Connection");
    EXPECT_EQ(S_OK, Call(connection, L"Open", {Connection()}).hr);
    for (const auto& change : changes) Got(Call(connection, L"Execute", {change}));
    EXPECT_EQ(S_OK, Call(connection, L"Close").hr);
  }

  std::wstring Connection() const { return ConnectionTo(file_.path()); }
  void Delete() const { EXPECT_TRUE(DeleteFileW(file_.windowsPath().c_str())) << GetLastError(); }

 private:
  OwnFile file_;
};

}  // namespace kodra::face
