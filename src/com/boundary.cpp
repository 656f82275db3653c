// The one place where the component's exceptions become COM errors. An Erro keeps its number, source and description;
// every other exception becomes the Erro that CurrentErro() makes of it.
#include "comkit/boundary.h"

#include "ado/variant.h"
#include "values/erro.h"

namespace kodra::comkit {
namespace {

void Publish(const Erro& erro, REFIID iid) {
  com_ptr<ICreateErrorInfo> info;
  if (FAILED(CreateErrorInfo(info.put()))) return;
  info->SetGUID(iid);
  info->SetSource(ScopedBstr(erro.Source()).get());
  info->SetDescription(ScopedBstr(erro.Description()).get());
  if (const auto readable = info.as<IErrorInfo>()) SetErrorInfo(0, readable.get());
}

}  // namespace

HRESULT CurrentHresult(REFIID iid) noexcept {
  // An error that another call left on the thread must not pass for this one where this one cannot be described.
  SetErrorInfo(0, nullptr);
  try {
    const Erro erro = CurrentErro();
    Publish(erro, iid);
    return ado::HresultOf(erro.Number());
  } catch (...) {
    return E_OUTOFMEMORY;
  }
}

}  // namespace kodra::comkit
