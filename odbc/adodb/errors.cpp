#include "odbc/adodb/errors.h"

#include <string>

#include "comkit/com_ptr.h"

namespace kodra::adodb {

using comkit::com_ptr;

HRESULT Described(HRESULT result, EXCEPINFO* exception) noexcept {
  if (SUCCEEDED(result) || result == DISP_E_MEMBERNOTFOUND) return result;
  com_ptr<IErrorInfo> info;
  const bool told = GetErrorInfo(0, info.put()) == S_OK;
  if (exception == nullptr) return DISP_E_EXCEPTION;
  *exception = {};
  exception->scode = result;
  if (told) {
    info->GetSource(&exception->bstrSource);
    info->GetDescription(&exception->bstrDescription);
  }
  return DISP_E_EXCEPTION;
}

void RaiseNotImplemented(const wchar_t* what) {
  throw Erro(E_NOTIMPL, L"ADODB", std::wstring(what) + L" is not implemented by this ADO over ODBC.");
}

HRESULT NotImplemented(const wchar_t* member) noexcept {
  return Guarded<IDispatch>([&] { RaiseNotImplemented(member); });
}

}  // namespace kodra::adodb
