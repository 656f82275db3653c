// ADO's Connection over ODBC.
//
// A Connection is a face of a Session, which owns the ODBC handles, the properties and the collected errors. Commands
// and recordsets share the Session, so they keep working when the Connection object is destroyed; Close ends the
// Session's handles and with them every recordset that still streams from it.
//
//   Connection cn;
//   cn.SetConnectionString(L"Driver={SQLite3};Database=/tmp/arquivo.db");
//   cn.Open({}, {}, ad::kUnspecified);
//   auto [recordset, affected] = cn.Query(L"select DESCR from DEPTO", ad::kCmdText);
//
// Errors: 3704 for an operation that needs an open connection, 3705 for one that needs a closed connection, provider
// errors (source "Microsoft OLE DB Provider for ODBC Drivers") for what the driver refuses; Errors() contains those
// too.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "odbc/engine/types.h"
#include "platform/ado.h"

namespace kodra::odbc {

class Recordset;
class Session;

// The result of a statement: a recordset, closed when the statement has no rows, and how many rows it changed (-1 when
// the driver does not say).
struct Execution {
  std::unique_ptr<Recordset> recordset;
  std::int64_t recordsAffected = -1;
};

class Connection : public platform::Connection {
 public:
  Connection();
  // Another face of an existing session.
  explicit Connection(std::shared_ptr<Session> session);
  // Closes the session's handles unless a command or recordset still shares them.
  ~Connection() override;

  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  std::wstring ConnectionString() override;
  void SetConnectionString(const std::wstring& text) override;
  std::int32_t CursorLocation() const;
  void SetCursorLocation(std::int32_t location) override;
  std::int32_t IsolationLevel() const;
  // Takes effect at once on an open connection, at Open on a closed one; a driver that has no such level keeps its own.
  void SetIsolationLevel(std::int32_t level) override;
  // Seconds; 0 waits for ever.
  std::int32_t ConnectionTimeout() const;
  void SetConnectionTimeout(std::int32_t seconds);
  std::int32_t CommandTimeout() const;
  void SetCommandTimeout(std::int32_t seconds);
  // "MSDASQL" by default; it names the provider and changes nothing else.
  std::wstring Provider() const;
  void SetProvider(const std::wstring& name);
  // For a closed connection, the name that was set; for an open one, the driver's current catalog.
  std::wstring DefaultDatabase();
  void SetDefaultDatabase(const std::wstring& name);
  std::int32_t Mode() const;
  void SetMode(std::int32_t mode);

  // An empty user or password keeps that of the connection string.
  void Open(const std::wstring& user, const std::wstring& password, std::int32_t options) override;
  // Opens with a connection string passed in the call, which replaces the property.
  void Open(const std::wstring& connectionString, const std::wstring& user, const std::wstring& password,
            std::int32_t options);
  void Close();
  std::int32_t State() override;

  void Execute(const std::wstring& statement, std::int32_t options) override;
  // Runs a statement and returns its rows: read whole when CursorLocation is ad::kUseClient, otherwise streamed
  // forward-only.
  Execution Query(const std::wstring& statement, std::int32_t options);

  // BeginTrans returns the nesting level, always 1: transactions do not nest.
  std::int32_t BeginTrans();
  void CommitTrans();
  void RollbackTrans();

  std::int32_t ErrorCount() override;
  std::int32_t NativeError(std::int32_t index) override;
  const std::vector<ProviderError>& Errors() const;
  void ClearErrors();

  const std::shared_ptr<Session>& SharedSession() const { return session_; }

 private:
  std::shared_ptr<Session> session_;
};

}  // namespace kodra::odbc
