#include "console/run/schema_probe.h"

#include "values/erro.h"

namespace kodra::console {
namespace {

namespace ad = platform::ad;

std::wstring Listed(const std::set<std::wstring>& columns) {
  std::wstring list;
  for (const std::wstring& column : columns) list += (list.empty() ? L"" : L", ") + column;
  return list;
}

}  // namespace

void SchemaProbe::Expect(const TableNeed& need) {
  tables_[need.table].expected.insert(need.columns.begin(), need.columns.end());
}

std::vector<std::wstring> SchemaProbe::Missing(const TableNeed& need) {
  Table& table = tables_[need.table];
  if (!table.asked) Ask(need.table, table);
  if (!table.readable) return {L"tabela " + need.table};
  std::vector<std::wstring> missing;
  for (const std::wstring& column : need.columns) {
    if (table.missing.contains(column)) missing.push_back(L"coluna " + need.table + L"." + column);
  }
  return missing;
}

void SchemaProbe::Ask(const std::wstring& name, Table& table) {
  table.asked = true;
  table.readable = true;
  if (CanRead(Listed(table.expected), name, {})) return;
  table.readable = CanRead(L"COUNT(*)", name, L"tabela " + name);
  if (!table.readable) return;
  const std::wstring place = L"coluna " + name + L".";
  for (const std::wstring& column : table.expected) {
    if (!CanRead(column, name, place + column)) table.missing.insert(column);
  }
}

bool SchemaProbe::CanRead(const std::wstring& list, const std::wstring& table, const std::wstring& what) {
  try {
    const auto rows = surroundings_.NewRecordset();
    rows->Open(L"SELECT " + list + L" FROM " + table + L" WHERE 1=0", &connection_, ad::kOpenForwardOnly,
               ad::kLockReadOnly, ad::kCmdText);
    rows->Close();
    return true;
  } catch (const Erro& error) {
    if (!what.empty()) refusals_[what] = error.Description();
    return false;
  }
}

}  // namespace kodra::console
