// Rows as a client reads them and as a test computes them, in one form that is compared as a whole.
//
//   Table expected({L"COD_DOCTO", L"DT_VENC"});
//   for (const Documento& d : archive.Of<Documento>()) expected.Add(d.codDocto, d.dtVenc);
//   ExpectRows(read, expected, {L"COD_DOCTO"});
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "testbed/archive/records.h"
#include "values/value.h"

namespace kodra::rows {

// The form in which values are compared: a number of any type is a double, a date counts to the second. Everything else
// must be the same, above all the kind of value: a date is never its text, and null is not empty.
Value Cell(const Value& value);
inline Value Cell(const wchar_t* text) { return text; }
inline Value Cell(const std::wstring& text) { return text; }
inline Value Cell(std::int64_t number) { return static_cast<double>(number); }
inline Value Cell(bool flag) { return flag; }
Value Cell(testbed::Day day);
Value Cell(testbed::Moment moment);
template <class T>
Value Cell(const std::optional<T>& value) {
  return value ? Cell(*value) : Value(Null{});
}

struct Table {
  using Row = std::vector<Value>;

  explicit Table(std::vector<std::wstring> names) : columns(std::move(names)) {}

  template <class... Values>
  void Add(const Values&... values) {
    rows.push_back({Cell(values)...});
  }

  // The values of a column, row by row. A missing column is a failure of the test.
  std::vector<Value> Column(const std::wstring& name) const;

  std::vector<std::wstring> columns;
  std::vector<Row> rows;
};

// Compares columns and rows. The rows of `actual` must be in ascending order of the columns of `order`; beyond that
// their order does not count. Expecting no row at all is a mistake in the test: ExpectNoRows is for that.
void ExpectRows(Table actual, Table expected, const std::vector<std::wstring>& order = {});
void ExpectNoRows(const Table& actual, const std::vector<std::wstring>& columns);
// The same with every row in its place.
void ExpectExactly(const Table& actual, const Table& expected);

}  // namespace kodra::rows
