#include "odbc/adodb/connection_object.h"

#include "odbc/adodb/error_objects.h"
#include "odbc/adodb/properties_object.h"
#include "odbc/adodb/recordset_object.h"

namespace kodra::adodb {

using comkit::ToWide;

STDMETHODIMP ConnectionObject::get_Properties(Properties** properties) noexcept {
  return Get(properties, [] { return Make<PropertiesObject>(); });
}
STDMETHODIMP ConnectionObject::get_ConnectionString(BSTR* text) noexcept {
  return Get(text, [&] { return connection_.ConnectionString(); });
}
STDMETHODIMP ConnectionObject::put_ConnectionString(BSTR text) noexcept {
  return Guard([&] { connection_.SetConnectionString(ToWide(text)); });
}
STDMETHODIMP ConnectionObject::get_CommandTimeout(LONG* seconds) noexcept {
  return Get(seconds, [&] { return connection_.CommandTimeout(); });
}
STDMETHODIMP ConnectionObject::put_CommandTimeout(LONG seconds) noexcept {
  return Guard([&] { connection_.SetCommandTimeout(seconds); });
}
STDMETHODIMP ConnectionObject::get_ConnectionTimeout(LONG* seconds) noexcept {
  return Get(seconds, [&] { return connection_.ConnectionTimeout(); });
}
STDMETHODIMP ConnectionObject::put_ConnectionTimeout(LONG seconds) noexcept {
  return Guard([&] { connection_.SetConnectionTimeout(seconds); });
}
STDMETHODIMP ConnectionObject::get_Version(BSTR* version) noexcept {
  return Get(version, [] { return std::wstring(L"2.8"); });
}

STDMETHODIMP ConnectionObject::Open(BSTR text, BSTR user, BSTR password, LONG options) noexcept {
  return Guard([&] {
    const std::wstring given = ToWide(text);
    if (given.empty()) {
      connection_.Open(ToWide(user), ToWide(password), options);
    } else {
      connection_.Open(given, ToWide(user), ToWide(password), options);
    }
  });
}
STDMETHODIMP ConnectionObject::Close() noexcept {
  return Guard([&] { connection_.Close(); });
}
STDMETHODIMP ConnectionObject::get_State(LONG* state) noexcept {
  return Get(state, [&] { return connection_.State(); });
}

STDMETHODIMP ConnectionObject::Execute(BSTR statement, VARIANT* affected, LONG options, _Recordset** rows) noexcept {
  if (rows != nullptr) *rows = nullptr;
  return Guard([&] {
    StoreExecution(connection_.Query(ToWide(statement), options), com_ptr<ConnectionObject>(this), options, affected,
                   rows);
  });
}
STDMETHODIMP ConnectionObject::BeginTrans(LONG* level) noexcept {
  return Guard([&] {
    const std::int32_t begun = connection_.BeginTrans();
    if (level != nullptr) *level = begun;
  });
}
STDMETHODIMP ConnectionObject::CommitTrans() noexcept {
  return Guard([&] { connection_.CommitTrans(); });
}
STDMETHODIMP ConnectionObject::RollbackTrans() noexcept {
  return Guard([&] { connection_.RollbackTrans(); });
}
STDMETHODIMP ConnectionObject::get_Errors(Errors** errors) noexcept {
  return Get(errors, [&] { return Make<ErrorsObject>(connection_.SharedSession()); });
}

STDMETHODIMP ConnectionObject::get_DefaultDatabase(BSTR* name) noexcept {
  return Get(name, [&] { return connection_.DefaultDatabase(); });
}
STDMETHODIMP ConnectionObject::put_DefaultDatabase(BSTR name) noexcept {
  return Guard([&] { connection_.SetDefaultDatabase(ToWide(name)); });
}
STDMETHODIMP ConnectionObject::get_IsolationLevel(IsolationLevelEnum* level) noexcept {
  return Get(level, [&] { return connection_.IsolationLevel(); });
}
STDMETHODIMP ConnectionObject::put_IsolationLevel(IsolationLevelEnum level) noexcept {
  return Guard([&] { connection_.SetIsolationLevel(level); });
}
STDMETHODIMP ConnectionObject::get_CursorLocation(CursorLocationEnum* location) noexcept {
  return Get(location, [&] { return connection_.CursorLocation(); });
}
STDMETHODIMP ConnectionObject::put_CursorLocation(CursorLocationEnum location) noexcept {
  return Guard([&] { connection_.SetCursorLocation(location); });
}
STDMETHODIMP ConnectionObject::get_Mode(ConnectModeEnum* mode) noexcept {
  return Get(mode, [&] { return connection_.Mode(); });
}
STDMETHODIMP ConnectionObject::put_Mode(ConnectModeEnum mode) noexcept {
  return Guard([&] { connection_.SetMode(mode); });
}
STDMETHODIMP ConnectionObject::get_Provider(BSTR* name) noexcept {
  return Get(name, [&] { return connection_.Provider(); });
}
STDMETHODIMP ConnectionObject::put_Provider(BSTR name) noexcept {
  return Guard([&] { connection_.SetProvider(ToWide(name)); });
}

std::optional<com_ptr<ConnectionObject>> ConnectionOf(const Argument& argument) {
  if (argument.IsMissing()) return std::nullopt;
  if (argument.IsText()) {
    auto connection = Make<ConnectionObject>();
    connection->Odbc().Open(argument.Text(), {}, {}, platform::ad::kUnspecified);
    return connection;
  }
  if (!argument.IsObject()) Raise(ControlError::kInvalidArgument, odbc::kConnectionSource);
  auto connection = OwnObjectOf<ConnectionObject>(argument.Object());
  if (!connection && argument.Object() != nullptr) Raise(ControlError::kInvalidArgument, odbc::kConnectionSource);
  return connection;
}

void StoreExecution(odbc::Execution execution, const com_ptr<ConnectionObject>& connection, LONG options,
                    VARIANT* affected, _Recordset** rows) {
  if (affected != nullptr) *affected = ToVariant(execution.recordsAffected);
  const bool wanted = options == platform::ad::kUnspecified || (options & platform::ad::kExecuteNoRecords) == 0;
  if (rows != nullptr && wanted) Store(rows, Make<RecordsetObject>(std::move(execution.recordset), connection));
}

}  // namespace kodra::adodb
