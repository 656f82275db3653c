// ADODB.Command: a statement with parameters.
#pragma once

#include <vector>

#include "odbc/adodb/connection_object.h"
#include "odbc/adodb/parameter_objects.h"
#include "odbc/engine/command.h"

namespace kodra::adodb {

class CommandObject final : public DispatchObject<_Command, Command25, Command15, _ADO> {
 public:
  // The command as it would run at this moment, with the current values of its parameters.
  odbc::Command& Prepare();
  const com_ptr<ConnectionObject>& Connection() const noexcept { return connection_; }

  std::int32_t ParameterCount() const noexcept { return static_cast<std::int32_t>(parameters_.size()); }
  // REQUIRES: 0 <= index < ParameterCount().
  const com_ptr<ParameterObject>& ParameterAt(std::int32_t index) const;
  // The position named by a name or number; an unknown one raises ControlError::kItemNotFound.
  std::int32_t ParameterIndex(const Argument& index) const;
  void AppendParameter(const com_ptr<ParameterObject>& parameter);
  void RemoveParameter(std::int32_t index);

  STDMETHODIMP get_Properties(Properties** properties) noexcept override;
  // Null when there is none.
  STDMETHODIMP get_ActiveConnection(_Connection** connection) noexcept override;
  STDMETHODIMP putref_ActiveConnection(_Connection* connection) noexcept override;
  STDMETHODIMP put_ActiveConnection(VARIANT connection) noexcept override;
  STDMETHODIMP get_CommandText(BSTR* text) noexcept override;
  STDMETHODIMP put_CommandText(BSTR text) noexcept override;
  STDMETHODIMP get_CommandTimeout(LONG* seconds) noexcept override;
  STDMETHODIMP put_CommandTimeout(LONG seconds) noexcept override;
  STDMETHODIMP get_Prepared(VARIANT_BOOL* prepared) noexcept override;
  STDMETHODIMP put_Prepared(VARIANT_BOOL prepared) noexcept override;
  // `values`, when it is not left out, is an array that replaces the values of the first parameters.
  STDMETHODIMP Execute(VARIANT* affected, VARIANT* values, LONG options, _Recordset** rows) noexcept override;
  STDMETHODIMP CreateParameter(BSTR name, DataTypeEnum type, ParameterDirectionEnum direction, ADO_LONGPTR size,
                               VARIANT value, _Parameter** parameter) noexcept override;
  STDMETHODIMP get_Parameters(Parameters** parameters) noexcept override;
  STDMETHODIMP get_CommandType(CommandTypeEnum* type) noexcept override;
  STDMETHODIMP put_CommandType(CommandTypeEnum type) noexcept override;
  STDMETHODIMP get_Name(BSTR* name) noexcept override;
  STDMETHODIMP put_Name(BSTR name) noexcept override;
  STDMETHODIMP get_State(LONG* state) noexcept override;

  // Not implemented: no client here uses these members.
  STDMETHODIMP Cancel() noexcept override { return NotImplemented(L"Command.Cancel"); }
  STDMETHODIMP putref_CommandStream(IUnknown*) noexcept override { return NotImplemented(L"Command.CommandStream"); }
  STDMETHODIMP get_CommandStream(VARIANT*) noexcept override { return NotImplemented(L"Command.CommandStream"); }
  STDMETHODIMP put_Dialect(BSTR) noexcept override { return NotImplemented(L"Command.Dialect"); }
  STDMETHODIMP get_Dialect(BSTR*) noexcept override { return NotImplemented(L"Command.Dialect"); }
  STDMETHODIMP put_NamedParameters(VARIANT_BOOL) noexcept override {
    return NotImplemented(L"Command.NamedParameters");
  }
  STDMETHODIMP get_NamedParameters(VARIANT_BOOL*) noexcept override {
    return NotImplemented(L"Command.NamedParameters");
  }

 protected:
  HRESULT GetItem(const VARIANT& index, com_ptr<IDispatch>& parameter) noexcept override;
  HRESULT PutItem(const VARIANT& index, const VARIANT& value) noexcept override;

 private:
  void Use(const com_ptr<ConnectionObject>& connection);

  odbc::Command command_;
  com_ptr<ConnectionObject> connection_;
  std::vector<com_ptr<ParameterObject>> parameters_;
};

}  // namespace kodra::adodb
