#include <stdexcept>

#include "testbed/archive/schema.h"
#include "testbed/archive/writer.h"
#include "values/utf8.h"

namespace kodra::testbed {
namespace {

// Far below the servers' smallest max_allowed_packet, and long enough that the number of statements does not matter.
constexpr std::size_t kLongestStatement = 256UL * 1024;

void AppendQuoted(std::wstring_view text, std::string& out) {
  out += '\'';
  std::wstring escaped;
  for (const wchar_t c : text) {
    if (c == L'\'' || c == L'\\') escaped += L'\\';
    escaped += c;
  }
  out += values::ToUtf8(escaped);
  out += '\'';
}

void AppendLiteral(const Cell& cell, std::string& out) {
  if (const auto* number = std::get_if<std::int64_t>(&cell)) {
    out += std::to_string(*number);
  } else if (const auto* text = std::get_if<std::wstring_view>(&cell)) {
    AppendQuoted(*text, out);
  } else if (const auto* day = std::get_if<Day>(&cell)) {
    out += "'" + IsoText(*day) + "'";
  } else if (const auto* moment = std::get_if<Moment>(&cell)) {
    out += "'" + IsoText(*moment) + "'";
  } else {
    out += "NULL";
  }
}

void AppendRow(const std::vector<Cell>& cells, std::string& out) {
  out += '(';
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (i != 0) out += ',';
    AppendLiteral(cells[i], out);
  }
  out += ')';
}

template <class Record>
void Fill(std::ostream& script, const Generator& generator) {
  const Table<Record>& table = TableOf<Record>();
  const std::string insert = "INSERT INTO " + values::ToUtf8(InsertTarget(table.shape)) + " VALUES\n";
  script << "DROP TABLE IF EXISTS " << values::ToUtf8(table.shape.name) << ";\n"
         << values::ToUtf8(CreateTable(table.shape, Engine::kMySql)) << ";\n";
  std::vector<Cell> cells;
  std::string statement;
  for (std::int64_t row = 0; row < generator.Count<Record>(); ++row) {
    const Record record = generator.Row<Record>(row);
    table.Read(record, cells);
    statement += statement.empty() ? insert : ",\n";
    AppendRow(cells, statement);
    if (statement.size() < kLongestStatement) continue;
    script << statement << ";\n";
    statement.clear();
  }
  if (!statement.empty()) script << statement << ";\n";
  for (const std::wstring& index : CreateIndexes(table.shape)) script << values::ToUtf8(index) << ";\n";
}

}  // namespace

void WriteMySql(std::ostream& script, Size size) {
  const Generator generator(size);
  // Strict, so that a value that does not fit its column stops the load instead of being truncated.
  script << "SET NAMES utf8mb4;\nSET SESSION sql_mode='STRICT_ALL_TABLES';\nSTART TRANSACTION;\n";
  ForEachRecordType([&]<class Record>() { Fill<Record>(script, generator); });
  script << "COMMIT;\n" << std::flush;
  if (!script) throw std::runtime_error("não foi possível gravar o script SQL");
}

}  // namespace kodra::testbed
