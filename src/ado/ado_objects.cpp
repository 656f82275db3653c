#include "ado/ado_objects.h"

#include "ado/automation_object.h"
#include "ado/variant.h"

namespace kodra::ado {

using comkit::com_ptr;
using comkit::ScopedBstr;
using comkit::ToWide;

namespace {

// For a call that returns an object: raises ErrorOf when it failed, and RuntimeError::kObjectNotSet when it succeeded
// but returned none.
template <class T, class Given>
void CheckGiven(HRESULT hr, const com_ptr<T>& object, const com_ptr<Given>& given) {
  Check(hr, object);
  if (!given) throw MakeRuntimeError(RuntimeError::kObjectNotSet);
}

_Connection* InterfaceOf(platform::Connection* connection) {
  return connection == nullptr ? nullptr : dynamic_cast<AdoConnection&>(*connection).Interface();
}

class AdoField final : public platform::Field {
 public:
  explicit AdoField(com_ptr<::Field> field) : field_(std::move(field)) {}

  Value Get() override {
    ScopedVariant value;
    Check(field_->get_Value(value.put()), field_);
    return ToValue(*value);
  }
  void Let(const Value& value) override { Check(field_->put_Value(*ScopedVariant(value)), field_); }
  ObjectRef AsObject() override { return WrapDispatch(field_.get()); }

