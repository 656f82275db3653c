// The part of ADO that the component uses: a connection, a command, a recordset and its fields.
//
// The methods have ADO's names, argument order and numeric constants: each call here is one call of ADO. Each method
// raises Erro with the error that ADO or the provider raised. Objects are used on the thread that made them.
// A recordset keeps what it needs of its connection alive: the Connection object may be destroyed after Open.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "values/value.h"

namespace kodra::platform {

// ADO's constants, by ADO's names (adCmdText is ad::kCmdText). kUnspecified means that the argument is left out.
namespace ad {
inline constexpr std::int32_t kUnspecified = -1;
inline constexpr std::int32_t kUseServer = 2;
inline constexpr std::int32_t kUseClient = 3;
inline constexpr std::int32_t kXactReadCommitted = 4096;
inline constexpr std::int32_t kStateClosed = 0;
inline constexpr std::int32_t kStateOpen = 1;
inline constexpr std::int32_t kOpenForwardOnly = 0;
inline constexpr std::int32_t kOpenDynamic = 2;
inline constexpr std::int32_t kOpenStatic = 3;
inline constexpr std::int32_t kLockReadOnly = 1;
inline constexpr std::int32_t kCmdText = 1;
inline constexpr std::int32_t kParamInput = 1;
inline constexpr std::int32_t kBoolean = 11;
inline constexpr std::int32_t kDBDate = 133;
inline constexpr std::int32_t kDBTimeStamp = 135;
inline constexpr std::int32_t kVarChar = 200;
}  // namespace ad

class Connection {
 public:
  virtual ~Connection() = default;

  virtual std::wstring ConnectionString() = 0;
  virtual void SetConnectionString(const std::wstring& text) = 0;
  virtual void SetCursorLocation(std::int32_t location) = 0;
  virtual void SetIsolationLevel(std::int32_t level) = 0;
  virtual void Open(const std::wstring& user, const std::wstring& password, std::int32_t options) = 0;
  // ad::kStateClosed or ad::kStateOpen.
  virtual std::int32_t State() = 0;
  // Runs a statement and discards its result, if any.
  virtual void Execute(const std::wstring& statement, std::int32_t options) = 0;
  // The number of provider errors of the last failing operation; 0 when the provider has no such collection.
  virtual std::int32_t ErrorCount() = 0;
  // The native code of a provider error. REQUIRES: 0 <= index < ErrorCount().
  virtual std::int32_t NativeError(std::int32_t index) = 0;
};

class Command {
 public:
  virtual ~Command() = default;

  // Null detaches the command from its connection.
  virtual void SetActiveConnection(Connection* connection) = 0;
  virtual bool HasActiveConnection() = 0;
  virtual void SetCommandText(std::wstring_view text) = 0;
  virtual void SetCommandType(std::int32_t type) = 0;
  // CreateParameter and Parameters.Append in one. The size is in characters.
  virtual void AppendParameter(const std::wstring& name, std::int32_t type, std::int32_t direction, std::int32_t size,
                               const Value& value) = 0;
};

// An open connection that the client owns: early-bound for our recordsets, and as the object that siblings get.
struct ClientConnection {
  std::shared_ptr<Connection> connection;
  ObjectRef object;

  explicit operator bool() const { return connection != nullptr; }
};

// A field of an open recordset, looked up once and read or written on whatever row is current.
class Field {
 public:
  virtual ~Field() = default;
  virtual Value Get() = 0;
  virtual void Let(const Value& value) = 0;
  // The field as an automation object, whose member Value is the value on the current row. It may be used as long as
  // the field is. By default it reads and writes this field.
  virtual ObjectRef AsObject();
};

// A column of an open recordset.
struct Column {
  std::wstring name;
  std::int32_t type;  // ADO's DataTypeEnum
  std::unique_ptr<Field> field;
};

// The source of a recordset: none (left out), an SQL text, which is read before the call returns, or a command.
using RecordsetSource = std::variant<std::monostate, std::wstring_view, Command*>;
// The connection of a recordset: none (left out), a connection object (null is "Nothing"), or a connection string.
using ActiveConnection = std::variant<std::monostate, Connection*, std::wstring>;

class Recordset {
 public:
  virtual ~Recordset() = default;

  virtual void SetCursorLocation(std::int32_t location) = 0;
  virtual void SetCursorType(std::int32_t type) = 0;
  virtual void SetCacheSize(std::int32_t rows) = 0;
  virtual void Open(const RecordsetSource& source, const ActiveConnection& connection, std::int32_t cursorType,
                    std::int32_t lockType, std::int32_t options) = 0;
  virtual void Close() = 0;
  virtual std::int32_t State() = 0;

  virtual bool Eof() = 0;
  virtual void MoveFirst() = 0;
  virtual void MoveNext() = 0;
  // The number of rows; -1 while it is unknown, as on a stream.
  virtual std::int64_t RecordCount() = 0;

  // Defines a field of a recordset that is filled in memory. REQUIRES: not open. The size is in characters.
  virtual void AppendField(const std::wstring& name, std::int32_t type, std::int32_t definedSize,
                           std::int32_t attributes) = 0;
  // In the order of the recordset. Fields stay usable as long as the recordset is open and not destroyed.
  virtual std::vector<Column> Columns() = 0;
  virtual std::unique_ptr<Field> FieldByName(const std::wstring& name) = 0;
  virtual void AddNew() = 0;
  virtual void Update() = 0;
};

}  // namespace kodra::platform
