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

  HRESULT __stdcall get_Properties(Properties** properties) noexcept override;
  HRESULT __stdcall get_ConnectionString(BSTR* text) noexcept override;
  HRESULT __stdcall put_ConnectionString(BSTR text) noexcept override;
  HRESULT __stdcall get_CommandTimeout(LONG* seconds) noexcept override;
  HRESULT __stdcall put_CommandTimeout(LONG seconds) noexcept override;
  HRESULT __stdcall get_ConnectionTimeout(LONG* seconds) noexcept override;
  HRESULT __stdcall put_ConnectionTimeout(LONG seconds) noexcept override;
  HRESULT __stdcall get_Version(BSTR* version) noexcept override;
  HRESULT __stdcall Open(BSTR text, BSTR user, BSTR password, LONG options) noexcept override;
  HRESULT __stdcall Close() noexcept override;
  HRESULT __stdcall get_State(LONG* state) noexcept override;
  HRESULT __stdcall Execute(BSTR statement, VARIANT* affected, LONG options, _Recordset** rows) noexcept override;
  HRESULT __stdcall BeginTrans(LONG* level) noexcept override;
  HRESULT __stdcall CommitTrans() noexcept override;
  HRESULT __stdcall RollbackTrans() noexcept override;
  HRESULT __stdcall get_Errors(Errors** errors) noexcept override;
  HRESULT __stdcall get_DefaultDatabase(BSTR* name) noexcept override;
  HRESULT __stdcall put_DefaultDatabase(BSTR name) noexcept override;
  HRESULT __stdcall get_IsolationLevel(IsolationLevelEnum* level) noexcept override;
  HRESULT __stdcall put_IsolationLevel(IsolationLevelEnum level) noexcept override;
  HRESULT __stdcall get_CursorLocation(CursorLocationEnum* location) noexcept override;
  HRESULT __stdcall put_CursorLocation(CursorLocationEnum location) noexcept override;
  HRESULT __stdcall get_Mode(ConnectModeEnum* mode) noexcept override;
  HRESULT __stdcall put_Mode(ConnectModeEnum mode) noexcept override;
  HRESULT __stdcall get_Provider(BSTR* name) noexcept override;
  HRESULT __stdcall put_Provider(BSTR name) noexcept override;

  // Not used by any client here.
  HRESULT __stdcall get_Attributes(LONG*) noexcept override { return NotImplemented(L"Connection.Attributes"); }
  HRESULT __stdcall put_Attributes(LONG) noexcept override { return NotImplemented(L"Connection.Attributes"); }
  HRESULT __stdcall OpenSchema(SchemaEnum, VARIANT, VARIANT, _Recordset**) noexcept override {
    return NotImplemented(L"Connection.OpenSchema");
  }
  HRESULT __stdcall Cancel() noexcept override { return NotImplemented(L"Connection.Cancel"); }

 private:
  odbc::Connection connection_;
};

// The connection that an argument or a property names: nothing when it was left out, null for "Nothing", a new open
// connection for a connection string. An object that is no connection of this DLL raises
// ControlError::kInvalidArgument.
std::optional<com_ptr<ConnectionObject>> ConnectionOf(const Argument& argument);

// Hands out what a statement gave: how many rows it changed, and its recordset unless the caller wants none.
void StoreExecution(odbc::Execution execution, const com_ptr<ConnectionObject>& connection, LONG options,
                    VARIANT* affected, _Recordset** rows);

}  // namespace kodra::adodb
