#include "tests/engines/vocabulary.h"

#include <algorithm>
#include <string_view>

#include "values/utf8.h"

namespace kodra::engines {
namespace {

using enum Database;

struct Word {
  std::string_view word;  // a function with its parenthesis
  std::vector<Database> known;
};

const std::vector<Word> kWords = {
    {"ADD_MONTHS(", {kOracle, kDb2}},
    {"CAST(", {kOracle, kSqlServer, kMySql, kDb2, kSqlite}},
    {"CHAR(", {kSqlServer}},  // a type with its length
    {"COALESCE(", {kOracle, kSqlServer, kMySql, kDb2, kSqlite}},
    {"CONCAT(", {kMySql}},
    {"CONVERT(", {kSqlServer}},
    {"COUNT(", {kOracle, kSqlServer, kMySql, kDb2, kSqlite}},
    {"CURDATE(", {kMySql}},
    {"CURRENT DATE", {kDb2}},
    {"DATEADD(", {kSqlServer}},
    {"DATEDIFF(", {kSqlServer}},
    {"DATE_ADD(", {kMySql}},
    {"DATE_FORMAT(", {kMySql}},
    {"DIGITS(", {kDb2}},
    {"GETDATE(", {kSqlServer}},
    {"IFNULL(", {kMySql, kSqlite}},
    {"INTEGER(", {kDb2}},
    {"ISNULL(", {kSqlServer}},
    {"LPAD(", {kOracle, kMySql}},
    {"NVL(", {kOracle}},
    {"RIGHT(", {kSqlServer, kMySql}},
    {"STR_TO_DATE(", {kMySql}},
    {"SUBSTR(", {kOracle, kDb2}},
    {"SUM(", {kOracle, kSqlServer, kMySql, kDb2, kSqlite}},
    {"SYS.DUAL", {kOracle}},
    {"SYSDATE", {kOracle}},
    {"SYSIBM.SYSDUMMY1", {kDb2}},
    {"TO_CHAR(", {kOracle, kDb2}},
    {"TO_DATE(", {kOracle, kDb2}},
    {"TO_NUMBER(", {kOracle}},
    {"TRUNC(", {kOracle}},
    {"UNSIGNED", {kMySql}},
    {"UPPER(", {kOracle, kSqlServer, kMySql, kDb2, kSqlite}},
    {"VARCHAR(", {kSqlServer}},  // a type with its length
    {"date(", {kSqlite}},
    {"strftime(", {kSqlite}},
    {"substr(", {kSqlite}},
    {"||", {kOracle, kDb2, kSqlite}},  // for MySQL a logical or
    {" + ", {kSqlServer}},             // between texts, as the statements add no numbers with blanks around
};

bool IsPartOfWord(char c) {
  return c == '_' || ('A' <= c && c <= 'Z') || ('a' <= c && c <= 'z') || ('0' <= c && c <= '9');
}

// The statement without the texts between its quotes.
std::string WithoutTexts(const std::wstring& statement) {
  std::string rest;
  bool inText = false;
  for (const char c : values::ToUtf8(statement)) {
    if (!inText || c == '\'') rest += c;
    if (c == '\'') inText = !inText;
  }
  return rest;
}

bool HasWord(std::string_view text, std::string_view word) {
  for (std::size_t at = text.find(word); at != text.npos; at = text.find(word, at + 1)) {
    if (at == 0 || !IsPartOfWord(text[at - 1]) || !IsPartOfWord(word.front())) return true;
  }
  return false;
}

// Every name directly before a parenthesis, with the parenthesis.
std::vector<std::string> Functions(std::string_view text) {
  std::vector<std::string> functions;
  for (std::size_t at = text.find('('); at != text.npos; at = text.find('(', at + 1)) {
    std::size_t start = at;
    while (start > 0 && IsPartOfWord(text[start - 1])) --start;
    if (start < at) functions.emplace_back(text.substr(start, at + 1 - start));
  }
  return functions;
}

}  // namespace

std::vector<std::string> ForeignWords(const std::wstring& statement, Database database) {
  const std::string text = WithoutTexts(statement);
  std::vector<std::string> foreign;
  for (const auto& [word, known] : kWords) {
    if (HasWord(text, word) && std::ranges::find(known, database) == known.end()) foreign.emplace_back(word);
  }
  for (const std::string& function : Functions(text)) {
    if (std::ranges::find(kWords, function, &Word::word) == kWords.end()) foreign.push_back(function);
  }
  return foreign;
}

}  // namespace kodra::engines
