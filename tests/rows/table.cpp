#include "tests/rows/table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "values/decimal.h"
#include "values/utf8.h"

namespace kodra::rows {
namespace {

using testbed::Day;
using testbed::Moment;

constexpr double kSecondsADay = 86400;
constexpr std::size_t kRowsShown = 3;

// Nulls come before everything, as both databases sort them; then kind and value decide.
bool Less(const Value& a, const Value& b) {
  if (a.Held().index() != b.Held().index()) return a.Held().index() < b.Held().index();
  if (a.Is<bool>()) return a.As<bool>() < b.As<bool>();
  if (a.Is<double>()) return a.As<double>() < b.As<double>();
  if (a.Is<Date>()) return a.As<Date>().days < b.As<Date>().days;
  if (a.Is<std::wstring>()) return a.As<std::wstring>() < b.As<std::wstring>();
  return false;
}

bool RowLess(const Table::Row& a, const Table::Row& b) {
  return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), Less);
}

using values::ToUtf8;

std::string Shown(const Value& value) {
  if (value.Is<Null>()) return "NULL";
  if (value.Is<Empty>()) return "EMPTY";
  if (value.Is<bool>()) return value.As<bool>() ? "TRUE" : "FALSE";
  if (value.Is<double>()) return testing::PrintToString(value.As<double>());
  if (value.Is<Date>()) return "DATE " + testing::PrintToString(value.As<Date>().days);
  if (value.Is<std::wstring>()) return "'" + ToUtf8(value.As<std::wstring>()) + "'";
  return "OBJECT";
}

std::string Shown(const Table::Row& row) {
  std::string text;
  for (const Value& value : row) text.append(text.empty() ? "" : " | ").append(Shown(value));
  return text;
}

// The rows of one table that the other does not have; both are sorted.
std::string Surplus(const std::vector<Table::Row>& rows, const std::vector<Table::Row>& others) {
  std::vector<Table::Row> surplus;
  std::set_difference(rows.begin(), rows.end(), others.begin(), others.end(), std::back_inserter(surplus), RowLess);
  std::string text = std::to_string(surplus.size()) + " of " + std::to_string(rows.size()) + " rows";
  for (std::size_t i = 0; i < std::min(surplus.size(), kRowsShown); ++i) text += "\n    " + Shown(surplus[i]);
  return text;
}

std::vector<std::size_t> Positions(const Table& table, const std::vector<std::wstring>& names) {
  std::vector<std::size_t> positions;
  for (const std::wstring& name : names) {
    const auto found = std::find(table.columns.begin(), table.columns.end(), name);
    if (found == table.columns.end()) {
      ADD_FAILURE() << "no column " << ToUtf8(name);
      continue;
    }
    positions.push_back(static_cast<std::size_t>(found - table.columns.begin()));
  }
  return positions;
}

}  // namespace

Value Cell(const Value& value) {
  if (value.Is<std::int32_t>()) return static_cast<double>(value.As<std::int32_t>());
  if (value.Is<std::int64_t>()) return static_cast<double>(value.As<std::int64_t>());
  if (value.Is<float>()) return static_cast<double>(value.As<float>());
  if (value.Is<Decimal>()) return values::ToDouble(value.As<Decimal>());
  if (value.Is<Date>()) return Date{std::round(value.As<Date>().days * kSecondsADay) / kSecondsADay};
  return value;
}

Value Cell(Day day) { return Cell(Moment(day)); }

Value Cell(Moment moment) {
  constexpr Day kFirst = std::chrono::year(1899) / 12 / 30;
  return Date{static_cast<double>((moment - Moment(kFirst)).count()) / kSecondsADay};
}

std::vector<Value> Table::Column(const std::wstring& name) const {
  std::vector<Value> values;
  for (const std::size_t position : Positions(*this, {name})) {
    for (const Row& row : rows) values.push_back(row[position]);
  }
  return values;
}

void ExpectRows(Table actual, Table expected, const std::vector<std::wstring>& order) {
  ASSERT_EQ(actual.columns, expected.columns);
  ASSERT_FALSE(expected.rows.empty()) << "the test expects nothing";
  const std::vector<std::size_t> keys = Positions(actual, order);
  const auto before = [&](const Table::Row& a, const Table::Row& b) {
    for (const std::size_t key : keys) {
      if (Less(a[key], b[key])) return true;
      if (Less(b[key], a[key])) return false;
    }
    return false;
  };
  const auto unordered = std::is_sorted_until(actual.rows.begin(), actual.rows.end(), before);
  EXPECT_TRUE(unordered == actual.rows.end()) << "out of order: " << Shown(*unordered);
  std::sort(actual.rows.begin(), actual.rows.end(), RowLess);
  std::sort(expected.rows.begin(), expected.rows.end(), RowLess);
  if (actual.rows == expected.rows) return;
  ADD_FAILURE() << "only read:     " << Surplus(actual.rows, expected.rows)
                << "\nonly expected: " << Surplus(expected.rows, actual.rows);
}

void ExpectNoRows(const Table& actual, const std::vector<std::wstring>& columns) {
  EXPECT_EQ(actual.columns, columns);
  EXPECT_EQ(actual.rows.size(), 0U);
}

void ExpectExactly(const Table& actual, const Table& expected) {
  ExpectRows(actual, expected);
  for (std::size_t i = 0; i < std::min(actual.rows.size(), expected.rows.size()); ++i) {
    ASSERT_EQ(Shown(actual.rows[i]), Shown(expected.rows[i])) << "row " << i;
  }
}

}  // namespace kodra::rows
