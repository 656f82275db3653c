#include "odbc/adodb/errors.h"

#include <new>
#include <string>

#include "ado/com_ptr.h"
#include "ado/variant.h"

namespace kodra::adodb {
namespace {

using ado::com_ptr;

// Fails silently: an error without a text is still an error.
void SetErrorInfoText(REFIID interfaceId, const wchar_t* source, const wchar_t* description) noexcept {
  com_ptr<ICreateErrorInfo> writer;
  if (FAILED(CreateErrorInfo(writer.put()))) return;
  writer->SetGUID(interfaceId);
  writer->SetSource(const_cast<wchar_t*>(source));
  writer->SetDescription(const_cast<wchar_t*>(description));
  if (const auto info = writer.as<IErrorInfo>()) SetErrorInfo(0, info.get());
}

}  // namespace

HRESULT ReportException(REFIID interfaceId) noexcept {
  try {
    throw;
  } catch (const Erro& error) {
    SetErrorInfoText(interfaceId, error.Source().c_str(), error.Description().c_str());
    return ado::HresultOf(error.Number());
  } catch (const std::bad_alloc&) {
    SetErrorInfoText(interfaceId, L"ADODB", L"Not enough memory.");
    return E_OUTOFMEMORY;
  } catch (...) {
    SetErrorInfoText(interfaceId, L"ADODB", L"Unexpected failure.");
    return E_UNEXPECTED;
  }
}

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
