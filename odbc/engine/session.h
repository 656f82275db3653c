// One ODBC connection with ADO's properties around it, shared by a Connection and everything opened on it.
//
// Owns the connection handle and the collected provider errors. Used on one thread. Statements on it must be destroyed
// before Close: it tells the recordsets that still stream to release theirs.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "odbc/engine/errors.h"
#include "odbc/engine/odbc_api.h"
#include "odbc/engine/types.h"

namespace kodra::odbc {

namespace ad = platform::ad;

class Recordset;

struct ConnectionProperties {
  std::wstring connectionString;
  std::wstring provider = L"MSDASQL";
  std::wstring defaultDatabase;
  std::int32_t cursorLocation = ad::kUseServer;
  std::int32_t isolationLevel = ad::kXactReadCommitted;
  std::int32_t connectionTimeout = 15;
  std::int32_t commandTimeout = ad::kDefaultTimeout;
  std::int32_t mode = 0;
};

class Session {
 public:
  Session() = default;
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  ConnectionProperties& Properties() { return properties_; }

  // REQUIRES: closed. A failure raises the driver's error and leaves the session closed.
  void Open(const std::wstring& user, const std::wstring& password);
  // Closes the recordsets that need the connection, ends a transaction by rolling it back, and disconnects.
  void Close() noexcept;
  bool IsOpen() const { return handle_ != nullptr; }
  SQLHDBC Handle() const { return handle_; }
  // See driver_quirks.h.
  bool TypesVaryByRow() const { return typesVaryByRow_; }
  bool TextIsUtf8() const { return textIsUtf8_; }
  bool CanBeCancelled() const { return canBeCancelled_; }
  std::wstring CurrentDatabase();
  void SetCurrentDatabase(const std::wstring& name);

  // Passes the isolation level to the driver when it is open; a driver without that level keeps its own.
  void ApplyIsolationLevel() noexcept;
  void BeginTransaction();
  void EndTransaction(bool commit);
  bool InTransaction() const { return inTransaction_; }

  // Recordsets that Close must close.
  void Join(Recordset* recordset);
  void Leave(Recordset* recordset) noexcept;

  std::vector<ProviderError>& Errors() { return errors_; }
  // Replaces Errors() by the diagnostics of a handle and raises the first that is an error.
  [[noreturn]] void Fail(SQLSMALLINT handleType, SQLHANDLE handle, Stage stage);

 private:
  ConnectionProperties properties_;
  SQLHDBC handle_ = nullptr;
  bool typesVaryByRow_ = false;
  bool textIsUtf8_ = false;
  bool canBeCancelled_ = false;
  bool inTransaction_ = false;
  std::vector<Recordset*> recordsets_;
  std::vector<ProviderError> errors_;
};

}  // namespace kodra::odbc
