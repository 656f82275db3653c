// Compares the sample archive in memory with the content of the databases: the plain loops go through the rows that the
// reports read.
#include <gtest/gtest.h>

#include "tests/rows/driver.h"
#include "tests/rows/sample.h"

namespace kodra::rows {
namespace {

class SampleRows : public OnBothEngines {};
INSTANTIATE_TEST_SUITE_P(, SampleRows, BothEngines(), EngineName);

Value CellOf(const testbed::Cell& cell) {
  return std::visit(
      []<class Held>(const Held& held) {
        if constexpr (std::is_same_v<Held, std::monostate>)
          return Value(Null{});
        else if constexpr (std::is_same_v<Held, std::wstring_view>)
          return Value(held);
        else
          return Cell(held);
      },
      cell);
}

TEST_P(SampleRows, AreThoseOfTheGeneratorInEveryTable) {
  testbed::ForEachRecordType([]<class Record>() {
    const testbed::Table<Record>& table = testbed::TableOf<Record>();
    SCOPED_TRACE(testing::PrintToString(std::wstring(table.shape.name)));
    Table expected({});
    for (const testbed::Column& column : table.shape.columns) expected.columns.emplace_back(column.name);
    for (const Record& record : All<Record>()) {
      std::vector<testbed::Cell> cells;
      table.Read(record, cells);
      Table::Row& row = expected.rows.emplace_back();
      for (const testbed::Cell& cell : cells) row.push_back(CellOf(cell));
    }
    ExpectRows(Query(L"SELECT * FROM " + std::wstring(table.shape.name), Sample()), expected);
  });
}

}  // namespace
}  // namespace kodra::rows
