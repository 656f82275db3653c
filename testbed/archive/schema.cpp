#include "testbed/archive/schema.h"

#include <cstdio>

namespace kodra::testbed {
namespace {

std::wstring TypeName(const Column& column, Engine engine) {
  switch (column.type) {
    case ColumnType::kText:
      return L"VARCHAR(" + std::to_wstring(column.length) + L")";
    case ColumnType::kLongText:
      // The longest length that all of these engines accept.
      return engine == Engine::kStandard ? L"VARCHAR(32000)" : L"TEXT";
    case ColumnType::kInteger:
      return engine == Engine::kMySql ? L"INT" : L"INTEGER";
    case ColumnType::kDate:
      return L"DATE";
    case ColumnType::kMoment:
      return engine == Engine::kMySql ? L"DATETIME" : L"TIMESTAMP";
  }
  return {};
}

}  // namespace

std::vector<TableShape> AllShapes() {
  std::vector<TableShape> shapes;
  ForEachRecordType([&]<class Record>() { shapes.push_back(TableOf<Record>().shape); });
  return shapes;
}

std::wstring CreateTable(const TableShape& table, Engine engine) {
  std::wstring sql = L"CREATE TABLE " + std::wstring(table.name) + L" (\n";
  std::wstring key;
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    const Column& column = table.columns[i];
    const bool inKey = i < table.keyColumns;
    sql += (i > 0 ? L",\n  " : L"  ") + std::wstring(column.name) + L" " + TypeName(column, engine);
    if (inKey) sql += L" NOT NULL";
    if (inKey) key += (key.empty() ? L"" : L", ") + std::wstring(column.name);
  }
  if (!key.empty()) sql += L",\n  PRIMARY KEY (" + key + L")";
  sql += L"\n)";
  // Comparison by code point, as in SQLite, so that both engines return the same rows in the same order.
  if (engine == Engine::kMySql) sql += L" DEFAULT CHARACTER SET utf8mb4 COLLATE utf8mb4_bin";
  return sql;
}

std::vector<std::wstring> CreateIndexes(const TableShape& table) {
  std::vector<std::wstring> statements;
  for (const std::wstring_view column : table.indexed) {
    const std::wstring name = std::wstring(table.name) + L"_" + std::wstring(column);
    statements.push_back(L"CREATE INDEX IX_" + name + L" ON " + std::wstring(table.name) + L" (" +
                         std::wstring(column) + L")");
  }
  return statements;
}

std::wstring InsertTarget(const TableShape& table) {
  std::wstring target = std::wstring(table.name) + L" (";
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    if (i != 0) target += L", ";
    target += table.columns[i].name;
  }
  return target + L")";
}

std::string IsoText(Day day) {
  const std::chrono::year_month_day date{day};
  char text[16];
  std::snprintf(text, sizeof text, "%04d-%02u-%02u", static_cast<int>(date.year()) % 10000,
                static_cast<unsigned>(date.month()) % 100, static_cast<unsigned>(date.day()) % 100);
  return text;
}

std::string IsoText(Moment moment) {
  const Day day = std::chrono::floor<std::chrono::days>(moment);
  const std::chrono::hh_mm_ss time{moment - day};
  char text[16];
  std::snprintf(text, sizeof text, " %02d:%02d:%02d", static_cast<int>(time.hours().count()) % 100,
                static_cast<int>(time.minutes().count()) % 100, static_cast<int>(time.seconds().count()) % 100);
  return IsoText(day) + text;
}

}  // namespace kodra::testbed
