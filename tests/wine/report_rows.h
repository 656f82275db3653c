// The sample archive on SQLite and on MariaDB for a client that runs reports by ProgID and member name, and copies of
// it that a test may change.
//
//   const ArchiveClient client(Engine::kMariaDb);
//   const Table supports = client.RowsOf(L"CSuporteRpt", L"RelatorioSuportes");
#pragma once

#include "tests/rows/engine.h"
#include "tests/wine/rows.h"

namespace kodra::face {

using rows::Engine;

inline std::wstring ConnectionOn(Engine engine) {
  return engine == Engine::kSqlite ? ArchiveConnection() : Variable(L"KODRA_MYSQL");
}

// The properties that a client sets in a parameter object.
using Properties = std::vector<std::pair<const wchar_t*, Var>>;

inline Ref<IDispatch> ParametersOf(const std::wstring& report, const Properties& properties = {}) {
  auto parameters = Create(L"KodraRpt." + report + L"Obj");
  for (const auto& [name, value] : properties)
    EXPECT_EQ(S_OK, Put(parameters, name, value).hr) << testing::PrintToString(std::wstring(name));
  return parameters;
}

// A day written "2024-05-31".
inline Var DayOf(const std::wstring& iso) {
  SYSTEMTIME time = {};
  time.wYear = static_cast<WORD>(std::stoi(iso.substr(0, 4)));
  time.wMonth = static_cast<WORD>(std::stoi(iso.substr(5, 2)));
  time.wDay = static_cast<WORD>(std::stoi(iso.substr(8, 2)));
  double days = 0;
  EXPECT_TRUE(SystemTimeToVariantTime(&time, &days));
  return Var::Date(days);
}

class ArchiveClient {
 public:
  explicit ArchiveClient(Engine engine) : engine_(engine) {}

  std::wstring Connection() const { return ConnectionOn(engine_); }

  Ref<IDispatch> Open(const std::wstring& report, const std::wstring& method, const Properties& properties = {}) const {
    const auto parameters = ParametersOf(report, properties);
    return Got(RunReport(report, method, Var(parameters.get()), Connection())).object();
  }
  Table RowsOf(const std::wstring& report, const std::wstring& method, const Properties& properties = {}) const {
    return ReadAll(Open(report, method, properties));
  }

 private:
  Engine engine_;
};

// Tests that run on both databases.
class OnBothDatabases : public testing::TestWithParam<Engine>, protected ArchiveClient {
 protected:
  OnBothDatabases() : ArchiveClient(GetParam()) {}
};

// A copy of the sample archive in SQLite after statements that change it.
class ArchiveCopy {
 public:
  explicit ArchiveCopy(const Texts& changes, const std::wstring& file = L"acervo.db") : file_(file) {
    const std::wstring source = WindowsPath(Variable(L"KODRA_ARCHIVE"));
    EXPECT_TRUE(CopyFileW(source.c_str(), file_.windowsPath().c_str(), FALSE)) << GetLastError();
    const auto connection = Create(L"ADODB.Connection");
    Got(Call(connection, L"Open", {Connection()}));
    for (const auto& change : changes) Got(Call(connection, L"Execute", {change}));
    Got(Call(connection, L"Close"));
  }

  const std::wstring& path() const { return file_.path(); }
  std::wstring Connection() const { return ConnectionTo(path()); }
  void Delete() const { EXPECT_TRUE(file_.Delete()) << GetLastError(); }

 private:
  TemporaryFile file_;
};

}  // namespace kodra::face
