// ADODB.Parameter, and the Parameters collection of a command.
#pragma once

#include <string>

#include "odbc/adodb/collection_object.h"
#include "odbc/engine/types.h"

namespace kodra::adodb {

class CommandObject;

// A parameter is independent until it is appended; afterwards the command reads it whenever it runs.
class ParameterObject final : public DispatchObject<_Parameter, _ADO> {
 public:
  ParameterObject() = default;
  explicit ParameterObject(odbc::Parameter parameter) : parameter_(std::move(parameter)) {}

  const odbc::Parameter& Definition() const noexcept { return parameter_; }

  STDMETHODIMP get_Properties(Properties** properties) noexcept override;
  STDMETHODIMP get_Name(BSTR* name) noexcept override;
  STDMETHODIMP put_Name(BSTR name) noexcept override;
  STDMETHODIMP get_Value(VARIANT* value) noexcept override;
  STDMETHODIMP put_Value(VARIANT value) noexcept override;
  STDMETHODIMP get_Type(DataTypeEnum* type) noexcept override;
  STDMETHODIMP put_Type(DataTypeEnum type) noexcept override;
  STDMETHODIMP get_Direction(ParameterDirectionEnum* direction) noexcept override;
  STDMETHODIMP put_Direction(ParameterDirectionEnum direction) noexcept override;
  STDMETHODIMP get_Size(ADO_LONGPTR* size) noexcept override;
  STDMETHODIMP put_Size(ADO_LONGPTR size) noexcept override;

  // Not implemented: no client here uses these members.
  STDMETHODIMP get_Precision(unsigned char*) noexcept override { return NotImplemented(L"Parameter.Precision"); }
  STDMETHODIMP put_Precision(unsigned char) noexcept override { return NotImplemented(L"Parameter.Precision"); }
  STDMETHODIMP get_NumericScale(unsigned char*) noexcept override { return NotImplemented(L"Parameter.NumericScale"); }
  STDMETHODIMP put_NumericScale(unsigned char) noexcept override { return NotImplemented(L"Parameter.NumericScale"); }
  STDMETHODIMP AppendChunk(VARIANT) noexcept override { return NotImplemented(L"Parameter.AppendChunk"); }
  STDMETHODIMP get_Attributes(LONG*) noexcept override { return NotImplemented(L"Parameter.Attributes"); }
  STDMETHODIMP put_Attributes(LONG) noexcept override { return NotImplemented(L"Parameter.Attributes"); }

 private:
  odbc::Parameter parameter_;
};

class ParametersObject final : public CollectionObject<Parameters, _DynaCollection> {
 public:
  explicit ParametersObject(com_ptr<CommandObject> command) : command_(std::move(command)) {}

  STDMETHODIMP get_Item(VARIANT index, _Parameter** parameter) noexcept override;
  // An incomplete parameter raises ControlError::kInvalidParamInfo, an object that is not a parameter kInvalidArgument.
  STDMETHODIMP Append(IDispatch* parameter) noexcept override;
  STDMETHODIMP Delete(VARIANT index) noexcept override;

 protected:
  std::int32_t Size() override;
  com_ptr<IDispatch> Member(std::int32_t index) override;
  HRESULT PutItem(const VARIANT& index, const VARIANT& value) noexcept override;

 private:
  com_ptr<CommandObject> command_;
};

}  // namespace kodra::adodb
