// The fields of a recordset. Both objects keep their recordset alive; a field reads whatever row is current.
#pragma once

#include "odbc/adodb/collection_object.h"

namespace kodra::adodb {

class RecordsetObject;

// Stands for a position in its recordset: after a close it raises ADO's error of a closed object, after another open it
// is the field at the same position.
class FieldObject final : public DispatchObject<Field, Field20, _ADO> {
 public:
  FieldObject(com_ptr<RecordsetObject> recordset, std::int32_t index)
      : recordset_(std::move(recordset)), index_(index) {}

  HRESULT __stdcall get_Properties(Properties** properties) noexcept override;
  HRESULT __stdcall get_ActualSize(ADO_LONGPTR* size) noexcept override;
  HRESULT __stdcall get_Attributes(LONG* attributes) noexcept override;
  HRESULT __stdcall get_DefinedSize(ADO_LONGPTR* size) noexcept override;
  HRESULT __stdcall get_Name(BSTR* name) noexcept override;
  HRESULT __stdcall get_Type(DataTypeEnum* type) noexcept override;
  HRESULT __stdcall get_Value(VARIANT* value) noexcept override;
  HRESULT __stdcall put_Value(VARIANT value) noexcept override;
  HRESULT __stdcall get_Precision(unsigned char* digits) noexcept override;
  HRESULT __stdcall get_NumericScale(unsigned char* digits) noexcept override;

  // Not used by any client here.
  HRESULT __stdcall AppendChunk(VARIANT) noexcept override { return NotImplemented(L"Field.AppendChunk"); }
  HRESULT __stdcall GetChunk(LONG, VARIANT*) noexcept override { return NotImplemented(L"Field.GetChunk"); }
  HRESULT __stdcall get_OriginalValue(VARIANT*) noexcept override { return NotImplemented(L"Field.OriginalValue"); }
  HRESULT __stdcall get_UnderlyingValue(VARIANT*) noexcept override { return NotImplemented(L"Field.UnderlyingValue"); }
  HRESULT __stdcall get_DataFormat(IUnknown**) noexcept override { return NotImplemented(L"Field.DataFormat"); }
  HRESULT __stdcall putref_DataFormat(IUnknown*) noexcept override { return NotImplemented(L"Field.DataFormat"); }
  HRESULT __stdcall put_Precision(unsigned char) noexcept override { return NotImplemented(L"Field.Precision"); }
  HRESULT __stdcall put_NumericScale(unsigned char) noexcept override { return NotImplemented(L"Field.NumericScale"); }
  HRESULT __stdcall put_Type(DataTypeEnum) noexcept override { return NotImplemented(L"Field.Type"); }
  HRESULT __stdcall put_DefinedSize(ADO_LONGPTR) noexcept override { return NotImplemented(L"Field.DefinedSize"); }
  HRESULT __stdcall put_Attributes(LONG) noexcept override { return NotImplemented(L"Field.Attributes"); }
  HRESULT __stdcall get_Status(LONG*) noexcept override { return NotImplemented(L"Field.Status"); }

 private:
  com_ptr<RecordsetObject> recordset_;
  std::int32_t index_;
};

class FieldsObject final : public CollectionObject<Fields, Fields20, Fields15> {
 public:
  explicit FieldsObject(com_ptr<RecordsetObject> recordset) : recordset_(std::move(recordset)) {}

  HRESULT __stdcall get_Item(VARIANT index, Field** field) noexcept override;
  HRESULT __stdcall _Append(BSTR name, DataTypeEnum type, ADO_LONGPTR size,
                            FieldAttributeEnum attributes) noexcept override;
  // A value given is not implemented: rows do not exist yet.
  HRESULT __stdcall Append(BSTR name, DataTypeEnum type, ADO_LONGPTR size, FieldAttributeEnum attributes,
                           VARIANT value) noexcept override;

  // Not used by any client here.
  HRESULT __stdcall Delete(VARIANT) noexcept override { return NotImplemented(L"Fields.Delete"); }
  HRESULT __stdcall Update() noexcept override { return NotImplemented(L"Fields.Update"); }
  HRESULT __stdcall Resync(ResyncEnum) noexcept override { return NotImplemented(L"Fields.Resync"); }
  HRESULT __stdcall CancelUpdate() noexcept override { return NotImplemented(L"Fields.CancelUpdate"); }

 protected:
  std::int32_t Size() override;
  com_ptr<IDispatch> Member(std::int32_t index) override;
  HRESULT PutItem(const VARIANT& index, const VARIANT& value) noexcept override;

 private:
  com_ptr<RecordsetObject> recordset_;
};

}  // namespace kodra::adodb
