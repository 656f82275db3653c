// The members of ADO's recordset that no client here uses: bookmarks, pages, filters, batches, clones, persistence.
// Each returns E_NOTIMPL with an IErrorInfo that names it.
#pragma once

#include <string>

#include "odbc/adodb/dispatch_object.h"

namespace kodra::adodb {

class RecordsetAbsent : public DispatchObject<_Recordset, Recordset21, Recordset20, Recordset15, _ADO> {
 public:
  STDMETHODIMP get_Bookmark(VARIANT*) noexcept override { return Absent(L"Bookmark"); }
  STDMETHODIMP put_Bookmark(VARIANT) noexcept override { return Absent(L"Bookmark"); }
  STDMETHODIMP CompareBookmarks(VARIANT, VARIANT, CompareEnum*) noexcept override {
    return Absent(L"CompareBookmarks");
  }

  STDMETHODIMP get_AbsolutePage(PositionEnum_Param*) noexcept override { return Absent(L"AbsolutePage"); }
  STDMETHODIMP put_AbsolutePage(PositionEnum_Param) noexcept override { return Absent(L"AbsolutePage"); }
  STDMETHODIMP get_PageCount(ADO_LONGPTR*) noexcept override { return Absent(L"PageCount"); }
  STDMETHODIMP get_PageSize(LONG*) noexcept override { return Absent(L"PageSize"); }
  STDMETHODIMP put_PageSize(LONG) noexcept override { return Absent(L"PageSize"); }

  STDMETHODIMP get_Filter(VARIANT*) noexcept override { return Absent(L"Filter"); }
  STDMETHODIMP put_Filter(VARIANT) noexcept override { return Absent(L"Filter"); }
  STDMETHODIMP get_Sort(BSTR*) noexcept override { return Absent(L"Sort"); }
  STDMETHODIMP put_Sort(BSTR) noexcept override { return Absent(L"Sort"); }
  STDMETHODIMP get_Index(BSTR*) noexcept override { return Absent(L"Index"); }
  STDMETHODIMP put_Index(BSTR) noexcept override { return Absent(L"Index"); }
  STDMETHODIMP Find(BSTR, LONG, SearchDirectionEnum, VARIANT) noexcept override { return Absent(L"Find"); }
  STDMETHODIMP Seek(VARIANT, SeekEnum) noexcept override { return Absent(L"Seek"); }

  STDMETHODIMP get_Status(LONG*) noexcept override { return Absent(L"Status"); }
  STDMETHODIMP UpdateBatch(AffectEnum) noexcept override { return Absent(L"UpdateBatch"); }
  STDMETHODIMP CancelBatch(AffectEnum) noexcept override { return Absent(L"CancelBatch"); }
  STDMETHODIMP Resync(AffectEnum, ResyncEnum) noexcept override { return Absent(L"Resync"); }
  STDMETHODIMP _xResync(AffectEnum) noexcept override { return Absent(L"Resync"); }
  STDMETHODIMP get_MarshalOptions(MarshalOptionsEnum*) noexcept override { return Absent(L"MarshalOptions"); }
  STDMETHODIMP put_MarshalOptions(MarshalOptionsEnum) noexcept override { return Absent(L"MarshalOptions"); }

  STDMETHODIMP Clone(LockTypeEnum, _Recordset**) noexcept override { return Absent(L"Clone"); }
  STDMETHODIMP _xClone(_Recordset**) noexcept override { return Absent(L"Clone"); }
  STDMETHODIMP NextRecordset(VARIANT*, _Recordset**) noexcept override { return Absent(L"NextRecordset"); }
  STDMETHODIMP Cancel() noexcept override { return Absent(L"Cancel"); }
  STDMETHODIMP Save(VARIANT, PersistFormatEnum) noexcept override { return Absent(L"Save"); }
  STDMETHODIMP _xSave(BSTR, PersistFormatEnum) noexcept override { return Absent(L"Save"); }
  STDMETHODIMP GetString(StringFormatEnum, LONG, BSTR, BSTR, BSTR, BSTR*) noexcept override {
    return Absent(L"GetString");
  }

  STDMETHODIMP get_ActiveCommand(IDispatch**) noexcept override { return Absent(L"ActiveCommand"); }
  STDMETHODIMP get_DataSource(IUnknown**) noexcept override { return Absent(L"DataSource"); }
  STDMETHODIMP putref_DataSource(IUnknown*) noexcept override { return Absent(L"DataSource"); }
  STDMETHODIMP get_DataMember(BSTR*) noexcept override { return Absent(L"DataMember"); }
  STDMETHODIMP put_DataMember(BSTR) noexcept override { return Absent(L"DataMember"); }
  STDMETHODIMP get_StayInSync(VARIANT_BOOL*) noexcept override { return Absent(L"StayInSync"); }
  STDMETHODIMP put_StayInSync(VARIANT_BOOL) noexcept override { return Absent(L"StayInSync"); }

 private:
  static HRESULT Absent(const wchar_t* member) noexcept {
    return Guard([&] { RaiseNotImplemented((std::wstring(L"Recordset.") + member).c_str()); });
  }
};

}  // namespace kodra::adodb
