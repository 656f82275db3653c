#include <sqlite3.h>

#include <cstdio>
#include <filesystem>
#include <memory>
#include <stdexcept>

#include "testbed/archive/schema.h"
#include "testbed/archive/writer.h"
#include "values/utf8.h"

namespace kodra::testbed {
namespace {

struct Closer {
  void operator()(sqlite3* database) const { sqlite3_close(database); }
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Database = std::unique_ptr<sqlite3, Closer>;
using Statement = std::unique_ptr<sqlite3_stmt, Closer>;

void Check(sqlite3* database, int result) {
  if (result != SQLITE_OK && result != SQLITE_DONE) throw std::runtime_error(sqlite3_errmsg(database));
}

Database OpenDatabase(const std::string& path) {
  sqlite3* opened = nullptr;
  const int result = sqlite3_open(path.c_str(), &opened);
  Database database(opened);
  if (result != SQLITE_OK) throw std::runtime_error(path + ": " + sqlite3_errmsg(opened));
  return database;
}

void Execute(sqlite3* database, const std::string& sql) {
  Check(database, sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr));
}

Statement PrepareInsert(sqlite3* database, const TableShape& table) {
  std::string sql = "INSERT INTO " + values::ToUtf8(InsertTarget(table)) + " VALUES (?";
  for (std::size_t i = 1; i < table.columns.size(); ++i) sql += ",?";
  sql += ")";
  sqlite3_stmt* prepared = nullptr;
  Check(database, sqlite3_prepare_v2(database, sql.c_str(), -1, &prepared, nullptr));
  return Statement(prepared);
}

// Binds a cell; `text` keeps its characters until the row is written.
int Bind(sqlite3_stmt* statement, int parameter, const Cell& cell, std::string& text) {
  text.clear();
  if (const auto* number = std::get_if<std::int64_t>(&cell)) return sqlite3_bind_int64(statement, parameter, *number);
  if (const auto* wide = std::get_if<std::wstring_view>(&cell)) {
    text += values::ToUtf8(*wide);
  } else if (const auto* day = std::get_if<Day>(&cell)) {
    text = IsoText(*day);
  } else if (const auto* moment = std::get_if<Moment>(&cell)) {
    text = IsoText(*moment);
  } else {
    return sqlite3_bind_null(statement, parameter);
  }
  return sqlite3_bind_text(statement, parameter, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
}

template <class Record>
void Fill(sqlite3* database, const Generator& generator) {
  const Table<Record>& table = TableOf<Record>();
  Execute(database, values::ToUtf8(CreateTable(table.shape, Engine::kSqlite)));
  const Statement insert = PrepareInsert(database, table.shape);
  std::vector<Cell> cells;
  std::vector<std::string> texts(table.shape.columns.size());
  for (std::int64_t row = 0; row < generator.Count<Record>(); ++row) {
    const Record record = generator.Row<Record>(row);
    table.Read(record, cells);
    for (std::size_t i = 0; i < cells.size(); ++i) {
      Check(database, Bind(insert.get(), static_cast<int>(i) + 1, cells[i], texts[i]));
    }
    Check(database, sqlite3_step(insert.get()));
    Check(database, sqlite3_reset(insert.get()));
  }
  for (const std::wstring& statement : CreateIndexes(table.shape)) Execute(database, values::ToUtf8(statement));
}

}  // namespace

void WriteSqlite(const std::string& path, Size size) {
  const Generator generator(size);
  const std::string unfinished = path + ".parcial";
  std::filesystem::remove(unfinished);
  try {
    const Database database = OpenDatabase(unfinished);
    // Nobody reads the file before it is complete, and an unfinished one is deleted, so no rollback is needed.
    Execute(database.get(), "PRAGMA journal_mode=OFF; PRAGMA synchronous=OFF; BEGIN");
    ForEachRecordType([&]<class Record>() { Fill<Record>(database.get(), generator); });
    Execute(database.get(), "COMMIT");
  } catch (...) {
    std::error_code ignored;
    std::filesystem::remove(unfinished, ignored);
    throw;
  }
  std::filesystem::rename(unfinished, path);
}

}  // namespace kodra::testbed
