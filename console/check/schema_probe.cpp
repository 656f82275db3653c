#include "console/check/schema_probe.h"

#include <algorithm>

#include "console/command_line/connection_error.h"
#include "odbc/engine/types.h"
#include "sql/tipo_banco.h"

namespace kodra::console {
namespace {

namespace ad = platform::ad;
using schema::Kind;

struct NativeCode {
  std::int32_t databaseCode;
  std::int32_t number;
};

// The databases' own numbers for a table or a column that the user may not read. Oracle has one number for this and for
// a table that does not exist.
constexpr NativeCode kForbidden[] = {
    {sql::tbOracle, 1031}, {sql::tbSQLServer, 229}, {sql::tbSQLServer, 230}, {sql::tbMySQL, 1142},
    {sql::tbMySQL, 1143},  {sql::tbDB2, -551},      {sql::tbDB2, -552},      {sql::tbSQLite, 23},
};

// SQLite's numbers for a file that is damaged, and for one that is no database.
constexpr std::int32_t kCorrupt = 11;
constexpr std::int32_t kNotADatabase = 26;

std::wstring Listed(const std::set<std::wstring>& columns) {
  std::wstring list;
  for (const std::wstring& column : columns) list += (list.empty() ? L"" : L", ") + column;
  return list;
}

enum class Family { kText, kNumber, kDate, kOther };

Family FamilyOf(std::int32_t adoType) {
  switch (adoType) {
    case ad::kBSTR:
    case ad::kChar:
    case ad::kWChar:
    case ad::kVarChar:
    case ad::kVarWChar:
    case ad::kLongVarChar:
    case ad::kLongVarWChar:
      return Family::kText;
    case ad::kDate:
    case ad::kDBDate:
    case ad::kDBTimeStamp:
      return Family::kDate;
    case ad::kBinary:
    case ad::kVarBinary:
    case ad::kLongVarBinary:
    case ad::kGUID:
    case ad::kDBTime:
      return Family::kOther;
    default:
      return Family::kNumber;
  }
}

Family FamilyOf(Kind kind) {
  if (kind == Kind::kNumber) return Family::kNumber;
  return kind == Kind::kDate || kind == Kind::kMoment ? Family::kDate : Family::kText;
}

std::wstring WordOf(Family family) {
  if (family == Family::kText) return L"texto";
  if (family == Family::kNumber) return L"número";
  return family == Family::kDate ? L"data" : L"outro tipo";
}

Problem WrongType(const std::wstring& table, const std::wstring& column, Family actual, Family expected) {
  return {Defect::kWrongType,
          L"coluna " + table + L"." + column + L" (" + WordOf(actual) + L" em vez de " + WordOf(expected) + L")"};
}

}  // namespace

void SchemaProbe::Expect(const TableNeed& need) {
  tables_[need.table].expected.insert(need.columns.begin(), need.columns.end());
}

std::vector<Problem> SchemaProbe::ProblemsWith(const TableNeed& need) {
  Table& table = tables_[need.table];
  if (!table.asked) Ask(need.table, table);
  if (!table.problems.empty()) return table.problems;
  std::vector<Problem> problems;
  for (const std::wstring& column : need.columns)
    if (const auto found = table.columnProblems.find(column); found != table.columnProblems.end())
      problems.push_back(found->second);
  return problems;
}

void SchemaProbe::Ask(const std::wstring& name, Table& table) {
  table.asked = true;
  try {
    CompareTypes(name, table, TypesOf(Listed(table.expected), name));
    return;
  } catch (const Erro&) {
  }
  try {
    TypesOf(L"COUNT(*)", name);
  } catch (const Erro& error) {
    table.problems = {Refused(L"tabela " + name, error)};
    return;
  }
  std::erase_if(table.expected, [&](const std::wstring& column) { return !CanRead(column, name, table); });
  if (!table.expected.empty()) CompareTypes(name, table, TypesOf(Listed(table.expected), name));
}

bool SchemaProbe::CanRead(const std::wstring& column, const std::wstring& name, Table& table) {
  try {
    TypesOf(column, name);
    return true;
  } catch (const Erro& error) {
    table.columnProblems[column] = Refused(L"coluna " + name + L"." + column, error);
    return false;
  }
}

void SchemaProbe::CompareTypes(const std::wstring& name, Table& table, const std::vector<std::int32_t>& types) {
  auto type = types.begin();
  for (const std::wstring& column : table.expected) {
    const Family actual = FamilyOf(*type++);
    const Family expected = FamilyOf(schema::ColumnOf(name, column).kind);
    // SQLite stores dates as text.
    const bool isDateAsText = databaseCode_ == sql::tbSQLite && expected == Family::kDate && actual == Family::kText;
    if (actual == expected || isDateAsText) continue;
    table.columnProblems[column] = WrongType(name, column, actual, expected);
  }
}

std::vector<std::int32_t> SchemaProbe::TypesOf(const std::wstring& list, const std::wstring& table) {
  const auto rows = surroundings_.NewRecordset();
  rows->Open(L"SELECT " + list + L" FROM " + table + L" WHERE 1=0", &connection_, ad::kOpenForwardOnly,
             ad::kLockReadOnly, ad::kCmdText);
  std::vector<std::int32_t> types;
  for (const platform::Column& column : rows->Columns()) types.push_back(column.type);
  rows->Close();
  return types;
}

Problem SchemaProbe::Refused(const std::wstring& what, const Erro& error) {
  const std::int32_t number = connection_.ErrorCount() > 0 ? connection_.NativeError(0) : 0;
  if (databaseCode_ == sql::tbSQLite && (number == kNotADatabase || number == kCorrupt)) throw ConnectionError(error);
  refusals_[what] = error.Description();
  const bool isForbidden = std::ranges::any_of(
      kForbidden, [&](const NativeCode& code) { return code.databaseCode == databaseCode_ && code.number == number; });
  return {isForbidden ? Defect::kForbidden : Defect::kMissing, what};
}

}  // namespace kodra::console
