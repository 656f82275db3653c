#include "odbc/adodb/field_objects.h"

#include "odbc/adodb/properties_object.h"
#include "odbc/adodb/recordset_object.h"

namespace kodra::adodb {

STDMETHODIMP FieldObject::get_Properties(Properties** properties) noexcept {
  return Get(properties, [] { return Make<PropertiesObject>(); });
}
STDMETHODIMP FieldObject::get_ActualSize(ADO_LONGPTR* size) noexcept {
  return Get(size, [&] { return recordset_->Odbc().FieldActualSize(index_); });
}
STDMETHODIMP FieldObject::get_Attributes(LONG* attributes) noexcept {
  return Get(attributes, [&] { return recordset_->Odbc().FieldAt(index_).attributes; });
}
STDMETHODIMP FieldObject::get_DefinedSize(ADO_LONGPTR* size) noexcept {
  return Get(size, [&] { return recordset_->Odbc().FieldAt(index_).definedSize; });
}
STDMETHODIMP FieldObject::get_Name(BSTR* name) noexcept {
  return Get(name, [&] { return recordset_->Odbc().FieldAt(index_).name; });
}
STDMETHODIMP FieldObject::get_Type(DataTypeEnum* type) noexcept {
  return Get(type, [&] { return recordset_->Odbc().FieldAt(index_).type; });
}
STDMETHODIMP FieldObject::get_Value(VARIANT* value) noexcept {
  return Get(value, [&] { return recordset_->Odbc().FieldValue(index_); });
}
STDMETHODIMP FieldObject::put_Value(VARIANT value) noexcept {
  return Guard([&] { recordset_->Odbc().SetFieldValue(index_, Argument(value).AsValue()); });
}
STDMETHODIMP FieldObject::get_Precision(unsigned char* digits) noexcept {
  return Get(digits, [&] { return recordset_->Odbc().FieldAt(index_).precision; });
}
STDMETHODIMP FieldObject::get_NumericScale(unsigned char* digits) noexcept {
  return Get(digits, [&] { return recordset_->Odbc().FieldAt(index_).numericScale; });
}

STDMETHODIMP FieldsObject::get_Item(VARIANT index, Field** field) noexcept {
  return Get(field, [&] { return Make<FieldObject>(recordset_, recordset_->FieldIndex(Argument(index))); });
}
STDMETHODIMP FieldsObject::_Append(BSTR name, DataTypeEnum type, ADO_LONGPTR size,
                                   FieldAttributeEnum attributes) noexcept {
  return Guard([&] { recordset_->Odbc().AppendField(comkit::ToWide(name), type, size, attributes); });
}
STDMETHODIMP FieldsObject::Append(BSTR name, DataTypeEnum type, ADO_LONGPTR size, FieldAttributeEnum attributes,
                                  VARIANT value) noexcept {
  return Guard([&] {
    if (!Argument(value).IsMissing()) RaiseNotImplemented(L"Fields.Append with a value");
    recordset_->Odbc().AppendField(comkit::ToWide(name), type, size, attributes);
  });
}

std::int32_t FieldsObject::Size() { return recordset_->Odbc().FieldCount(); }

com_ptr<IDispatch> FieldsObject::Member(std::int32_t index) {
  return com_ptr<IDispatch>(Make<FieldObject>(recordset_, index).get());
}

HRESULT FieldsObject::PutItem(const VARIANT& index, const VARIANT& value) noexcept {
  return recordset_->put_Collect(index, value);
}

}  // namespace kodra::adodb
