#include "tests/engines/comparison.h"

#include <algorithm>
#include <map>
#include <utility>

#include "values/utf8.h"

namespace kodra::engines {
namespace {

std::string Joined(const Row& row) {
  std::string text;
  for (const std::string& cell : row) text.append(text.empty() ? "" : " | ").append(cell);
  return text;
}

std::string Upper(std::string text) {
  std::ranges::transform(text, text.begin(),
                         [](char c) { return 'a' <= c && c <= 'z' ? static_cast<char>(c - 32) : c; });
  return text;
}

Row UpperNames(Row columns) {
  std::ranges::transform(columns, columns.begin(), Upper);
  return columns;
}

std::vector<Row> Sorted(std::vector<Row> rows, bool knowsNoEmptyText) {
  for (Row& row : rows) {
    if (knowsNoEmptyText) std::ranges::replace(row, std::string("t"), std::string(kNull));
  }
  std::ranges::sort(rows);
  return rows;
}

// The columns that a statement sorts by, as its ORDER BY names them.
std::vector<std::string> SortColumns(const std::wstring& statement) {
  constexpr std::wstring_view kKeyword = L" ORDER BY ";
  const std::size_t start = statement.rfind(kKeyword);
  if (start == std::wstring::npos) return {};
  std::vector<std::string> names = {""};
  for (const char c : values::ToUtf8(statement.substr(start + kKeyword.size()))) {
    if (c == ',') names.emplace_back();
    if (c == '.') names.back().clear();  // the alias of a table
    if (c != ',' && c != '.' && c != ' ') names.back() += c;
  }
  return names;
}

// The position of a column that a statement sorts by; columns that have another name in the result are found by that
// name.
std::size_t Position(const Row& columns, const std::string& name) {
  static const std::map<std::string, std::string> renamed = {
      {"DESCR_CLASSE", "GRUPO"}, {"DESCR_GRUPO", "SUBGRUPO"}, {"DESCR_ASSUNTO", "SERIE"}};
  const auto find = [&](const std::string& wanted) { return std::ranges::find(columns, wanted) - columns.begin(); };
  std::ptrdiff_t position = find(name);
  if (position == std::ssize(columns)) position = find(renamed.at(name));
  return static_cast<std::size_t>(position);
}

Row KeyOf(const Row& row, const std::vector<std::size_t>& positions, const Engine& engine) {
  Row key;
  for (const std::size_t position : positions) {
    const bool isNull = row.at(position) == kNull;
    key.push_back((isNull == engine.nullsLast ? "1" : "0") + (isNull ? "" : row[position]));
  }
  return key;
}

}  // namespace

const Answer& ReferenceAnswer(const Statement& statement) {
  using Key = std::pair<std::string, std::string>;
  static const std::map<Key, const Answer*> answers = [] {
    std::map<Key, const Answer*> found;
    for (const Asked& asked : RunOf(Reference()).asked)
      found[{asked.statement.method, asked.statement.label}] = asked.answer;
    return found;
  }();
  return *answers.at({statement.method, statement.label});
}

std::optional<std::string> Difference(const Engine& engine, const Asked& asked) {
  const Answer& reference = ReferenceAnswer(asked.statement);
  const Row expectedColumns = UpperNames(reference.columns);
  const Row columns = UpperNames(asked.answer->columns);
  if (columns != expectedColumns) return "columns " + Joined(columns) + "\n  instead of " + Joined(expectedColumns);
  const std::vector<Row> expected = Sorted(reference.rows, engine.KnowsNoEmptyText());
  const std::vector<Row> rows = Sorted(asked.answer->rows, engine.KnowsNoEmptyText());
  if (rows == expected) return std::nullopt;
  const auto [row, other] = std::ranges::mismatch(rows, expected);
  return std::to_string(rows.size()) + " rows instead of " + std::to_string(expected.size()) + "; first " +
         (row == rows.end() ? "nothing" : Joined(*row)) + "\n  instead of " +
         (other == expected.end() ? "nothing" : Joined(*other));
}

std::optional<std::string> Disorder(const Engine& engine, const Asked& asked) {
  std::vector<std::size_t> positions;
  const Row columns = UpperNames(asked.answer->columns);
  for (const std::string& name : SortColumns(asked.statement.text)) positions.push_back(Position(columns, name));
  const std::vector<Row>& rows = asked.answer->rows;
  for (std::size_t i = 1; i < rows.size(); ++i) {
    if (KeyOf(rows[i], positions, engine) < KeyOf(rows[i - 1], positions, engine))
      return Joined(rows[i]) + "\n  after " + Joined(rows[i - 1]);
  }
  return std::nullopt;
}

}  // namespace kodra::engines
