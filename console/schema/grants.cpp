#include "console/schema/grants.h"

#include <algorithm>

#include "console/command_line/usage_error.h"
#include "console/schema/tables.h"
#include "sql/tipo_banco.h"
#include "values/utf8.h"

namespace kodra::console::schema {
namespace {

// No database allows longer names.
constexpr std::size_t kLongestName = 128;

// Letters, digits, and what names of users and hosts contain besides. Bytes beyond ASCII are parts of letters.
bool IsNameCharacter(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte >= 0x80 || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') ||
         std::string_view("_$#.-").find(c) != std::string_view::npos;
}

void Check(std::string_view name, std::string_view alsoAllowed, const std::string& user) {
  const bool isGood = !name.empty() && name.size() <= kLongestName && std::ranges::all_of(name, [&](char c) {
    return IsNameCharacter(c) || alsoAllowed.find(c) != std::string_view::npos;
  });
  if (!isGood) throw UsageError("o usuário \"" + user + "\" não é um nome que possa ir para uma instrução SQL");
}

// 'ana'@'%'.
std::string MySqlAccount(const std::string& user) {
  const std::size_t at = user.rfind('@');
  const std::string name = user.substr(0, at);
  const std::string host = at == std::string::npos ? "%" : user.substr(at + 1);
  Check(name, "", user);
  Check(host, "%:", user);
  return "'" + name + "'@'" + host + "'";
}

std::string Quoted(const std::string& user, std::int32_t databaseCode) {
  if (databaseCode == sql::tbMySQL) return MySqlAccount(user);
  if (databaseCode != sql::tbSQLServer) {
    Check(user, "", user);
    return "\"" + user + "\"";
  }
  // A user of a domain: EMPRESA\ana.
  Check(user, "\\@", user);
  return "[" + user + "]";
}

}  // namespace

std::vector<std::string> Grants(const std::string& user, std::int32_t databaseCode) {
  const std::string quoted = Quoted(user, databaseCode);
  std::vector<std::string> statements;
  if (databaseCode == sql::tbSQLite) return statements;
  for (const Table& table : Tables())
    statements.push_back("GRANT SELECT ON " + values::ToUtf8(table.name) + " TO " + quoted);
  return statements;
}

}  // namespace kodra::console::schema
