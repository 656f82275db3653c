// How a client runs a report and uses a database.
//
// The functions of the first part are the driver, which each program that runs the tests of rows defines for its kind
// of client: kodra_test_db calls the reports over ODBC (tests/db/rows_driver.cpp), and kodra_test_wine creates them by
// ProgID and reads them through ADO (tests/wine/rows_driver.cpp). The rest is the same for both.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tests/odbc/raised.h"
#include "tests/rows/engine.h"
#include "tests/rows/table.h"

namespace kodra::rows {

using tests::Raised;

// A report method: L"CDeptoRpt", L"RelatorioDeptos".
struct Report {
  std::wstring className;
  std::wstring method;
};

// The properties that a client sets in the parameter object.
using Properties = std::vector<std::pair<std::wstring, Value>>;

// Where a client begins to read: most recordsets are on their first row, one that was filled in memory may be on its
// last.
enum class From { kCurrentRow, kFirstRow };

// The result of a call: an error (its number is 0 when there is none), a recordset's rows, or neither.
struct Outcome {
  Raised error;
  std::optional<Table> rows;
};

// Calls a report method of a new report object.
Outcome Run(const Report& report, const Properties& properties, const std::wstring& connectionString,
            From from = From::kCurrentRow);
// The rows of the test's own query.
Table Query(const std::wstring& statement, const std::wstring& connectionString);
// Executes the test's own statements.
void Execute(const std::vector<std::wstring>& statements, const std::wstring& connectionString);

// The connection strings of the sample archive and of the archive whose tables are all empty. Tests only read them.
std::wstring SampleOn(Engine engine);
std::wstring EmptyOn(Engine engine);
// Makes a copy of the sample archive's SQLite file; returns its path as a connection string names it.
std::wstring CopySampleFile();
void RemoveFile(const std::wstring& path);

// -- The same for every client --------------------------------------------------------------------------------------

inline std::wstring SqliteFile(const std::wstring& path) { return L"Driver={SQLite3};Database=" + path + L";"; }

// A copy of the sample archive in SQLite with the test's own changes, deleted with the object.
class ChangedArchive {
 public:
  explicit ChangedArchive(const std::vector<std::wstring>& statements) : path_(CopySampleFile()) {
    Execute(statements, ConnectionString());
  }
  ~ChangedArchive() { RemoveFile(path_); }
  ChangedArchive(const ChangedArchive&) = delete;
  ChangedArchive& operator=(const ChangedArchive&) = delete;

  std::wstring ConnectionString() const { return SqliteFile(path_); }

 private:
  std::wstring path_;
};

// The rows of a report that returns a recordset.
inline Table RowsAt(const std::wstring& connectionString, const Report& report, const Properties& properties = {},
                    From from = From::kCurrentRow) {
  Outcome outcome = Run(report, properties, connectionString, from);
  EXPECT_EQ(outcome.error, Raised());
  EXPECT_TRUE(outcome.rows.has_value()) << "no recordset";
  return outcome.rows ? *std::move(outcome.rows) : Table({});
}
// The error that a report raises.
inline Raised ErrorAt(const std::wstring& connectionString, const Report& report, const Properties& properties = {}) {
  const Outcome outcome = Run(report, properties, connectionString);
  EXPECT_FALSE(outcome.rows.has_value());
  return outcome.error;
}
// A report that has nothing to return returns no recordset and no error.
inline void ExpectNoRecordset(const std::wstring& connectionString, const Report& report,
                              const Properties& properties = {}) {
  const Outcome outcome = Run(report, properties, connectionString);
  EXPECT_EQ(outcome.error, Raised());
  EXPECT_FALSE(outcome.rows.has_value());
}

inline constexpr auto kReportError = static_cast<std::int32_t>(0x80041FABU);

// An error in the frame that most reports have.
inline Raised Framed(const std::wstring& member, const std::wstring& cause) {
  return {kReportError, L"KodraRpt." + member, L"Erro ao gerar dados para o relatório: " + cause};
}
// The cause of a statement that SQLite refused.
inline std::wstring RefusedBySqlite(const std::wstring& message) {
  return L"[Microsoft OLE DB Provider for ODBC Drivers]: [SQLite]" + message + L" (1) [N:1]";
}
// A file that no machine has, and a report's message about it.
inline constexpr const wchar_t* kMissingFile = L"/nao/existe/acervo.db";
inline const std::wstring kFileIsMissing =
    L"[modADO.AbreCn]: [modADO::PreAbreCn]: Banco de dados \"/nao/existe/acervo.db\" não encontrado.";

// Tests with the same result on both databases.
class OnBothEngines : public testing::TestWithParam<Engine> {
 protected:
  static std::wstring Sample() { return SampleOn(GetParam()); }
  static Table RowsOf(const Report& report, const Properties& properties = {}, From from = From::kCurrentRow) {
    return RowsAt(Sample(), report, properties, from);
  }
  static Raised ErrorOf(const Report& report, const Properties& properties = {}) {
    return ErrorAt(Sample(), report, properties);
  }
};

}  // namespace kodra::rows
