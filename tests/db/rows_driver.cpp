#include "tests/db/rows_driver.h"

#include <algorithm>
#include <filesystem>

#include "console/reports/report_methods.h"
#include "odbc/engine/recordset.h"
#include "tests/db/sample.h"

namespace kodra::tests {

frame::ParameterObject ParametersOf(const std::wstring& reportClass, const rows::Properties& properties) {
  frame::ParameterObject object(frame::ParameterClassNamed(reportClass + L"Obj"));
  for (const auto& [name, value] : properties) object.Let(name, value);
  return object;
}

rows::Table Read(platform::Recordset& recordset) {
  auto& read = dynamic_cast<odbc::Recordset&>(recordset);
  rows::Table table({});
  for (std::int32_t i = 0; i < read.FieldCount(); ++i) table.columns.push_back(read.FieldAt(i).name);
  if (read.Eof()) return table;
  table.rows = read.GetRows(-1);
  for (rows::Table::Row& row : table.rows)
    std::transform(row.begin(), row.end(), row.begin(), [](const Value& value) { return rows::Cell(value); });
  return table;
}

}  // namespace kodra::tests

namespace kodra::rows {

Outcome Run(const Report& report, const Properties& properties, const std::wstring& connectionString, From from) {
  tests::Machine machine;
  frame::ParameterObject parameters = tests::ParametersOf(report.className, properties);
  Outcome outcome;
  outcome.error = tests::RaisedBy([&] {
    const auto rows =
        reports::FindReportMethod(report.className, report.method)->call(machine, connectionString, &parameters);
    if (rows == nullptr) return;
    if (from == From::kFirstRow) rows->MoveFirst();
    outcome.rows = tests::Read(*rows);
  });
  return outcome;
}

Table Query(const std::wstring& statement, const std::wstring& connectionString) {
  tests::Machine machine;
  const auto rows = machine.NewRecordset();
  rows->Open(std::wstring_view(statement), connectionString, platform::ad::kUnspecified, platform::ad::kUnspecified,
             platform::ad::kCmdText);
  return tests::Read(*rows);
}

void Execute(const std::vector<std::wstring>& statements, const std::wstring& connectionString) {
  odbc::Connection connection;
  connection.Open(connectionString, L"", L"", platform::ad::kUnspecified);
  for (const std::wstring& statement : statements) connection.Execute(statement, platform::ad::kCmdText);
}

std::wstring SampleOn(Engine engine) { return tests::SampleOn(engine); }
std::wstring EmptyOn(Engine engine) { return tests::EmptyOn(engine); }

std::wstring CopySampleFile() {
  static int copies = 0;
  const std::filesystem::path sample = tests::SampleFile();
  std::filesystem::path copy = sample.parent_path() / ("copia" + std::to_string(++copies) + ".db");
  std::filesystem::copy_file(sample, copy);
  return copy.wstring();
}
void RemoveFile(const std::wstring& path) { std::filesystem::remove(path); }

}  // namespace kodra::rows
