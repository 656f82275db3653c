// Reads an SQLite file for a test, without any of the code under test.
#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <unistd.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace kodra::testbed {

// The path of a file of the test's own, deleted when the test is over.
class TemporaryFile {
 public:
  explicit TemporaryFile(const std::string& name)
      : path_(testing::TempDir() + "kodra-" + std::to_string(getpid()) + "-" + name) {}
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile() { std::filesystem::remove(path_); }

  const std::string& Path() const { return path_; }

 private:
  std::string path_;
};

using TextRow = std::vector<std::string>;

// The rows of a query, every value as text, a null as "NULL".
inline std::vector<TextRow> Query(const std::string& path, const std::string& sql) {
  sqlite3* opened = nullptr;
  EXPECT_EQ(sqlite3_open_v2(path.c_str(), &opened, SQLITE_OPEN_READONLY, nullptr), SQLITE_OK) << path;
  const std::unique_ptr<sqlite3, int (*)(sqlite3*)> database(opened, sqlite3_close);
  sqlite3_stmt* prepared = nullptr;
  EXPECT_EQ(sqlite3_prepare_v2(opened, sql.c_str(), -1, &prepared, nullptr), SQLITE_OK) << sqlite3_errmsg(opened);
  const std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> statement(prepared, sqlite3_finalize);
  std::vector<TextRow> rows;
  while (sqlite3_step(prepared) == SQLITE_ROW) {
    TextRow row;
    for (int i = 0; i < sqlite3_column_count(prepared); ++i) {
      const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(prepared, i));
      row.emplace_back(text == nullptr ? "NULL" : text);
    }
    rows.push_back(std::move(row));
  }
  return rows;
}

}  // namespace kodra::testbed
