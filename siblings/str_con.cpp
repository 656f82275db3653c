#include "siblings/str_con.h"

#include <initializer_list>

namespace kodra::siblings {
namespace {

constexpr std::int32_t kOther = 4;

struct Sign {
  std::wstring_view word;
  std::int32_t code;
};

constexpr Sign kSigns[] = {
    {L"ORACLE", 1},  {L"MSDAORA", 1},    {L"IBMDADB2", 6},   {L"ISERIES", 6}, {L"IBM I", 6},
    {L"IBM DB2", 6}, {L"SQLITE", 7},     {L"MYSQL", 3},      {L"MARIADB", 3}, {L"SQLOLEDB", 2},
    {L"SQLNCLI", 2}, {L"MSOLEDBSQL", 2}, {L"SQL SERVER", 2},
};

}  // namespace

std::int32_t DatabaseCode(std::wstring_view connectionString) {
  const std::wstring upper = values::UpperCase(connectionString);
  for (const auto& [word, code] : kSigns) {
    if (upper.find(word) != std::wstring::npos) return code;
  }
  return kOther;
}

std::span<const Member<StrCon>> StrCon::Members() {
  static const Member<StrCon> kMembers[] = {
      Property<&StrCon::strCon_>(L"StrCon"),
      ReadOnly<&StrCon::TipoBanco>(L"TipoBanco"),
  };
  return kMembers;
}

}  // namespace kodra::siblings
