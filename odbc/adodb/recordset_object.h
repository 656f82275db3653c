// ADODB.Recordset: the ODBC recordset behind ADO's interface. Holds the connection and the command it was opened on.
#pragma once

#include <memory>
#include <vector>

#include "odbc/adodb/arguments.h"
#include "odbc/adodb/command_object.h"
#include "odbc/adodb/connection_object.h"
#include "odbc/adodb/recordset_absent.h"
#include "odbc/engine/recordset.h"

namespace kodra::adodb {

class RecordsetObject final : public RecordsetAbsent {
 public:
  RecordsetObject() : recordset_(std::make_unique<odbc::Recordset>()) {}
  // Takes over what a statement gave.
  RecordsetObject(std::unique_ptr<odbc::Recordset> recordset, com_ptr<ConnectionObject> connection)
      : recordset_(std::move(recordset)), connection_(std::move(connection)) {}

  odbc::Recordset& Odbc() noexcept { return *recordset_; }
  // The position of the field named by a name or number; an unknown one raises ControlError::kItemNotFound.
  std::int32_t FieldIndex(const Argument& index);

  HRESULT __stdcall get_Properties(Properties** properties) noexcept override;
  // Nothing when there is none.
  HRESULT __stdcall get_ActiveConnection(VARIANT* connection) noexcept override;
  HRESULT __stdcall putref_ActiveConnection(IDispatch* connection) noexcept override;
  HRESULT __stdcall put_ActiveConnection(VARIANT connection) noexcept override;
  // The statement, or the command.
  HRESULT __stdcall get_Source(VARIANT* source) noexcept override;
  HRESULT __stdcall putref_Source(IDispatch* source) noexcept override;
  HRESULT __stdcall put_Source(BSTR source) noexcept override;
  HRESULT __stdcall get_CursorLocation(CursorLocationEnum* location) noexcept override;
  HRESULT __stdcall put_CursorLocation(CursorLocationEnum location) noexcept override;
  HRESULT __stdcall get_CursorType(CursorTypeEnum* type) noexcept override;
  HRESULT __stdcall put_CursorType(CursorTypeEnum type) noexcept override;
  HRESULT __stdcall get_LockType(LockTypeEnum* type) noexcept override;
  HRESULT __stdcall put_LockType(LockTypeEnum type) noexcept override;
  HRESULT __stdcall get_CacheSize(LONG* rows) noexcept override;
  HRESULT __stdcall put_CacheSize(LONG rows) noexcept override;
  HRESULT __stdcall get_MaxRecords(ADO_LONGPTR* rows) noexcept override;
  HRESULT __stdcall put_MaxRecords(ADO_LONGPTR rows) noexcept override;

  HRESULT __stdcall Open(VARIANT source, VARIANT connection, CursorTypeEnum cursorType, LockTypeEnum lockType,
                         LONG options) noexcept override;
  HRESULT __stdcall Requery(LONG options) noexcept override;
  HRESULT __stdcall Close() noexcept override;
  HRESULT __stdcall get_State(LONG* state) noexcept override;
  HRESULT __stdcall Supports(CursorOptionEnum options, VARIANT_BOOL* supported) noexcept override;

  HRESULT __stdcall get_BOF(VARIANT_BOOL* atStart) noexcept override;
  HRESULT __stdcall get_EOF(VARIANT_BOOL* atEnd) noexcept override;
  HRESULT __stdcall MoveFirst() noexcept override;
  HRESULT __stdcall MoveNext() noexcept override;
  HRESULT __stdcall MovePrevious() noexcept override;
  HRESULT __stdcall MoveLast() noexcept override;
  // A start given is not implemented: there are no bookmarks.
  HRESULT __stdcall Move(ADO_LONGPTR count, VARIANT start) noexcept override;
  HRESULT __stdcall get_RecordCount(ADO_LONGPTR* count) noexcept override;
  HRESULT __stdcall get_AbsolutePosition(PositionEnum_Param* position) noexcept override;
  HRESULT __stdcall put_AbsolutePosition(PositionEnum_Param position) noexcept override;

  HRESULT __stdcall get_Fields(Fields** fields) noexcept override;
  HRESULT __stdcall get_Collect(VARIANT index, VARIANT* value) noexcept override;
  HRESULT __stdcall put_Collect(VARIANT index, VARIANT value) noexcept override;
  // An array of two dimensions, fields by rows. A start given is not implemented.
  HRESULT __stdcall GetRows(LONG count, VARIANT start, VARIANT fields, VARIANT* rows) noexcept override;

  // Fields and values, when given, are one of each or arrays of the same length; the row is then updated at once.
  HRESULT __stdcall AddNew(VARIANT fields, VARIANT values) noexcept override;
  HRESULT __stdcall Update(VARIANT fields, VARIANT values) noexcept override;
  HRESULT __stdcall CancelUpdate() noexcept override;
  // Only the current row.
  HRESULT __stdcall Delete(AffectEnum rows) noexcept override;
  HRESULT __stdcall get_EditMode(EditModeEnum* mode) noexcept override;

 protected:
  HRESULT GetItem(const VARIANT& index, com_ptr<IDispatch>& field) noexcept override;
  HRESULT PutItem(const VARIANT& index, const VARIANT& value) noexcept override { return put_Collect(index, value); }

 private:
  void Use(const Argument& connection);
  void SetFields(const Argument& fields, const Argument& values);

  std::unique_ptr<odbc::Recordset> recordset_;
  com_ptr<ConnectionObject> connection_;
  com_ptr<CommandObject> command_;
};

}  // namespace kodra::adodb
