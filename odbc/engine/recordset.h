// ADO's Recordset over ODBC, and ADO's recordset without any database.
//
// There are three kinds, depending on how it is opened:
//   streaming      server-side and forward-only: rows come from the driver in blocks of CacheSize, memory is constant
//   read whole     client-side, or any other cursor type: every row is fetched by Open. A client-side one survives its
//                  connection; a server-side one is closed with it
//   disconnected   AppendField while closed, then Open with everything left out: rows live in memory and can be edited
//
//   Recordset rs;
//   rs.AppendField(L"NOME", ad::kVarChar, 40, ad::kUnspecified);
//   rs.Open({}, {}, ad::kUnspecified, ad::kUnspecified, ad::kUnspecified);
//   rs.AddNew();
//   rs.SetFieldValue(0, L"José");
//   rs.Update();
//   rs.MoveFirst();
//
// Errors have ADO's numbers: 3021 no current row, 3251 not updatable, 3265 unknown field, 3704 closed, 3705 open, 3709
// no usable connection, 80040E21 a value that its field cannot hold, 80040E24 backwards on a stream. A failed Open
// leaves the recordset closed and ready for another.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "odbc/engine/connection.h"
#include "odbc/engine/types.h"
#include "platform/ado.h"

namespace kodra::odbc {

namespace ad = platform::ad;

class Command;
class Rows;
class MemoryRows;

class Recordset : public platform::Recordset {
 public:
  Recordset();
  ~Recordset() override;

  Recordset(const Recordset&) = delete;
  Recordset& operator=(const Recordset&) = delete;

  // Properties. All but CacheSize raise 3705 when set on an open recordset.
  std::int32_t CursorLocation() const { return cursorLocation_; }
  void SetCursorLocation(std::int32_t location) override;
  // For an open recordset, the type that it got: client-side recordsets are always static.
  std::int32_t CursorType() const { return cursorType_; }
  void SetCursorType(std::int32_t type) override;
  std::int32_t LockType() const { return lockType_; }
  void SetLockType(std::int32_t type);
  std::int32_t CacheSize() const { return cacheSize_; }
  void SetCacheSize(std::int32_t rows) override;
  // The largest number of rows that Open fetches; 0 is no limit.
  std::int32_t MaxRecords() const { return maxRecords_; }
  void SetMaxRecords(std::int32_t rows);
  // The statement it is or will be opened on.
  std::wstring Source() const { return source_; }
  void SetSource(const std::wstring& statement);

  // A face of the connection in use; null when there is none.
  std::unique_ptr<Connection> ConnectionInUse() const;
  // On a closed recordset, sets what Open uses when its argument is left out. An open client-side one accepts only a
  // null connection, which disconnects it; any other change raises 3705.
  void SetActiveConnection(const platform::ActiveConnection& connection);

  // Arguments left out (monostate, ad::kUnspecified) take their values from the properties. A statement without rows
  // leaves the recordset closed and raises nothing.
  void Open(const platform::RecordsetSource& source, const platform::ActiveConnection& connection,
            std::int32_t cursorType, std::int32_t lockType, std::int32_t options) override;
  void Close() override;
  // Runs the source again, positioned on its first row.
  void Requery();
  std::int32_t State() override;

  bool Bof();
  bool Eof() override;
  void MoveFirst() override;
  void MoveNext() override;
  void MovePrevious();
  void MoveLast();
  // Moves `count` rows from the current one, stopping beyond the first or last.
  void Move(std::int64_t count);
  // -1 while the number is not known, as on a stream.
  std::int64_t RecordCount() override;
  // The 1-based number of the current row, or ad::kPosUnknown, ad::kPosBOF, ad::kPosEOF.
  std::int64_t AbsolutePosition();
  void SetAbsolutePosition(std::int64_t position);

  void AppendField(const std::wstring& name, std::int32_t type, std::int32_t definedSize,
                   std::int32_t attributes) override;
  std::int32_t FieldCount() const;
  const FieldInfo& FieldAt(std::int32_t index) const;
  std::vector<platform::Column> Columns() override;
  // Without regard to letter case. An unknown name or index raises 3265 here and below.
  std::int32_t FieldIndex(const std::wstring& name) const;
  std::unique_ptr<platform::Field> FieldByName(const std::wstring& name) override;
  Value FieldValue(std::int32_t index);
  // Starts an edit of the current row when none is under way.
  void SetFieldValue(std::int32_t index, const Value& value);
  // The length of the current value: characters of text, bytes of everything else, 0 of a null.
  std::int64_t FieldActualSize(std::int32_t index);

  void AddNew() override;
  void Update() override;
  void CancelUpdate();
  void Delete();
  // ad::kEditNone, ad::kEditInProgress or ad::kEditAdd.
  std::int32_t EditMode();
  bool IsUpdatable() const;

  // Up to `count` rows from the current one (negative: all that are left), each a vector in field order. Leaves the
  // recordset on the first row that was not returned.
  std::vector<std::vector<Value>> GetRows(std::int64_t count);

 private:
  friend class Session;
  friend class Connection;
  friend class Command;

  // The source of a recordset.
  struct Query {
    std::wstring statement;
    std::vector<Parameter> parameters;
    bool isCommand = false;
    std::int32_t timeout = ad::kDefaultTimeout;  // seconds
    bool withoutRows = false;                    // rows, if any, are discarded
  };

  // Runs a query for Execute: a forward-only recordset, or a static one when the session's cursors are client-side.
  static Execution Run(const std::shared_ptr<Session>& session, const Query& query);

  void RequireOpen(std::wstring_view source) const;
  void RequireClosed() const;
  void RequireUpdatable() const;
  void RequireRow(std::wstring_view source) const;
  std::size_t Column(std::int32_t index) const;
  // The session that an Open or a property names; null for "Nothing" or an argument left out.
  static std::shared_ptr<Session> SessionOf(const platform::ActiveConnection& connection);
  static Query QueryOf(const Command& command, std::int32_t options);
  // With the timeout of the session.
  Query QueryOf(const std::wstring& text, std::int32_t options) const;
  void OpenCursor(std::int32_t cursorType, std::int32_t lockType);
  // Runs query_ on session_; returns the rows affected.
  std::int64_t OpenRows();
  void OpenInMemory();
  // A move ends an edit under way, as Update does.
  void FinishEdit();
  void DropRows() noexcept;
  void ConnectionClosed() noexcept;

  std::shared_ptr<Session> session_;
  Query query_;
  std::wstring source_;
  std::int32_t cursorLocation_ = ad::kUseServer;
  bool cursorLocationSet_ = false;
  std::int32_t cursorType_ = ad::kOpenForwardOnly;
  std::int32_t lockType_ = ad::kLockReadOnly;
  std::int32_t cacheSize_ = 1;
  std::int32_t maxRecords_ = 0;
  bool appended_ = false;  // fields_ were appended, not described by a driver
  std::vector<FieldInfo> fields_;
  std::unique_ptr<Rows> rows_;    // null while closed
  MemoryRows* memory_ = nullptr;  // rows_, when they are in memory
};

}  // namespace kodra::odbc
