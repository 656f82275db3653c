#include "odbc/adodb/parameter_objects.h"

#include "odbc/adodb/command_object.h"
#include "odbc/adodb/properties_object.h"

namespace kodra::adodb {

using comkit::ToWide;

STDMETHODIMP ParameterObject::get_Properties(Properties** properties) noexcept {
  return Get(properties, [] { return Make<PropertiesObject>(); });
}
STDMETHODIMP ParameterObject::get_Name(BSTR* name) noexcept {
  return Get(name, [&] { return parameter_.name; });
}
STDMETHODIMP ParameterObject::put_Name(BSTR name) noexcept {
  return Guard([&] { parameter_.name = ToWide(name); });
}
STDMETHODIMP ParameterObject::get_Value(VARIANT* value) noexcept {
  return Get(value, [&] { return parameter_.value; });
}
STDMETHODIMP ParameterObject::put_Value(VARIANT value) noexcept {
  return Guard([&] { parameter_.value = Argument(value).AsValue(); });
}
STDMETHODIMP ParameterObject::get_Type(DataTypeEnum* type) noexcept {
  return Get(type, [&] { return parameter_.type; });
}
STDMETHODIMP ParameterObject::put_Type(DataTypeEnum type) noexcept {
  return Guard([&] { parameter_.type = type; });
}
STDMETHODIMP ParameterObject::get_Direction(ParameterDirectionEnum* direction) noexcept {
  return Get(direction, [&] { return parameter_.direction; });
}
STDMETHODIMP ParameterObject::put_Direction(ParameterDirectionEnum direction) noexcept {
  return Guard([&] { parameter_.direction = direction; });
}
STDMETHODIMP ParameterObject::get_Size(ADO_LONGPTR* size) noexcept {
  return Get(size, [&] { return parameter_.size; });
}
STDMETHODIMP ParameterObject::put_Size(ADO_LONGPTR size) noexcept {
  return Guard([&] { parameter_.size = size; });
}

STDMETHODIMP ParametersObject::get_Item(VARIANT index, _Parameter** parameter) noexcept {
  return Get(parameter, [&] { return command_->ParameterAt(command_->ParameterIndex(Argument(index))); });
}
STDMETHODIMP ParametersObject::Append(IDispatch* parameter) noexcept {
  return Guard([&] { command_->AppendParameter(OwnObjectOf<ParameterObject>(parameter)); });
}
STDMETHODIMP ParametersObject::Delete(VARIANT index) noexcept {
  return Guard([&] { command_->RemoveParameter(command_->ParameterIndex(Argument(index))); });
}

std::int32_t ParametersObject::Size() { return command_->ParameterCount(); }

com_ptr<IDispatch> ParametersObject::Member(std::int32_t index) {
  return com_ptr<IDispatch>(command_->ParameterAt(index).get());
}

HRESULT ParametersObject::PutItem(const VARIANT& index, const VARIANT& value) noexcept {
  com_ptr<_Parameter> parameter;
  const HRESULT found = get_Item(index, parameter.put());
  return FAILED(found) ? found : parameter->put_Value(value);
}

}  // namespace kodra::adodb
