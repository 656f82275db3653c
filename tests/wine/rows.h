// What a recordset contains, as texts, and a report run the way its client does it.
#pragma once

#include <algorithm>
#include <cwchar>

#include "tests/wine/automation.h"
#include "tests/wine/environment.h"

namespace kodra::face {

// A value as text; nothing for a null.
using Cell = std::optional<std::wstring>;
using Cells = std::vector<Cell>;
using Names = std::vector<std::wstring>;

inline std::size_t PositionOf(const Names& columns, const std::wstring& name) {
  const auto found = std::find(columns.begin(), columns.end(), name);
  if (found == columns.end()) throw std::logic_error("no such column");
  return static_cast<std::size_t>(found - columns.begin());
}

// A date stands as "2024-05-31 08:30:00": such texts are in the order of their dates.
inline Cell CellOf(const Var& value) {
  SYSTEMTIME time;
  if (value.type() != VT_DATE || !VariantTimeToSystemTime(value.raw().date, &time)) return value.text();
  wchar_t text[32];
  swprintf(text, 32, L"%04u-%02u-%02u %02u:%02u:%02u", time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute,
           time.wSecond);
  return text;
}

struct Rows {
  Names columns;
  std::vector<Cells> rows;
};

// A row with its column names.
class Row {
 public:
  Row(const Names& columns, const Cells& cells) : columns_(columns), cells_(cells) {}
  const Cell& operator[](const std::wstring& name) const { return cells_[PositionOf(columns_, name)]; }
  Cells Pick(const Names& names) const {
    Cells picked;
    for (const auto& name : names) picked.push_back((*this)[name]);
    return picked;
  }

 private:
  const Names& columns_;
  const Cells& cells_;
};

// Reads a recordset from its current row to its end.
inline Rows ReadAll(const Ref<IDispatch>& recordset) {
  Rows result;
  const auto fields = Got(Get(recordset, L"Fields")).object();
  std::vector<Ref<IDispatch>> columns;
  for (int i = 0; i < Got(Get(fields, L"Count")).number(); ++i) {
    columns.push_back(Got(Call(fields, L"Item", {i})).object());
    result.columns.push_back(Got(Get(columns.back(), L"Name")).text().value());
  }
  const auto isOnRow = [&] {
    const Outcome end = Get(recordset, L"EOF");
    EXPECT_EQ(S_OK, end.hr) << testing::PrintToString(end.failure);
    return end.hr == S_OK && end.value.raw().boolVal == VARIANT_FALSE;
  };
  bool moved = true;
  while (moved && isOnRow()) {
    Cells cells;
    for (const auto& column : columns) cells.push_back(CellOf(Got(Get(column, L"Value"))));
    result.rows.push_back(std::move(cells));
    moved = Call(recordset, L"MoveNext").hr == S_OK;
    EXPECT_TRUE(moved);
  }
  return result;
}

// A report's recordset by the client's way: create, connect, fill the parameter object, call.
inline Outcome RunReport(const std::wstring& name, const std::wstring& method, const Var& obj,
                         const std::wstring& connection) {
  const auto report = Create(L"KodraRpt." + name);
  EXPECT_EQ(S_OK, Put(report, L"StringConexao", connection).hr);
  return Call(report, method, {obj});
}
inline Ref<IDispatch> OpenReport(const std::wstring& name, const std::wstring& method, const Ref<IDispatch>& obj) {
  return Got(RunReport(name, method, Var(obj.get()), ArchiveConnection())).object();
}
inline Ref<IDispatch> OpenReport(const std::wstring& name, const std::wstring& method) {
  return OpenReport(name, method, Create(L"KodraRpt." + name + L"Obj"));
}

// Compares columns, values and order. Rows that are equal in every column of `orderBy` may stand in any order among
// themselves; nulls stand first and text stands by code point, as SQLite orders.
inline void ExpectRows(Rows expected, Rows actual, const Names& orderBy) {
  ASSERT_EQ(expected.columns, actual.columns);
  ASSERT_EQ(expected.rows.size(), actual.rows.size());
  const auto keys = [&](const Rows& rows) {
    std::vector<Cells> result;
    for (const Cells& cells : rows.rows) result.push_back(Row(rows.columns, cells).Pick(orderBy));
    return result;
  };
  auto expectedKeys = keys(expected);
  std::sort(expectedKeys.begin(), expectedKeys.end());
  EXPECT_EQ(expectedKeys, keys(actual)) << "order";
  std::sort(expected.rows.begin(), expected.rows.end());
  std::sort(actual.rows.begin(), actual.rows.end());
  for (std::size_t i = 0; i < expected.rows.size(); ++i) EXPECT_EQ(expected.rows[i], actual.rows[i]) << i;
}

}  // namespace kodra::face
