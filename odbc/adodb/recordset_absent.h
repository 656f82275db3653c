// The members of ADO's recordset that no client here uses: bookmarks, pages, filters, batches, clones, persistence.
// Each answers E_NOTIMPL with an IErrorInfo that names it.
#pragma once

#include <string>

#include "odbc/adodb/dispatch_object.h"

namespace kodra::adodb {

class RecordsetAbsent : public DispatchObject<_Recordset, Recordset21, Recordset20, Recordset15, _ADO> {
 public:
  HRESULT __stdcall get_Bookmark(VARIANT*) noexcept override { return Absent(L"Bookmark"); }
  HRESULT __stdcall put_Bookmark(VARIANT) noexcept override { return Absent(L"Bookmark"); }
  HRESULT __stdcall CompareBookmarks(VARIANT, VARIANT, CompareEnum*) noexcept override {
    return Absent(L"CompareBookmarks");
  }

  HRESULT __stdcall get_AbsolutePage(PositionEnum_Param*) noexcept override { return Absent(L"AbsolutePage"); }
  HRESULT __stdcall put_AbsolutePage(PositionEnum_Param) noexcept override { return Absent(L"AbsolutePage"); }
  HRESULT __stdcall get_PageCount(ADO_LONGPTR*) noexcept override { return Absent(L"PageCount"); }
  HRESULT __stdcall get_PageSize(LONG*) noexcept override { return Absent(L"PageSize"); }
  HRESULT __stdcall put_PageSize(LONG) noexcept override { return Absent(L"PageSize"); }

  HRESULT __stdcall get_Filter(VARIANT*) noexcept override { return Absent(L"Filter"); }
  HRESULT __stdcall put_Filter(VARIANT) noexcept override { return Absent(L"Filter"); }
  HRESULT __stdcall get_Sort(BSTR*) noexcept override { return Absent(L"Sort"); }
  HRESULT __stdcall put_Sort(BSTR) noexcept override { return Absent(L"Sort"); }
  HRESULT __stdcall get_Index(BSTR*) noexcept override { return Absent(L"Index"); }
  HRESULT __stdcall put_Index(BSTR) noexcept override { return Absent(L"Index"); }
  HRESULT __stdcall Find(BSTR, LONG, SearchDirectionEnum, VARIANT) noexcept override { return Absent(L"Find"); }
  HRESULT __stdcall Seek(VARIANT, SeekEnum) noexcept override { return Absent(L"Seek"); }

  HRESULT __stdcall get_Status(LONG*) noexcept override { return Absent(L"Status"); }
  HRESULT __stdcall UpdateBatch(AffectEnum) noexcept override { return Absent(L"UpdateBatch"); }
  HRESULT __stdcall CancelBatch(AffectEnum) noexcept override { return Absent(L"CancelBatch"); }
  HRESULT __stdcall Resync(AffectEnum, ResyncEnum) noexcept override { return Absent(L"Resync"); }
  HRESULT __stdcall _xResync(AffectEnum) noexcept override { return Absent(L"Resync"); }
  HRESULT __stdcall get_MarshalOptions(MarshalOptionsEnum*) noexcept override { return Absent(L"MarshalOptions"); }
  HRESULT __stdcall put_MarshalOptions(MarshalOptionsEnum) noexcept override { return Absent(L"MarshalOptions"); }

  HRESULT __stdcall Clone(LockTypeEnum, _Recordset**) noexcept override { return Absent(L"Clone"); }
  HRESULT __stdcall _xClone(_Recordset**) noexcept override { return Absent(L"Clone"); }
  HRESULT __stdcall NextRecordset(VARIANT*, _Recordset**) noexcept override { return Absent(L"NextRecordset"); }
  HRESULT __stdcall Cancel() noexcept override { return Absent(L"Cancel"); }
  HRESULT __stdcall Save(VARIANT, PersistFormatEnum) noexcept override { return Absent(L"Save"); }
  HRESULT __stdcall _xSave(BSTR, PersistFormatEnum) noexcept override { return Absent(L"Save"); }
  HRESULT __stdcall GetString(StringFormatEnum, LONG, BSTR, BSTR, BSTR, BSTR*) noexcept override {
    return Absent(L"GetString");
  }

  HRESULT __stdcall get_ActiveCommand(IDispatch**) noexcept override { return Absent(L"ActiveCommand"); }
  HRESULT __stdcall get_DataSource(IUnknown**) noexcept override { return Absent(L"DataSource"); }
  HRESULT __stdcall putref_DataSource(IUnknown*) noexcept override { return Absent(L"DataSource"); }
  HRESULT __stdcall get_DataMember(BSTR*) noexcept override { return Absent(L"DataMember"); }
  HRESULT __stdcall put_DataMember(BSTR) noexcept override { return Absent(L"DataMember"); }
  HRESULT __stdcall get_StayInSync(VARIANT_BOOL*) noexcept override { return Absent(L"StayInSync"); }
  HRESULT __stdcall put_StayInSync(VARIANT_BOOL) noexcept override { return Absent(L"StayInSync"); }

 private:
  static HRESULT Absent(const wchar_t* member) noexcept {
    return Guard([&] { RaiseNotImplemented((std::wstring(L"Recordset.") + member).c_str()); });
  }
};

}  // namespace kodra::adodb
