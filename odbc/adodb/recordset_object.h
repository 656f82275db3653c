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
  // Takes over the recordset of a statement.
  RecordsetObject(std::unique_ptr<odbc::Recordset> recordset, com_ptr<ConnectionObject> connection)
      : recordset_(std::move(recordset)), connection_(std::move(connection)) {}

  odbc::Recordset& Odbc() noexcept { return *recordset_; }
  // The position of the field named by a name or number; an unknown one raises ControlError::kItemNotFound.
  std::int32_t FieldIndex(const Argument& index);

  STDMETHODIMP get_Properties(Properties** properties) noexcept override;
  // Nothing when there is none.
  STDMETHODIMP get_ActiveConnection(VARIANT* connection) noexcept override;
  STDMETHODIMP putref_ActiveConnection(IDispatch* connection) noexcept override;
  STDMETHODIMP put_ActiveConnection(VARIANT connection) noexcept override;
  // The statement, or the command.
  STDMETHODIMP get_Source(VARIANT* source) noexcept override;
  STDMETHODIMP putref_Source(IDispatch* source) noexcept override;
  STDMETHODIMP put_Source(BSTR source) noexcept override;
  STDMETHODIMP get_CursorLocation(CursorLocationEnum* location) noexcept override;
  STDMETHODIMP put_CursorLocation(CursorLocationEnum location) noexcept override;
  STDMETHODIMP get_CursorType(CursorTypeEnum* type) noexcept override;
  STDMETHODIMP put_CursorType(CursorTypeEnum type) noexcept override;
  STDMETHODIMP get_LockType(LockTypeEnum* type) noexcept override;
  STDMETHODIMP put_LockType(LockTypeEnum type) noexcept override;
  STDMETHODIMP get_CacheSize(LONG* rows) noexcept override;
  STDMETHODIMP put_CacheSize(LONG rows) noexcept override;
  STDMETHODIMP get_MaxRecords(ADO_LONGPTR* rows) noexcept override;
  STDMETHODIMP put_MaxRecords(ADO_LONGPTR rows) noexcept override;

  STDMETHODIMP Open(VARIANT source, VARIANT connection, CursorTypeEnum cursorType, LockTypeEnum lockType,
                    LONG options) noexcept override;
  STDMETHODIMP Requery(LONG options) noexcept override;
  STDMETHODIMP Close() noexcept override;
  STDMETHODIMP get_State(LONG* state) noexcept override;
  STDMETHODIMP Supports(CursorOptionEnum options, VARIANT_BOOL* supported) noexcept override;

  STDMETHODIMP get_BOF(VARIANT_BOOL* atStart) noexcept override;
  STDMETHODIMP get_EOF(VARIANT_BOOL* atEnd) noexcept override;
  STDMETHODIMP MoveFirst() noexcept override;
  STDMETHODIMP MoveNext() noexcept override;
  STDMETHODIMP MovePrevious() noexcept override;
  STDMETHODIMP MoveLast() noexcept override;
  // A start is not implemented: there are no bookmarks.
  STDMETHODIMP Move(ADO_LONGPTR count, VARIANT start) noexcept override;
  STDMETHODIMP get_RecordCount(ADO_LONGPTR* count) noexcept override;
  STDMETHODIMP get_AbsolutePosition(PositionEnum_Param* position) noexcept override;
  STDMETHODIMP put_AbsolutePosition(PositionEnum_Param position) noexcept override;

  STDMETHODIMP get_Fields(Fields** fields) noexcept override;
  STDMETHODIMP get_Collect(VARIANT index, VARIANT* value) noexcept override;
  STDMETHODIMP put_Collect(VARIANT index, VARIANT value) noexcept override;
  // An array of two dimensions, fields by rows. A start is not implemented.
  STDMETHODIMP GetRows(LONG count, VARIANT start, VARIANT fields, VARIANT* rows) noexcept override;

  // Fields and values are left out, one of each, or arrays of the same length. With them the row is updated at once.
  STDMETHODIMP AddNew(VARIANT fields, VARIANT values) noexcept override;
  STDMETHODIMP Update(VARIANT fields, VARIANT values) noexcept override;
  STDMETHODIMP CancelUpdate() noexcept override;
  // Only the current row.
  STDMETHODIMP Delete(AffectEnum rows) noexcept override;
  STDMETHODIMP get_EditMode(EditModeEnum* mode) noexcept override;

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
