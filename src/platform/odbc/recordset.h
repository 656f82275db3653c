// ADO's Recordset over ODBC, and ADO's recordset without any database.
//
// Three kinds, told apart by how it is opened:
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
// Errors carry ADO's numbers: 3021 no current row, 3251 not updatable, 3265 unknown field, 3704 closed, 3705 open,
// 3709 no usable connection, 80040E21 a value that its field cannot hold, 80040E24 backwards on a stream.
// A failed Open leaves the recordset closed and ready for another.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/ado.h"
#include "platform/odbc/connection.h"
#include "platform/odbc/types.h"

namespace kodra::platform::odbc {

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
  // Of an open recordset, the type it got: client-side recordsets are always static.
  std::int32_t CursorType() const { return cursorType_; }
  void SetCursorType(std::int32_t type) override;
  std::int32_t LockType() const { return lockType_; }
  void SetLockType(std::int32_t type);
  std::int32_t CacheSize() const { return cacheSize_; }
  void SetCacheSize(std::int32_t rows) override;
  // Rows that Open fetches at most; 0 is no limit.
  std::int32_t MaxRecords() const { return maxRecords_; }
  void SetMaxRecords(std::int32_t rows);
  // The statement it is or will be opened on.
  std::wstring Source() const { return source_; }
  void SetSource(const std::wstring& statement);

  // A face of the connection in use; null when there is none.
  std::unique_ptr<Connection> ConnectionInUse() const;
  // On a closed recordset, what Open uses when its argument is left out. On an open client-side one only a null
  // connection is taken, which disconnects it; any other change raises 3705.
  void SetActiveConnection(const platform::ActiveConnection& connection);

  // Arguments left out (monostate, ad::kUnspecified) take the properties. A statement without rows leaves the
  // recordset closed and raises nothing.
  void Open(const RecordsetSource& source, const platform::ActiveConnection& connection, std::int32_t cursorType,
            std::int32_t lockType, std::int32_t options) override;
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
  std::int64_t RecordCount();
  // The 1-based number of the current row, or ad::kPosUnknown, ad::kPosBOF, ad::kPosEOF.
  std::int64_t AbsolutePosition();
  void SetAbsolutePosition(std::int64_t position);

  void AppendField(const std::wstring& name, std::int32_t type, std::int32_t definedSize,
                   std::int32_t attributes) override;
  std::int32_t FieldCount() const;
  const FieldInfo& FieldAt(std::int32_t index) const;
  // Without regard to letter case. An unknown name or index raises 3265 here and below.
  std::int32_t FieldIndex(const std::wstring& name) const;
  std::unique_ptr<Field> FieldByName(const std::wstring& name) override;
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
  bool IsUpdatable();

  // Up to `count` rows from the current one (negative: all that are left), each a vector in field order. Leaves the
  // recordset on the first row not given.
  std::vector<std::vector<Value>> GetRows(std::int64_t count);

 private:
  friend class Session;
  friend struct RecordsetOpener;

  void RequireOpen() const;
  void RequireClosed() const;
  void RequireUpdatable();
  // A move ends an edit under way, as Update does.
  void FinishEdit();
  void ConnectionClosed();

  std::shared_ptr<Session> session_;
  std::wstring source_;
  std::vector<Parameter> parameters_;
  bool sourceIsCommand_ = false;
  std::int32_t options_ = ad::kUnspecified;
  std::int32_t commandTimeout_ = 30;
  std::int32_t cursorLocation_ = ad::kUseServer;
  std::int32_t cursorType_ = ad::kOpenForwardOnly;
  std::int32_t lockType_ = ad::kLockReadOnly;
  std::int32_t cacheSize_ = 1;
  std::int32_t maxRecords_ = 0;
  bool appended_ = false;
  std::vector<FieldInfo> fields_;
  std::unique_ptr<Rows> rows_;
  MemoryRows* memory_ = nullptr;  // rows_ when it is in memory
};

}  // namespace kodra::platform::odbc
