#include "siblings/database.h"

#include <memory>

#include "siblings/str_con.h"
#include "sql/tipo_banco.h"
#include "values/convert.h"

namespace kodra::siblings {
namespace {

namespace ad = platform::ad;

using Columns = std::vector<std::wstring_view>;

constexpr std::int32_t kRowsAtATime = 100;

std::vector<Row> ReadOwn(platform::Surroundings& surroundings, const std::wstring& connectionString,
                         const std::wstring& statement, const Columns& columns) {
  const auto connection = surroundings.NewConnection();
  connection->SetConnectionString(connectionString);
  connection->Open(L"", L"", ad::kUnspecified);
  const auto recordset = surroundings.NewRecordset();
  recordset->SetCacheSize(kRowsAtATime);
  recordset->Open(statement, connection.get(), ad::kOpenForwardOnly, ad::kLockReadOnly, ad::kCmdText);
  std::vector<std::unique_ptr<platform::Field>> fields;
  for (const std::wstring_view column : columns) fields.push_back(recordset->FieldByName(std::wstring(column)));
  std::vector<Row> rows;
  for (; !recordset->Eof(); recordset->MoveNext()) {
    Row& row = rows.emplace_back();
    for (const auto& field : fields) row.push_back(field->Get());
  }
  return rows;
}

// The result of a member with one argument.
Value CallWith(AutomationObject& object, std::wstring_view member, const Value& argument) {
  return object.Call(member, {&argument, 1});
}

std::vector<Row> ReadLateBound(AutomationObject& connection, const std::wstring& statement, const Columns& columns) {
  const ObjectRef recordset = ObjectIn(CallWith(connection, L"Execute", statement));
  const ObjectRef list = ObjectIn(RequiredObject(recordset).Get(L"Fields"));
  std::vector<ObjectRef> fields;
  for (const std::wstring_view column : columns) {
    fields.push_back(ObjectIn(CallWith(RequiredObject(list), L"Item", column)));
  }
  std::vector<Row> rows;
  for (; !values::ToBool(recordset->Get(L"EOF")); recordset->Call(L"MoveNext", {})) {
    Row& row = rows.emplace_back();
    for (const ObjectRef& field : fields) row.push_back(RequiredObject(field).Get(L"Value"));
  }
  recordset->Call(L"Close", {});
  return rows;
}

std::wstring Doubled(std::wstring_view text, std::wstring_view characters) {
  std::wstring doubled;
  for (const wchar_t c : text) doubled.append(characters.find(c) == std::wstring_view::npos ? 1 : 2, c);
  return doubled;
}

}  // namespace

Database::Database(platform::Surroundings& surroundings, std::wstring connectionString, ObjectRef client)
    : surroundings_(surroundings), connectionString_(std::move(connectionString)), client_(std::move(client)) {
  if (client_) connectionString_ = values::ToText(client_->Get(L"ConnectionString"));
  code_ = DatabaseCode(connectionString_);
}

std::wstring Database::Quoted(std::wstring_view text) const {
  // In MySQL's literals a backslash begins an escape.
  return L"'" + Doubled(text, code_ == sql::tbMySQL ? L"'\\" : L"'") + L"'";
}

std::vector<Row> Database::Read(const std::wstring& statement, const Columns& columns) const {
  if (client_) return ReadLateBound(*client_, statement, columns);
  return ReadOwn(surroundings_, connectionString_, statement, columns);
}

}  // namespace kodra::siblings
