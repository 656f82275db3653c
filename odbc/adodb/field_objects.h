// The fields of a recordset. Both objects keep their recordset alive; a field reads whatever row is current.
#pragma once

#include "odbc/adodb/collection_object.h"

namespace kodra::adodb {

class RecordsetObject;

// A position in its recordset: after a close it raises ADO's error of a closed object, after another open it is the
// field at the same position.
class FieldObject final : public DispatchObject<Field, Field20, _ADO> {
 public:
  FieldObject(com_ptr<RecordsetObject> recordset, std::int32_t index)
      : recordset_(std::move(recordset)), index_(index) {}

  STDMETHODIMP get_Properties(Properties** properties) noexcept override;
  STDMETHODIMP get_ActualSize(ADO_LONGPTR* size) noexcept override;
  STDMETHODIMP get_Attributes(LONG* attributes) noexcept override;
  STDMETHODIMP get_DefinedSize(ADO_LONGPTR* size) noexcept override;
  STDMETHODIMP get_Name(BSTR* name) noexcept override;
  STDMETHODIMP get_Type(DataTypeEnum* type) noexcept override;
  STDMETHODIMP get_Value(VARIANT* value) noexcept override;
  STDMETHODIMP put_Value(VARIANT value) noexcept override;
  STDMETHODIMP get_Precision(unsigned char* digits) noexcept override;
  STDMETHODIMP get_NumericScale(unsigned char* digits) noexcept override;

  // Not implemented: no client here uses these members.
  STDMETHODIMP AppendChunk(VARIANT) noexcept override { return NotImplemented(L"Field.AppendChunk"); }
  STDMETHODIMP GetChunk(LONG, VARIANT*) noexcept override { return NotImplemented(L"Field.GetChunk"); }
  STDMETHODIMP get_OriginalValue(VARIANT*) noexcept override { return NotImplemented(L"Field.OriginalValue"); }
  STDMETHODIMP get_UnderlyingValue(VARIANT*) noexcept override { return NotImplemented(L"Field.UnderlyingValue"); }
  STDMETHODIMP get_DataFormat(IUnknown**) noexcept override { return NotImplemented(L"Field.DataFormat"); }
  STDMETHODIMP putref_DataFormat(IUnknown*) noexcept override { return NotImplemented(L"Field.DataFormat"); }
  STDMETHODIMP put_Precision(unsigned char) noexcept override { return NotImplemented(L"Field.Precision"); }
  STDMETHODIMP put_NumericScale(unsigned char) noexcept override { return NotImplemented(L"Field.NumericScale"); }
  STDMETHODIMP put_Type(DataTypeEnum) noexcept override { return NotImplemented(L"Field.Type"); }
  STDMETHODIMP put_DefinedSize(ADO_LONGPTR) noexcept override { return NotImplemented(L"Field.DefinedSize"); }
  STDMETHODIMP put_Attributes(LONG) noexcept override { return NotImplemented(L"Field.Attributes"); }
  STDMETHODIMP get_Status(LONG*) noexcept override { return NotImplemented(L"Field.Status"); }

 private:
  com_ptr<RecordsetObject> recordset_;
  std::int32_t index_;
};

class FieldsObject final : public CollectionObject<Fields, Fields20, Fields15> {
 public:
  explicit FieldsObject(com_ptr<RecordsetObject> recordset) : recordset_(std::move(recordset)) {}

  STDMETHODIMP get_Item(VARIANT index, Field** field) noexcept override;
  STDMETHODIMP _Append(BSTR name, DataTypeEnum type, ADO_LONGPTR size, FieldAttributeEnum attributes) noexcept override;
  // A value is not implemented: rows do not exist yet.
  STDMETHODIMP Append(BSTR name, DataTypeEnum type, ADO_LONGPTR size, FieldAttributeEnum attributes,
                      VARIANT value) noexcept override;

  // Not implemented: no client here uses these members.
  STDMETHODIMP Delete(VARIANT) noexcept override { return NotImplemented(L"Fields.Delete"); }
  STDMETHODIMP Update() noexcept override { return NotImplemented(L"Fields.Update"); }
  STDMETHODIMP Resync(ResyncEnum) noexcept override { return NotImplemented(L"Fields.Resync"); }
  STDMETHODIMP CancelUpdate() noexcept override { return NotImplemented(L"Fields.CancelUpdate"); }

 protected:
  std::int32_t Size() override;
  com_ptr<IDispatch> Member(std::int32_t index) override;
  HRESULT PutItem(const VARIANT& index, const VARIANT& value) noexcept override;

 private:
  com_ptr<RecordsetObject> recordset_;
};

}  // namespace kodra::adodb
