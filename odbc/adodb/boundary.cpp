// What ADO returns for an exception.
#include "comkit/boundary.h"

#include <new>

#include "ado/variant.h"
#include "comkit/com_ptr.h"
#include "values/erro.h"

namespace kodra::comkit {
namespace {

// Reports no failure of its own: an error without a text is still an error.
void SetErrorInfoText(REFIID interfaceId, const wchar_t* source, const wchar_t* description) noexcept {
  com_ptr<ICreateErrorInfo> writer;
  if (FAILED(CreateErrorInfo(writer.put()))) return;
  writer->SetGUID(interfaceId);
  writer->SetSource(const_cast<wchar_t*>(source));
  writer->SetDescription(const_cast<wchar_t*>(description));
  if (const auto info = writer.as<IErrorInfo>()) SetErrorInfo(0, info.get());
}

}  // namespace

HRESULT CurrentHresult(REFIID interfaceId) noexcept {
  // An error that another call left on the thread must not pass for this one where this one cannot be described.
  SetErrorInfo(0, nullptr);
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

}  // namespace kodra::comkit
