// The console program's guide to the reports, compared with their rows on both databases.
#include <algorithm>
#include <cmath>
#include <map>
#include <optional>

#include "console/command_line/parameter_value.h"
#include "console/command_line/report_name.h"
#include "console/reports/guide.h"
#include "tests/db/rows_driver.h"
#include "values/erro.h"
#include "values/utf8.h"

namespace kodra::tests {
namespace {

using console::guide::RowsKind;
using console::guide::ValueType;
using reports::ReportMethod;
using rows::Engine;
using rows::Table;
using values::FromUtf8;
using values::ToUtf8;

// Parameter values for which the reports find rows in the sample archive.
const std::map<std::wstring_view, std::string_view> kValues = {
    {L"DataInicial", "2010-07-01"},
    {L"DataFinal", "2010-12-31"},
    {L"CodGrupo", "001"},
    {L"CodSolicit", "1"},
    {L"Modulo1", "AA001"},
    {L"Container1", "CT9002"},
    {L"NumeroPC1", "5"},
    {L"NumeroPC2", "4"},
    {L"NumeroPC3", "3"},
    {L"NumeroPC4", "2"},
    {L"NumeroPC5", "1"},
    {L"NumeroObs", "0"},
    {L"Owner", "Arquivo Geral"},
    {L"DescrDepto", "Todos"},
    {L"DescrOperador", "Todos"},
};

frame::ParameterObject ParametersOf(const ReportMethod& method, std::string_view kind) {
  const frame::ParameterClass& parameterClass = frame::ParameterClassNamed(method.parameterClass);
  frame::ParameterObject object(parameterClass);
  for (const frame::Property& property : parameterClass.properties) {
    const auto value = kValues.find(property.name);
    if (value != kValues.end()) object.Let(property.name, console::ParameterValue(property, value->second));
    if (property.name == L"TipoRpt") object.Let(property.name, std::wstring(kind.begin(), kind.end()));
  }
  return object;
}

bool IsThere(const console::guide::Column& column, std::string_view kind) {
  if (column.kinds == "*") return kind != "F" && kind != "P";
  return column.kinds.empty() || column.kinds.find(kind) != std::string_view::npos;
}

std::vector<console::guide::Column> ColumnsOf(const ReportMethod& method, std::string_view kind) {
  std::vector<console::guide::Column> columns;
  for (const console::guide::Column& column : console::guide::About(method).columns)
    if (IsThere(column, kind)) columns.push_back(column);
  return columns;
}

bool IsOfType(const Value& value, ValueType type) {
  switch (type) {
    case ValueType::kText:
      return value.Is<std::wstring>();
    case ValueType::kNumber:
      return value.Is<double>();
    case ValueType::kDate:
      return value.Is<Date>() && value.As<Date>().days == std::floor(value.As<Date>().days);
    case ValueType::kMoment:
      return value.Is<Date>();
    case ValueType::kFlag:
      return value.Is<bool>();
  }
  return false;
}

// Columns without any value in the sample archive: the parts of an action beyond its length, and the remarks of the
// inventory entries.
bool MayBeEmpty(const console::guide::Column& column) {
  return column.name.starts_with("ACAO") || column.name == "OBS";
}

bool HasKinds(const ReportMethod& method) {
  const auto columns = console::guide::About(method).columns;
  return std::ranges::any_of(columns, [](const console::guide::Column& column) { return !column.kinds.empty(); });
}

bool AcceptsNewRows(platform::Recordset& rows) {
  try {
    rows.AddNew();
    return true;
  } catch (const Erro&) {
    return false;
  }
}

class GuideRows : public rows::OnBothEngines {
 protected:
  // The rows of a report; nothing where this database refuses its statement.
  std::optional<Table> RowsOf(const ReportMethod& method, std::string_view kind) {
    frame::ParameterObject parameters = ParametersOf(method, kind);
    try {
      const frame::ReportRows rows = method.call(machine_, Sample(), &parameters);
      Table table = Read(*rows);
      CheckKind(method, *rows);
      return table;
    } catch (const Erro& error) {
      EXPECT_TRUE(IsExcused(method)) << ToUtf8(error.Description());
      return std::nullopt;
    }
  }

  // Whether this database makes something else of the report's statement.
  static bool IsExcused(const ReportMethod& method) {
    return GetParam() == Engine::kSqlite && console::guide::IsOddOnSqlite(console::guide::About(method));
  }

  static void CheckKind(const ReportMethod& method, platform::Recordset& rows) {
    const RowsKind kind = console::guide::About(method).rows;
    EXPECT_EQ(rows.RecordCount() == -1, kind == RowsKind::kStreamed);
    EXPECT_EQ(AcceptsNewRows(rows), kind == RowsKind::kInMemory);
  }

  void CheckReport(const ReportMethod& method, std::string_view kind) {
    SCOPED_TRACE(console::NameOf(method) + " " + std::string(kind));
    const std::optional<Table> table = RowsOf(method, kind);
    if (!table) return;
    const std::vector<console::guide::Column> columns = ColumnsOf(method, kind);
    std::vector<std::wstring> names;
    for (const console::guide::Column& column : columns) names.push_back(FromUtf8(column.name));
    ASSERT_EQ(table->columns, names);
    EXPECT_TRUE(!table->rows.empty() || IsExcused(method));
    for (std::size_t at = 0; at < columns.size(); ++at) CheckValues(*table, at, columns[at]);
  }

  void CheckValues(const Table& table, std::size_t at, const console::guide::Column& column) {
    bool isSeen = false;
    for (const Table::Row& row : table.rows) {
      if (row[at].Is<Null>() || row[at].Is<Empty>()) continue;
      isSeen = true;
      ASSERT_TRUE(IsOfType(row[at], column.type))
          << column.name << " holds a value of alternative " << row[at].Held().index();
    }
    EXPECT_TRUE(isSeen || GetParam() == Engine::kSqlite || MayBeEmpty(column)) << "only nulls in " << column.name;
  }

  Machine machine_;
};
INSTANTIATE_TEST_SUITE_P(, GuideRows, rows::BothEngines(), rows::EngineName);

TEST_P(GuideRows, AreOfTheKindOfTheGuideWithItsColumnsInOrderAndOfTheirTypes) {
  for (const ReportMethod& method : reports::ReportMethods()) {
    CheckReport(method, "N");
    if (!HasKinds(method)) continue;
    CheckReport(method, "F");
    CheckReport(method, "P");
  }
}

}  // namespace
}  // namespace kodra::tests
