#include "odbc/adodb/command_object.h"

#include "odbc/adodb/properties_object.h"
#include "odbc/engine/recordset.h"
#include "values/upper.h"

namespace kodra::adodb {

using comkit::ToWide;

odbc::Command& CommandObject::Prepare() {
  for (std::int32_t i = 0; i < ParameterCount(); ++i) command_.SetParameter(i, ParameterAt(i)->Definition());
  return command_;
}

const com_ptr<ParameterObject>& CommandObject::ParameterAt(std::int32_t index) const {
  return parameters_[static_cast<std::size_t>(index)];
}

std::int32_t CommandObject::ParameterIndex(const Argument& index) const {
  const std::wstring name = index.IsText() ? index.Text() : std::wstring();
  for (std::int32_t i = 0; i < ParameterCount(); ++i) {
    if (index.IsText() ? values::EqualIgnoringCase(ParameterAt(i)->Definition().name, name) : index.AsInteger() == i)
      return i;
  }
  Raise(ControlError::kItemNotFound, odbc::kParametersSource);
}

void CommandObject::AppendParameter(const com_ptr<ParameterObject>& parameter) {
  if (!parameter) Raise(ControlError::kInvalidArgument, odbc::kCommandSource);
  const odbc::Parameter& p = parameter->Definition();
  command_.AppendParameter(p.name, p.type, p.direction, p.size, p.value);
  parameters_.push_back(parameter);
}

void CommandObject::RemoveParameter(std::int32_t index) {
  command_.RemoveParameter(index);
  parameters_.erase(parameters_.begin() + index);
}

void CommandObject::Use(const com_ptr<ConnectionObject>& connection) {
  command_.SetActiveConnection(connection ? &connection->Odbc() : nullptr);
  connection_ = connection;
}

STDMETHODIMP CommandObject::get_Properties(Properties** properties) noexcept {
  return Get(properties, [] { return Make<PropertiesObject>(); });
}
STDMETHODIMP CommandObject::get_ActiveConnection(_Connection** connection) noexcept {
  return Get(connection, [&] { return connection_; });
}
STDMETHODIMP CommandObject::putref_ActiveConnection(_Connection* connection) noexcept {
  return Guard([&] {
    const auto own = OwnObjectOf<ConnectionObject>(connection);
    if (!own && connection != nullptr) Raise(ControlError::kInvalidArgument, odbc::kCommandSource);
    Use(own);
  });
}
STDMETHODIMP CommandObject::put_ActiveConnection(VARIANT connection) noexcept {
  return Guard([&] { Use(ConnectionOf(Argument(connection)).value_or(nullptr)); });
}
STDMETHODIMP CommandObject::get_CommandText(BSTR* text) noexcept {
  return Get(text, [&] { return command_.CommandText(); });
}
STDMETHODIMP CommandObject::put_CommandText(BSTR text) noexcept {
  return Guard([&] { command_.SetCommandText(ToWide(text)); });
}
STDMETHODIMP CommandObject::get_CommandTimeout(LONG* seconds) noexcept {
  return Get(seconds, [&] { return command_.CommandTimeout(); });
}
STDMETHODIMP CommandObject::put_CommandTimeout(LONG seconds) noexcept {
  return Guard([&] { command_.SetCommandTimeout(seconds); });
}
STDMETHODIMP CommandObject::get_Prepared(VARIANT_BOOL* prepared) noexcept {
  return Get(prepared, [&] { return command_.Prepared(); });
}
STDMETHODIMP CommandObject::put_Prepared(VARIANT_BOOL prepared) noexcept {
  return Guard([&] { command_.SetPrepared(prepared != VARIANT_FALSE); });
}

STDMETHODIMP CommandObject::Execute(VARIANT* affected, VARIANT* values, LONG options, _Recordset** rows) noexcept {
  if (rows != nullptr) *rows = nullptr;
  return Guard([&] {
    Prepare();
    if (values != nullptr) {
      const std::vector<Argument> given = Argument(*values).Items();
      if (given.size() > parameters_.size()) Raise(ControlError::kInvalidArgument, odbc::kCommandSource);
      for (std::size_t i = 0; i < given.size(); ++i)
        command_.SetParameterValue(static_cast<std::int32_t>(i), given[i].AsValue());
    }
    StoreExecution(command_.Execute(options), connection_, options, affected, rows);
  });
}

STDMETHODIMP CommandObject::CreateParameter(BSTR name, DataTypeEnum type, ParameterDirectionEnum direction,
                                            ADO_LONGPTR size, VARIANT value, _Parameter** parameter) noexcept {
  return Get(parameter, [&] {
    return Make<ParameterObject>(odbc::Parameter{ToWide(name), type, direction, size, Argument(value).AsValue()});
  });
}
STDMETHODIMP CommandObject::get_Parameters(Parameters** parameters) noexcept {
  return Get(parameters, [&] { return Make<ParametersObject>(com_ptr<CommandObject>(this)); });
}
STDMETHODIMP CommandObject::get_CommandType(CommandTypeEnum* type) noexcept {
  return Get(type, [&] { return command_.CommandType(); });
}
STDMETHODIMP CommandObject::put_CommandType(CommandTypeEnum type) noexcept {
  return Guard([&] { command_.SetCommandType(type); });
}
STDMETHODIMP CommandObject::get_Name(BSTR* name) noexcept {
  return Get(name, [&] { return command_.Name(); });
}
STDMETHODIMP CommandObject::put_Name(BSTR name) noexcept {
  return Guard([&] { command_.SetName(ToWide(name)); });
}
// A command is busy only inside its own calls, which are never asynchronous.
STDMETHODIMP CommandObject::get_State(LONG* state) noexcept {
  return Get(state, [] { return platform::ad::kStateClosed; });
}

HRESULT CommandObject::GetItem(const VARIANT& index, com_ptr<IDispatch>& parameter) noexcept {
  return Guard([&] { parameter = com_ptr<IDispatch>(ParameterAt(ParameterIndex(Argument(index))).get()); });
}
HRESULT CommandObject::PutItem(const VARIANT& index, const VARIANT& value) noexcept {
  return Guard([&] {
    const auto parameter = ParameterAt(ParameterIndex(Argument(index)));
    if (FAILED(parameter->put_Value(value))) Raise(ControlError::kInvalidArgument, odbc::kCommandSource);
  });
}

}  // namespace kodra::adodb
