#include "tests/recorder/fake_ado.h"

#include <algorithm>

#include "values/upper.h"

namespace kodra::recorder {
namespace {

// ADO's errors, with its numbers.
Erro NoCurrentRow(std::wstring source = L"ADODB.Field") {
  return {3021, std::move(source), L"BOF ou EOF é verdadeiro"};
}
Erro TooLong() {
  return {static_cast<std::int32_t>(0x80040E21U), L"Microsoft Cursor Engine",
          L"A operação em várias etapas gerou erros"};
}
Erro UnknownField() { return {3265, L"ADODB.Recordset", L"O item não foi encontrado na coleção"}; }

std::wstring NameOf(platform::Connection* connection) {
  return connection == nullptr ? L"Nothing" : dynamic_cast<FakeConnection&>(*connection).Name();
}

struct ShowArgument {
  std::wstring operator()(std::monostate) const { return L"missing"; }
  std::wstring operator()(std::wstring_view text) const { return Shown(text); }
  std::wstring operator()(platform::Command* command) const { return dynamic_cast<FakeCommand&>(*command).Name(); }
  std::wstring operator()(platform::Connection* connection) const { return NameOf(connection); }
};

}  // namespace

std::wstring FakeConnection::ConnectionString() {
  Note(L"ConnectionString", {}, Shown(connectionString_));
  return connectionString_;
}

void FakeConnection::SetConnectionString(const std::wstring& text) {
  Note(L"SetConnectionString", {Shown(text)});
  connectionString_ = text;
}

void FakeConnection::SetCursorLocation(std::int32_t location) { Note(L"SetCursorLocation", {Shown(location)}); }

void FakeConnection::SetIsolationLevel(std::int32_t level) { Note(L"SetIsolationLevel", {Shown(level)}); }

void FakeConnection::Open(const std::wstring& user, const std::wstring& password, std::int32_t options) {
  Note(L"Open", {Shown(user), Shown(password), Shown(options)});
}

std::int32_t FakeConnection::State() {
  Note(L"State", {}, Shown(script_.connectionState));
  return script_.connectionState;
}

void FakeConnection::Execute(const std::wstring& statement, std::int32_t options) {
  Note(L"Execute", {Shown(statement), Shown(options)});
}

std::int32_t FakeConnection::ErrorCount() {
  const auto count = static_cast<std::int32_t>(script_.nativeErrors.size());
  Note(L"ErrorCount", {}, Shown(count));
  return count;
}

std::int32_t FakeConnection::NativeError(std::int32_t index) {
  const std::int32_t code = script_.nativeErrors.at(static_cast<std::size_t>(index));
  Note(L"NativeError", {Shown(index)}, Shown(code));
  return code;
}

void FakeCommand::SetActiveConnection(platform::Connection* connection) {
  Note(L"SetActiveConnection", {NameOf(connection)});
  attached_ = connection != nullptr;
}

bool FakeCommand::HasActiveConnection() {
  Note(L"HasActiveConnection", {}, Shown(attached_));
  return attached_;
}

void FakeCommand::SetCommandText(std::wstring_view text) { Note(L"SetCommandText", {Shown(text)}); }

void FakeCommand::SetCommandType(std::int32_t type) { Note(L"SetCommandType", {Shown(type)}); }

void FakeCommand::AppendParameter(const std::wstring& name, std::int32_t type, std::int32_t direction,
                                  std::int32_t size, const Value& value) {
  Note(L"AppendParameter", {Shown(name), Shown(type), Shown(direction), Shown(size), Shown(value)});
}

void FakeRecordset::SetCursorLocation(std::int32_t location) { Note(L"SetCursorLocation", {Shown(location)}); }

void FakeRecordset::SetCursorType(std::int32_t type) { Note(L"SetCursorType", {Shown(type)}); }

void FakeRecordset::SetCacheSize(std::int32_t rows) { Note(L"SetCacheSize", {Shown(rows)}); }

void FakeRecordset::Open(const platform::RecordsetSource& source, const platform::ActiveConnection& connection,
                         std::int32_t cursorType, std::int32_t lockType, std::int32_t options) {
  Note(L"Open", {std::visit(ShowArgument{}, source), std::visit(ShowArgument{}, connection), Shown(cursorType),
                 Shown(lockType), Shown(options)});
  open_ = true;
  const bool fromDatabase = !std::holds_alternative<std::monostate>(source);
  if (!fromDatabase || script_.results.empty()) return;
  held_ = std::move(script_.results.front());
  script_.results.pop_front();
}

void FakeRecordset::Close() {
  Note(L"Close");
  open_ = false;
}

std::int32_t FakeRecordset::State() {
  const std::int32_t state = open_ ? platform::ad::kStateOpen : platform::ad::kStateClosed;
  Note(L"State", {}, Shown(state));
  return state;
}

bool FakeRecordset::Eof() {
  const bool eof = row_ >= held_.rows.size();
  Note(L"Eof", {}, Shown(eof));
  return eof;
}

void FakeRecordset::MoveFirst() {
  if (held_.rows.empty()) journal_.Refuse(Line(L"MoveFirst"), NoCurrentRow(L"ADODB.Recordset"));
  Note(L"MoveFirst");
  row_ = 0;
}

void FakeRecordset::MoveNext() {
  Note(L"MoveNext");
  ++row_;
}

std::int64_t FakeRecordset::RecordCount() {
  Note(L"RecordCount");
  return static_cast<std::int64_t>(held_.rows.size());
}

// Every column is a text, as most columns of the reports are.
std::vector<platform::Column> FakeRecordset::Columns() {
  Note(L"Columns");
  std::vector<platform::Column> columns;
  for (std::size_t i = 0; i < held_.fields.size(); ++i)
    columns.push_back({held_.fields[i], platform::ad::kVarChar, std::make_unique<FakeField>(journal_, *this, i)});
  return columns;
}

void FakeRecordset::AppendField(const std::wstring& name, std::int32_t type, std::int32_t definedSize,
                                std::int32_t attributes) {
  Note(L"AppendField", {Shown(name), Shown(type), Shown(definedSize), Shown(attributes)});
  if (type == platform::ad::kVarChar) textSizes_[held_.fields.size()] = static_cast<std::size_t>(definedSize);
  held_.fields.push_back(name);
}

std::unique_ptr<platform::Field> FakeRecordset::FieldByName(const std::wstring& name) {
  const auto found = std::find_if(held_.fields.begin(), held_.fields.end(),
                                  [&](const std::wstring& field) { return values::EqualIgnoringCase(field, name); });
  if (found == held_.fields.end()) journal_.Refuse(Line(L"FieldByName", {Shown(name)}), UnknownField());
  Note(L"FieldByName", {Shown(name)});
  return std::make_unique<FakeField>(journal_, *this, static_cast<std::size_t>(found - held_.fields.begin()));
}

void FakeRecordset::AddNew() {
  Note(L"AddNew");
  row_ = held_.rows.size();
  held_.rows.emplace_back(held_.fields.size());
}

void FakeRecordset::Update() { Note(L"Update"); }

Value* FakeRecordset::Current(std::size_t field) {
  return row_ < held_.rows.size() ? &held_.rows[row_].at(field) : nullptr;
}

bool FakeRecordset::IsTooLong(std::size_t field, const Value& value) const {
  const auto size = textSizes_.find(field);
  return size != textSizes_.end() && value.Is<std::wstring>() && value.As<std::wstring>().size() > size->second;
}

std::wstring FakeField::Line(std::wstring_view member, std::wstring_view argument) const {
  return recordset_.Name() + L".Field(" + recordset_.held_.fields[index_] + L")." + std::wstring(member) + L"(" +
         std::wstring(argument) + L")";
}

Value FakeField::Get() {
  const Value* value = recordset_.Current(index_);
  if (value == nullptr) journal_.Refuse(Line(L"Get"), NoCurrentRow());
  journal_.Note(Line(L"Get"), Shown(*value));
  return *value;
}

void FakeField::Let(const Value& value) {
  Value* current = recordset_.Current(index_);
  if (current == nullptr) journal_.Refuse(Line(L"Let", Shown(value)), NoCurrentRow());
  if (recordset_.IsTooLong(index_, value)) journal_.Refuse(Line(L"Let", Shown(value)), TooLong());
  journal_.Note(Line(L"Let", Shown(value)));
  *current = value;
}

}  // namespace kodra::recorder
