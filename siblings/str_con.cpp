#include "siblings/str_con.h"

#include "sql/tipo_banco.h"

namespace kodra::siblings {
namespace {

struct Sign {
  std::wstring_view word;
  std::int32_t code;
};

constexpr Sign kSigns[] = {
    {L"ORACLE", sql::tbOracle},        {L"MSDAORA", sql::tbOracle},    {L"IBMDADB2", sql::tbDB2},
    {L"ISERIES", sql::tbDB2},          {L"IBM I", sql::tbDB2},         {L"IBM DB2", sql::tbDB2},
    {L"SQLITE", sql::tbSQLite},        {L"MYSQL", sql::tbMySQL},       {L"MARIADB", sql::tbMySQL},
    {L"SQLOLEDB", sql::tbSQLServer},   {L"SQLNCLI", sql::tbSQLServer}, {L"MSOLEDBSQL", sql::tbSQLServer},
    {L"SQL SERVER", sql::tbSQLServer},
};

}  // namespace

std::int32_t DatabaseCode(std::wstring_view connectionString) {
  const std::wstring upper = values::UpperCase(connectionString);
  for (const auto& [word, code] : kSigns) {
    if (upper.find(word) != std::wstring::npos) return code;
  }
  return sql::tbOther4;
}

std::span<const Member<StrCon>> StrCon::Members() {
  static const Member<StrCon> kMembers[] = {
      Property<&StrCon::strCon_>(L"StrCon"),
      ReadOnly<&StrCon::TipoBanco>(L"TipoBanco"),
  };
  return kMembers;
}

}  // namespace kodra::siblings
