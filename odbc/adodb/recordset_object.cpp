#include "odbc/adodb/recordset_object.h"

#include "odbc/adodb/field_objects.h"
#include "odbc/adodb/properties_object.h"
#include "odbc/adodb/row_array.h"

namespace kodra::adodb {
namespace {

using ado::ScopedVariant;
using comkit::ToWide;

platform::ActiveConnection Target(const std::optional<com_ptr<ConnectionObject>>& connection) {
  if (!connection) return std::monostate{};
  return *connection ? &(*connection)->Odbc() : static_cast<platform::Connection*>(nullptr);
}

VARIANT ObjectVariant(IDispatch* object) { return ScopedVariant::Object(object).detach(); }

com_ptr<CommandObject> CommandOf(IUnknown* source) {
  auto command = OwnObjectOf<CommandObject>(source);
  if (!command) Raise(ControlError::kInvalidArgument, odbc::kRecordsetSource);
  return command;
}

}  // namespace

std::int32_t RecordsetObject::FieldIndex(const Argument& index) {
  if (index.IsText()) return recordset_->FieldIndex(index.Text());
  const std::int32_t position = index.AsInteger();
  if (position < 0 || position >= recordset_->FieldCount()) Raise(ControlError::kItemNotFound, odbc::kFieldsSource);
  return position;
}

STDMETHODIMP RecordsetObject::get_Properties(Properties** properties) noexcept {
  return Get(properties, [] { return Make<PropertiesObject>(); });
}

void RecordsetObject::Use(const Argument& argument) {
  const auto connection = ConnectionOf(argument).value_or(nullptr);
  recordset_->SetActiveConnection(Target(connection));
  connection_ = connection;
}
STDMETHODIMP RecordsetObject::get_ActiveConnection(VARIANT* connection) noexcept {
  return Guard([&] { Out(connection) = ObjectVariant(connection_.get()); });
}
STDMETHODIMP RecordsetObject::putref_ActiveConnection(IDispatch* connection) noexcept {
  return Guard([&] { Use(Argument(*ScopedVariant::Object(connection))); });
}
STDMETHODIMP RecordsetObject::put_ActiveConnection(VARIANT connection) noexcept {
  return Guard([&] { Use(Argument(connection)); });
}

STDMETHODIMP RecordsetObject::get_Source(VARIANT* source) noexcept {
  return Guard([&] { Out(source) = command_ ? ObjectVariant(command_.get()) : ToVariant(recordset_->Source()); });
}
STDMETHODIMP RecordsetObject::putref_Source(IDispatch* source) noexcept {
  return Guard([&] {
    if (recordset_->State() != adStateClosed) Raise(ControlError::kObjectOpen, odbc::kRecordsetSource);
    command_ = CommandOf(source);
  });
}
STDMETHODIMP RecordsetObject::put_Source(BSTR source) noexcept {
  return Guard([&] {
    recordset_->SetSource(ToWide(source));
    command_ = nullptr;
  });
}

STDMETHODIMP RecordsetObject::get_CursorLocation(CursorLocationEnum* location) noexcept {
  return Get(location, [&] { return recordset_->CursorLocation(); });
}
STDMETHODIMP RecordsetObject::put_CursorLocation(CursorLocationEnum location) noexcept {
  return Guard([&] { recordset_->SetCursorLocation(location); });
}
STDMETHODIMP RecordsetObject::get_CursorType(CursorTypeEnum* type) noexcept {
  return Get(type, [&] { return recordset_->CursorType(); });
}
STDMETHODIMP RecordsetObject::put_CursorType(CursorTypeEnum type) noexcept {
  return Guard([&] { recordset_->SetCursorType(type); });
}
STDMETHODIMP RecordsetObject::get_LockType(LockTypeEnum* type) noexcept {
  return Get(type, [&] { return recordset_->LockType(); });
}
STDMETHODIMP RecordsetObject::put_LockType(LockTypeEnum type) noexcept {
  return Guard([&] { recordset_->SetLockType(type); });
}
STDMETHODIMP RecordsetObject::get_CacheSize(LONG* rows) noexcept {
  return Get(rows, [&] { return recordset_->CacheSize(); });
}
STDMETHODIMP RecordsetObject::put_CacheSize(LONG rows) noexcept {
  return Guard([&] { recordset_->SetCacheSize(rows); });
}
STDMETHODIMP RecordsetObject::get_MaxRecords(ADO_LONGPTR* rows) noexcept {
  return Get(rows, [&] { return recordset_->MaxRecords(); });
}
STDMETHODIMP RecordsetObject::put_MaxRecords(ADO_LONGPTR rows) noexcept {
  return Guard([&] { recordset_->SetMaxRecords(rows); });
}

STDMETHODIMP RecordsetObject::Open(VARIANT source, VARIANT connection, CursorTypeEnum cursorType, LockTypeEnum lockType,
                                   LONG options) noexcept {
  return Guard([&] {
    const Argument what(source);
    const auto where = ConnectionOf(Argument(connection));
    com_ptr<CommandObject> command = what.IsMissing() ? command_ : nullptr;
    if (what.IsObject()) command = CommandOf(what.Object());
    std::wstring text;
    platform::RecordsetSource statement;
    if (command) {
      statement = &command->Prepare();
    } else if (what.IsText()) {
      text = what.Text();
      statement = text;
    } else if (!what.IsMissing()) {
      Raise(ControlError::kInvalidArgument, odbc::kRecordsetSource);
    }
    recordset_->Open(statement, Target(where), cursorType, lockType, options);
    command_ = command;
    if (where) {
      connection_ = *where;
    } else if (command) {
      connection_ = command->Connection();
    }
  });
}
STDMETHODIMP RecordsetObject::Requery(LONG) noexcept {
  return Guard([&] { recordset_->Requery(); });
}
STDMETHODIMP RecordsetObject::Close() noexcept {
  return Guard([&] { recordset_->Close(); });
}
STDMETHODIMP RecordsetObject::get_State(LONG* state) noexcept {
  return Get(state, [&] { return recordset_->State(); });
}
STDMETHODIMP RecordsetObject::Supports(CursorOptionEnum options, VARIANT_BOOL* supported) noexcept {
  return Get(supported, [&] {
    std::uint32_t able = 0;
    if (recordset_->IsUpdatable()) able |= static_cast<std::uint32_t>(adAddNew) | adDelete | adUpdate;
    if (recordset_->CursorType() != adOpenForwardOnly) able |= adMovePrevious | adApproxPosition;
    return (static_cast<std::uint32_t>(options) & ~able) == 0;
  });
}

STDMETHODIMP RecordsetObject::get_BOF(VARIANT_BOOL* atStart) noexcept {
  return Get(atStart, [&] { return recordset_->Bof(); });
}
STDMETHODIMP RecordsetObject::get_EOF(VARIANT_BOOL* atEnd) noexcept {
  return Get(atEnd, [&] { return recordset_->Eof(); });
}
STDMETHODIMP RecordsetObject::MoveFirst() noexcept {
  return Guard([&] { recordset_->MoveFirst(); });
}
STDMETHODIMP RecordsetObject::MoveNext() noexcept {
  return Guard([&] { recordset_->MoveNext(); });
}
STDMETHODIMP RecordsetObject::MovePrevious() noexcept {
  return Guard([&] { recordset_->MovePrevious(); });
}
STDMETHODIMP RecordsetObject::MoveLast() noexcept {
  return Guard([&] { recordset_->MoveLast(); });
}
STDMETHODIMP RecordsetObject::Move(ADO_LONGPTR count, VARIANT start) noexcept {
  return Guard([&] {
    if (!Argument(start).IsMissing()) RaiseNotImplemented(L"Move from a bookmark");
    recordset_->Move(count);
  });
}
STDMETHODIMP RecordsetObject::get_RecordCount(ADO_LONGPTR* count) noexcept {
  return Get(count, [&] { return recordset_->RecordCount(); });
}
STDMETHODIMP RecordsetObject::get_AbsolutePosition(PositionEnum_Param* position) noexcept {
  return Get(position, [&] { return recordset_->AbsolutePosition(); });
}
STDMETHODIMP RecordsetObject::put_AbsolutePosition(PositionEnum_Param position) noexcept {
  return Guard([&] { recordset_->SetAbsolutePosition(position); });
}

STDMETHODIMP RecordsetObject::get_Fields(Fields** fields) noexcept {
  return Get(fields, [&] { return Make<FieldsObject>(com_ptr<RecordsetObject>(this)); });
}
HRESULT RecordsetObject::GetItem(const VARIANT& index, com_ptr<IDispatch>& field) noexcept {
  return Guard([&] {
    const std::int32_t position = FieldIndex(Argument(index));
    field = com_ptr<IDispatch>(Make<FieldObject>(com_ptr<RecordsetObject>(this), position).get());
  });
}
STDMETHODIMP RecordsetObject::get_Collect(VARIANT index, VARIANT* value) noexcept {
  return Get(value, [&] { return recordset_->FieldValue(FieldIndex(Argument(index))); });
}
STDMETHODIMP RecordsetObject::put_Collect(VARIANT index, VARIANT value) noexcept {
  return Guard([&] { recordset_->SetFieldValue(FieldIndex(Argument(index)), Argument(value).AsValue()); });
}
STDMETHODIMP RecordsetObject::GetRows(LONG count, VARIANT start, VARIANT fields, VARIANT* rows) noexcept {
  return Guard([&] {
    VARIANT& result = Out(rows);
    if (!Argument(start).IsMissing()) RaiseNotImplemented(L"GetRows from a bookmark");
    std::vector<std::int32_t> columns;
    for (const Argument& field : Argument(fields).Items()) columns.push_back(FieldIndex(field));
    if (columns.empty()) {
      for (std::int32_t i = 0; i < recordset_->FieldCount(); ++i) columns.push_back(i);
    }
    result = RowArray(recordset_->GetRows(count), columns);
  });
}

void RecordsetObject::SetFields(const Argument& fields, const Argument& values) {
  const std::vector<Argument> names = fields.Items();
  const std::vector<Argument> given = values.Items();
  if (names.size() != given.size()) Raise(ControlError::kInvalidArgument, odbc::kRecordsetSource);
  for (std::size_t i = 0; i < names.size(); ++i) recordset_->SetFieldValue(FieldIndex(names[i]), given[i].AsValue());
}
STDMETHODIMP RecordsetObject::AddNew(VARIANT fields, VARIANT values) noexcept {
  return Guard([&] {
    recordset_->AddNew();
    const Argument names(fields);
    if (names.IsMissing()) return;
    SetFields(names, Argument(values));
    recordset_->Update();
  });
}
STDMETHODIMP RecordsetObject::Update(VARIANT fields, VARIANT values) noexcept {
  return Guard([&] {
    const Argument names(fields);
    if (!names.IsMissing()) SetFields(names, Argument(values));
    recordset_->Update();
  });
}
STDMETHODIMP RecordsetObject::CancelUpdate() noexcept {
  return Guard([&] { recordset_->CancelUpdate(); });
}
STDMETHODIMP RecordsetObject::Delete(AffectEnum rows) noexcept {
  return Guard([&] {
    if (rows != adAffectCurrent) RaiseNotImplemented(L"Delete of more than the current row");
    recordset_->Delete();
  });
}
STDMETHODIMP RecordsetObject::get_EditMode(EditModeEnum* mode) noexcept {
  return Get(mode, [&] { return recordset_->EditMode(); });
}

}  // namespace kodra::adodb
