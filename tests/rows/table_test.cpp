// The comparison that the tests of rows rely on: the differences that it must find.
#include "tests/rows/table.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

namespace kodra::rows {
namespace {

Table Rows(std::initializer_list<std::pair<const wchar_t*, std::int64_t>> rows) {
  Table table({L"NOME", L"QTD"});
  for (const auto& [name, number] : rows) table.Add(name, number);
  return table;
}

TEST(Rows, AreTheSameInAnyOrderUnlessAnOrderIsRequired) {
  ExpectRows(Rows({{L"b", 2}, {L"a", 1}, {L"a", 1}}), Rows({{L"a", 1}, {L"a", 1}, {L"b", 2}}));
  EXPECT_NONFATAL_FAILURE(ExpectRows(Rows({{L"b", 2}, {L"a", 1}}), Rows({{L"a", 1}, {L"b", 2}}), {L"NOME"}),
                          "out of order: 'a' | 1");
}

TEST(Rows, ADifferentValueAMissingRowAndADuplicateAreFound) {
  EXPECT_NONFATAL_FAILURE(ExpectRows(Rows({{L"a", 1}}), Rows({{L"a", 2}})),
                          "only read:     1 of 1 rows\n    'a' | 1\nonly expected: 1 of 1 rows\n    'a' | 2");
  EXPECT_NONFATAL_FAILURE(ExpectRows(Rows({{L"a", 1}}), Rows({{L"a", 1}, {L"a", 1}})), "only expected: 1 of 2 rows");
  EXPECT_NONFATAL_FAILURE(ExpectRows(Rows({{L"a", 1}, {L"a", 1}}), Rows({{L"a", 1}})), "only read:     1 of 2 rows");
}

TEST(Rows, OfOtherColumnsAndOfAnEmptyExpectationFail) {
  EXPECT_FATAL_FAILURE(ExpectRows(Table({L"QTD", L"NOME"}), Rows({{L"a", 1}})), "actual.columns");
  EXPECT_FATAL_FAILURE(ExpectRows(Rows({}), Rows({})), "the test expects nothing");
  EXPECT_NONFATAL_FAILURE(ExpectNoRows(Rows({{L"a", 1}}), {L"NOME", L"QTD"}), "actual.rows.size()");
}

TEST(Cells, NumbersOfEveryTypeAreEqualAndDatesCountToTheSecond) {
  EXPECT_EQ(Cell(Value(std::int32_t{7})), Cell(Value(std::int64_t{7})));
  EXPECT_EQ(Cell(Value(7.0)), Cell(std::int64_t{7}));
  EXPECT_EQ(Cell(Value(Date{45443.000000001})), Cell(std::chrono::sys_days(std::chrono::year(2024) / 5 / 31)));
  EXPECT_NE(Cell(Value(Date{45443.0001})), Cell(Value(Date{45443.0})));
  EXPECT_NE(Cell(Value(L"2024-05-31")), Cell(Value(Date{45443.0})));
  EXPECT_NE(Cell(Value(L"")), Cell(Value(Null{})));
  EXPECT_NE(Cell(Value(L"7")), Cell(std::int64_t{7}));
}

}  // namespace
}  // namespace kodra::rows
