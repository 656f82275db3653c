#include "com/boundary.h"

#include "platform/erro.h"
#include "platform/windows/variant.h"

namespace kodra::com {
namespace {

using platform::windows::com_ptr;
using platform::windows::ScopedBstr;

void Publish(const platform::Erro& erro, REFIID iid) {
  com_ptr<ICreateErrorInfo> info;
  if (FAILED(CreateErrorInfo(info.put()))) return;
  info->SetGUID(iid);
  info->SetSource(ScopedBstr(erro.Source()).get());
  info->SetDescription(ScopedBstr(erro.Description()).get());
  if (const auto readable = info.as<IErrorInfo>()) SetErrorInfo(0, readable.get());
}

}  // namespace

HRESULT CurrentHresult(REFIID iid) noexcept {
  // An error that somebody left on the thread must not pass for this one where this one cannot be described.
  SetErrorInfo(0, nullptr);
  try {
    const platform::Erro erro = platform::CurrentErro();
    Publish(erro, iid);
    return platform::windows::HresultOf(erro.Number());
  } catch (...) {
    return E_OUTOFMEMORY;
  }
}

HRESULT RefuseAbsentOut() noexcept {
  SetErrorInfo(0, nullptr);  // for the same reason
  return E_POINTER;
}

}  // namespace kodra::com
