// The indexes that the reports need on large tables.
//
// Each index is here because a report is measurably faster with it: `./kodra bench indices` shows the times, and
// docs/performance.md has the figures.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kodra::console::schema {

struct Index {
  std::wstring_view table;
  std::vector<std::wstring_view> columns;
  // "Class.Method" of the reports that it speeds up.
  std::vector<std::string_view> reports;
  // Whether it is for a condition on a period, which finds nothing on SQLite.
  bool isForPeriod = false;
};

const std::vector<Index>& Indexes();

// Whether the reports that the index is for can use it on a database.
bool IsUseful(const Index& index, std::int32_t databaseCode);

// "IX_DOCUMENTO_NUM_CAIXA", at most 30 characters, which every version of Oracle accepts.
std::string NameOf(const Index& index);

// "CREATE INDEX IX_DOCUMENTO_NUM_CAIXA ON DOCUMENTO (NUM_CAIXA)", which all five databases execute.
std::string CreateStatement(const Index& index);

// "DOCUMENTO (NUM_CAIXA)".
std::string Described(const Index& index);

}  // namespace kodra::console::schema
