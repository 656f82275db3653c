#include "console/statements/tables_read.h"

#include <algorithm>
#include <map>
#include <set>
#include <stdexcept>

#include "values/utf8.h"

namespace kodra::console {
namespace {

// What may follow a table without an alias.
constexpr std::wstring_view kClauses[] = {L"WHERE", L"INNER", L"LEFT", L"ON", L"GROUP", L"ORDER", L"UNION"};

// The other words of SQL in the statements, and the words of the dialects for today and for the parts of a date.
constexpr std::wstring_view kWords[] = {L"SELECT",  L"DISTINCT", L"FROM",    L"JOIN",     L"BY",   L"ALL",  L"AS",
                                        L"AND",     L"OR",       L"NOT",     L"IN",       L"IS",   L"NULL", L"LIKE",
                                        L"ESCAPE",  L"CASE",     L"BETWEEN", L"WHEN",     L"THEN", L"ELSE", L"END",
                                        L"SYSDATE", L"CURRENT",  L"DATE",    L"INTERVAL", L"YEAR", L"yyyy", L"dd"};

bool IsLetter(wchar_t c) { return (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z') || c == L'_'; }
bool IsDigit(wchar_t c) { return c >= L'0' && c <= L'9'; }
bool IsNameCharacter(wchar_t c) { return IsLetter(c) || IsDigit(c) || c == L'.'; }
bool IsName(const std::wstring& word) { return IsLetter(word.front()); }

template <std::size_t kSize>
bool Has(const std::wstring_view (&words)[kSize], const std::wstring& word) {
  return std::ranges::find(words, word) != std::end(words);
}

[[noreturn]] void Refuse(std::wstring_view statement, const std::wstring& reason) {
  throw std::logic_error(values::ToUtf8(reason + L": " + std::wstring(statement)));
}

// A text between quotes is the one word ''; a qualified name is one word.
std::vector<std::wstring> WordsOf(std::wstring_view statement) {
  constexpr std::wstring_view kSymbols = L"(),=<>|+-*/:?";
  std::vector<std::wstring> words;
  for (std::size_t at = 0; at < statement.size();) {
    std::size_t end = at + 1;
    if (statement[at] == L'\'') {
      end = statement.find(L'\'', end);
      if (end == statement.npos) Refuse(statement, L"unterminated quote");
      words.emplace_back(L"''");
      ++end;
    } else if (IsLetter(statement[at]) || IsDigit(statement[at])) {
      while (end < statement.size() && IsNameCharacter(statement[end])) ++end;
      words.emplace_back(statement.substr(at, end - at));
    } else if (kSymbols.find(statement[at]) != kSymbols.npos) {
      words.emplace_back(1, statement[at]);
    } else if (statement[at] != L' ') {
      Refuse(statement, L"unknown character " + std::wstring(1, statement[at]));
    }
    at = end;
  }
  // An end mark, so that every word of the statement has a next one.
  words.emplace_back(L")");
  return words;
}

class Statement {
 public:
  explicit Statement(std::wstring_view text) : text_(text), words_(WordsOf(text)) {}

  std::vector<TableNeed> Tables() {
    for (std::size_t at = 0; at < words_.size(); ++at)
      if (words_[at] == L"FROM" || words_[at] == L"JOIN") ReadTable(at + 1);
    for (std::size_t at = 0; at < words_.size(); ++at)
      if (IsName(words_[at]) && !isTable_.contains(at)) ReadName(at);
    for (const TableNeed& table : tables_)
      if (table.columns.empty()) Refuse(text_, L"no column of " + table.table);
    return tables_;
  }

 private:
  void ReadTable(std::size_t at) {
    const std::wstring& table = words_[at];
    if (!IsName(table)) Refuse(text_, L"no table name at " + table);
    isTable_.insert(at);
    if (table.find(L'.') != table.npos) return;
    AddNeeds(tables_, {{table, {}}});
    const std::wstring& next = words_[at + 1];
    const bool hasAlias = IsName(next) && !Has(kClauses, next);
    if (hasAlias) {
      isTable_.insert(at + 1);
    } else {
      withoutAlias_.insert(table);
    }
    const auto [known, isNew] = tableOf_.emplace(hasAlias ? next : table, table);
    if (!isNew && known->second != table) Refuse(text_, L"two tables for the alias " + next);
    if (words_[at + (hasAlias ? 2 : 1)] == L",") Refuse(text_, L"a list of tables");
  }

  void ReadName(std::size_t at) {
    const std::wstring& name = words_[at];
    if (name == L"UNION") isUnion_ = true;
    if (name == L"ORDER") isOrder_ = true;
    if (const std::size_t point = name.find(L'.'); point != name.npos) {
      const auto table = tableOf_.find(name.substr(0, point));
      if (table == tableOf_.end()) Refuse(text_, L"unknown alias in " + name);
      AddNeeds(tables_, {{table->second, {name.substr(point + 1)}}});
      return;
    }
    const bool isFunction = words_[at + 1] == L"(";
    if (isFunction || Has(kClauses, name) || Has(kWords, name)) return;
    if (at > 0 && words_[at - 1] == L"AS") {
      results_.insert(name);
      return;
    }
    // A union is sorted by the columns of its result.
    if (isOrder_ && (isUnion_ || results_.contains(name))) return;
    if (withoutAlias_.size() != 1) Refuse(text_, L"no table for " + name);
    AddNeeds(tables_, {{*withoutAlias_.begin(), {name}}});
  }

  std::wstring_view text_;
  std::vector<std::wstring> words_;
  std::vector<TableNeed> tables_;
  // The positions of the words that are a table or its alias.
  std::set<std::size_t> isTable_;
  // By alias, or by the name of a table without an alias.
  std::map<std::wstring, std::wstring> tableOf_;
  std::set<std::wstring> withoutAlias_;
  // The names of result columns after AS.
  std::set<std::wstring> results_;
  bool isUnion_ = false;
  bool isOrder_ = false;
};

}  // namespace

std::vector<TableNeed> TablesRead(std::wstring_view statement) { return Statement(statement).Tables(); }

void AddNeeds(std::vector<TableNeed>& needs, const std::vector<TableNeed>& more) {
  for (const TableNeed& need : more) {
    auto table = std::ranges::find(needs, need.table, &TableNeed::table);
    if (table == needs.end()) table = needs.insert(needs.end(), {need.table, {}});
    for (const std::wstring& column : need.columns)
      if (std::ranges::find(table->columns, column) == table->columns.end()) table->columns.push_back(column);
  }
}

}  // namespace kodra::console