 private:
  com_ptr<::Field> field_;
};

// Source and connection as the arguments of Recordset.Open.
struct SourceArgument {
  ScopedVariant operator()(std::monostate) const { return ScopedVariant::Missing(); }
  ScopedVariant operator()(std::wstring_view text) const { return ScopedVariant::Text(text); }
  ScopedVariant operator()(platform::Command* command) const {
    return ScopedVariant::Object(dynamic_cast<AdoCommand&>(*command).Interface());
  }
};
struct ConnectionArgument {
  ScopedVariant operator()(std::monostate) const { return ScopedVariant::Missing(); }
  ScopedVariant operator()(platform::Connection* connection) const {
    return ScopedVariant::Object(InterfaceOf(connection));
  }
  ScopedVariant operator()(const std::wstring& text) const { return ScopedVariant::Text(text); }
};

}  // namespace

std::wstring AdoConnection::ConnectionString() {
  ScopedBstr text;
  Check(connection_->get_ConnectionString(text.put()), connection_);
  return ToWide(text.get());
}

void AdoConnection::SetConnectionString(const std::wstring& text) {
  Check(connection_->put_ConnectionString(ScopedBstr(text).get()), connection_);
}

void AdoConnection::SetCursorLocation(std::int32_t location) {
  Check(connection_->put_CursorLocation(static_cast<CursorLocationEnum>(location)), connection_);
}

void AdoConnection::SetIsolationLevel(std::int32_t level) {
  Check(connection_->put_IsolationLevel(static_cast<IsolationLevelEnum>(level)), connection_);
}

void AdoConnection::Open(const std::wstring& user, const std::wstring& password, std::int32_t options) {
  const ScopedBstr fromProperty(L"");
  Check(connection_->Open(fromProperty.get(), ScopedBstr(user).get(), ScopedBstr(password).get(), options),
        connection_);
}

std::int32_t AdoConnection::State() {
  long state = adStateClosed;
  Check(connection_->get_State(&state), connection_);
  return state;
}

void AdoConnection::Execute(const std::wstring& statement, std::int32_t options) {
  ScopedVariant affected;
  com_ptr<_Recordset> result;
  Check(connection_->Execute(ScopedBstr(statement).get(), affected.put(), options, result.put()), connection_);
}

std::int32_t AdoConnection::ErrorCount() {
  com_ptr<::Errors> errors;
  Check(connection_->get_Errors(errors.put()), connection_);
  long count = 0;
  if (errors) Check(errors->get_Count(&count), errors);
  return count;
}

std::int32_t AdoConnection::NativeError(std::int32_t index) {
  com_ptr<::Errors> errors;
  CheckGiven(connection_->get_Errors(errors.put()), connection_, errors);
  com_ptr<::Error> error;
  CheckGiven(errors->get_Item(*ScopedVariant(Value(index)), error.put()), errors, error);
  long native = 0;
  Check(error->get_NativeError(&native), error);
  return native;
}

void AdoCommand::SetActiveConnection(platform::Connection* connection) {
  Check(command_->putref_ActiveConnection(InterfaceOf(connection)), command_);
}

bool AdoCommand::HasActiveConnection() {
  com_ptr<_Connection> connection;
  Check(command_->get_ActiveConnection(connection.put()), command_);
  return static_cast<bool>(connection);
}

void AdoCommand::SetCommandText(std::wstring_view text) {
  Check(command_->put_CommandText(ScopedBstr(text).get()), command_);
}

void AdoCommand::SetCommandType(std::int32_t type) {
  Check(command_->put_CommandType(static_cast<CommandTypeEnum>(type)), command_);
}

void AdoCommand::AppendParameter(const std::wstring& name, std::int32_t type, std::int32_t direction, std::int32_t size,
                                 const Value& value) {
  com_ptr<_Parameter> parameter;
  CheckGiven(command_->CreateParameter(ScopedBstr(name).get(), static_cast<DataTypeEnum>(type),
                                       static_cast<ParameterDirectionEnum>(direction), size, *ScopedVariant(value),
                                       parameter.put()),
             command_, parameter);
  com_ptr<::Parameters> parameters;
  CheckGiven(command_->get_Parameters(parameters.put()), command_, parameters);
  Check(parameters->Append(parameter.get()), parameters);
}

void AdoRecordset::SetCursorLocation(std::int32_t location) {
  Check(recordset_->put_CursorLocation(static_cast<CursorLocationEnum>(location)), recordset_);
}

void AdoRecordset::SetCursorType(std::int32_t type) {
  Check(recordset_->put_CursorType(static_cast<CursorTypeEnum>(type)), recordset_);
}

void AdoRecordset::SetCacheSize(std::int32_t rows) { Check(recordset_->put_CacheSize(rows), recordset_); }

void AdoRecordset::Open(const platform::RecordsetSource& source, const platform::ActiveConnection& connection,
                        std::int32_t cursorType, std::int32_t lockType, std::int32_t options) {
  const ScopedVariant sourceArgument = std::visit(SourceArgument{}, source);
  const ScopedVariant connectionArgument = std::visit(ConnectionArgument{}, connection);
  Check(recordset_->Open(*sourceArgument, *connectionArgument, static_cast<CursorTypeEnum>(cursorType),
                         static_cast<LockTypeEnum>(lockType), options),
        recordset_);
}

void AdoRecordset::Close() { Check(recordset_->Close(), recordset_); }

std::int32_t AdoRecordset::State() {
  long state = adStateClosed;
  Check(recordset_->get_State(&state), recordset_);
  return state;
}

bool AdoRecordset::Eof() {
  VARIANT_BOOL eof = VARIANT_FALSE;
  Check(recordset_->get_EOF(&eof), recordset_);
  return eof != VARIANT_FALSE;
}

void AdoRecordset::MoveFirst() { Check(recordset_->MoveFirst(), recordset_); }

void AdoRecordset::MoveNext() { Check(recordset_->MoveNext(), recordset_); }

std::int64_t AdoRecordset::RecordCount() {
  ADO_LONGPTR count = -1;
  Check(recordset_->get_RecordCount(&count), recordset_);
  return count;
}

com_ptr<::Fields> AdoRecordset::FieldList() {
  com_ptr<::Fields> fields;
  CheckGiven(recordset_->get_Fields(fields.put()), recordset_, fields);
  return fields;
}

void AdoRecordset::AppendField(const std::wstring& name, std::int32_t type, std::int32_t definedSize,
                               std::int32_t attributes) {
  const auto fields = FieldList();
  Check(fields->Append(ScopedBstr(name).get(), static_cast<DataTypeEnum>(type), definedSize,
                       static_cast<FieldAttributeEnum>(attributes), *ScopedVariant::Missing()),
        fields);
}

std::vector<platform::Column> AdoRecordset::Columns() {
  const auto fields = FieldList();
  long count = 0;
  Check(fields->get_Count(&count), fields);
  std::vector<platform::Column> columns;
  for (long i = 0; i < count; ++i) {
    com_ptr<::Field> field;
    CheckGiven(fields->get_Item(*ScopedVariant(Value(std::int32_t{i})), field.put()), fields, field);
    ScopedBstr name;
    Check(field->get_Name(name.put()), field);
    DataTypeEnum type = adEmpty;
    Check(field->get_Type(&type), field);
    columns.push_back({ToWide(name.get()), type, std::make_unique<AdoField>(std::move(field))});
  }
  return columns;
}

std::unique_ptr<platform::Field> AdoRecordset::FieldByName(const std::wstring& name) {
  const auto fields = FieldList();
  com_ptr<::Field> field;
  CheckGiven(fields->get_Item(*ScopedVariant(Value(name)), field.put()), fields, field);
  return std::make_unique<AdoField>(std::move(field));
}

void AdoRecordset::AddNew() {
  const ScopedVariant leftOut = ScopedVariant::Missing();
  Check(recordset_->AddNew(*leftOut, *leftOut), recordset_);
}

void AdoRecordset::Update() {
  const ScopedVariant leftOut = ScopedVariant::Missing();
  Check(recordset_->Update(*leftOut, *leftOut), recordset_);
}

com_ptr<IDispatch> DispatchOf(platform::Recordset& recordset) {
  return com_ptr<IDispatch>(dynamic_cast<AdoRecordset&>(recordset).Interface());
}

}  // namespace kodra::ado
