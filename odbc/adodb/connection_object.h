// ADODB.Connection: the ODBC connection behind ADO's interface.
//
// Commands and recordsets that use it hold a reference, so it lives as long as the last of them.
#pragma once

#include <optional>

#include "odbc/adodb/arguments.h"
#include "odbc/adodb/dispatch_object.h"
#include "odbc/engine/connection.h"

namespace kodra::adodb {

class ConnectionObject final : public DispatchObject<_Connection, Connection15, _ADO> {
 public:
  odbc::Connection& Odbc() noexcept { return connection_; }

  STDMETHODIMP get_Properties(Properties** properties) noexcept override;
  STDMETHODIMP get_ConnectionString(BSTR* text) noexcept override;
  STDMETHODIMP put_ConnectionString(BSTR text) noexcept override;
  STDMETHODIMP get_CommandTimeout(LONG* seconds) noexcept override;
  STDMETHODIMP put_CommandTimeout(LONG seconds) noexcept override;
  STDMETHODIMP get_ConnectionTimeout(LONG* seconds) noexcept override;
  STDMETHODIMP put_ConnectionTimeout(LONG seconds) noexcept override;
  STDMETHODIMP get_Version(BSTR* version) noexcept override;
  STDMETHODIMP Open(BSTR text, BSTR user, BSTR password, LONG options) noexcept override;
  STDMETHODIMP Close() noexcept override;
  STDMETHODIMP get_State(LONG* state) noexcept override;
  STDMETHODIMP Execute(BSTR statement, VARIANT* affected, LONG options, _Recordset** rows) noexcept override;
  STDMETHODIMP BeginTrans(LONG* level) noexcept override;
  STDMETHODIMP CommitTrans() noexcept override;
  STDMETHODIMP RollbackTrans() noexcept override;
  STDMETHODIMP get_Errors(Errors** errors) noexcept override;
  STDMETHODIMP get_DefaultDatabase(BSTR* name) noexcept override;
  STDMETHODIMP put_DefaultDatabase(BSTR name) noexcept override;
  STDMETHODIMP get_IsolationLevel(IsolationLevelEnum* level) noexcept override;
  STDMETHODIMP put_IsolationLevel(IsolationLevelEnum level) noexcept override;
  STDMETHODIMP get_CursorLocation(CursorLocationEnum* location) noexcept override;
  STDMETHODIMP put_CursorLocation(CursorLocationEnum location) noexcept override;
  STDMETHODIMP get_Mode(ConnectModeEnum* mode) noexcept override;
  STDMETHODIMP put_Mode(ConnectModeEnum mode) noexcept override;
  STDMETHODIMP get_Provider(BSTR* name) noexcept override;
  STDMETHODIMP put_Provider(BSTR name) noexcept override;

  // Not implemented: no client here uses these members.
  STDMETHODIMP get_Attributes(LONG*) noexcept override { return NotImplemented(L"Connection.Attributes"); }
  STDMETHODIMP put_Attributes(LONG) noexcept override { return NotImplemented(L"Connection.Attributes"); }
  STDMETHODIMP OpenSchema(SchemaEnum, VARIANT, VARIANT, _Recordset**) noexcept override {
    return NotImplemented(L"Connection.OpenSchema");
  }
  STDMETHODIMP Cancel() noexcept override { return NotImplemented(L"Connection.Cancel"); }

 private:
  odbc::Connection connection_;
};

// The connection that an argument or a property names: nothing when it was left out, null for "Nothing", a new open
// connection for a connection string. An object that is not a connection of this DLL raises
// ControlError::kInvalidArgument.
std::optional<com_ptr<ConnectionObject>> ConnectionOf(const Argument& argument);

// Returns the results of a statement: how many rows it changed, and its recordset unless the caller wants none.
void StoreExecution(odbc::Execution execution, const com_ptr<ConnectionObject>& connection, LONG options,
                    VARIANT* affected, _Recordset** rows);

}  // namespace kodra::adodb
