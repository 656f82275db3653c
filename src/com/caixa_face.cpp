#include "com/caixa_face.h"

#include "platform/windows/ado_objects.h"
#include "platform/windows/automation_object.h"
#include "platform/windows/variant.h"

namespace kodra::com {

using platform::windows::com_ptr;

namespace {

platform::ClientConnection ClientConnectionOf(IDispatch* object) {
  if (object == nullptr) return {};
  auto connection = com_ptr<IDispatch>(object).as<_Connection>();
  if (!connection) throw platform::MakeRuntimeError(platform::RuntimeError::kTypeMismatch);
  return {std::make_shared<platform::windows::AdoConnection>(std::move(connection)),
          platform::windows::WrapDispatch(object)};
}

}  // namespace

CCaixaRptFace::CCaixaRptFace() : events_(static_cast<ICCaixaRpt&>(*this), __uuidof(DCCaixaRptEvents)) {
  constexpr DISPID kDebugLog = 1;
  Offer(IID_IConnectionPointContainer, events_);
  Report().OnDebugLog([this](const std::wstring& line) { events_.Fire(kDebugLog, line); });
}

STDMETHODIMP CCaixaRptFace::get_Conexao(IDispatch** value) noexcept {
  return FillAtBoundary(__uuidof(ICCaixaRpt), value,
                        [&] { return platform::windows::DispatchOf(Report().Conexao().object).detach(); });
}

STDMETHODIMP CCaixaRptFace::putref_Conexao(IDispatch* value) noexcept {
  return AtBoundary(__uuidof(ICCaixaRpt), [&] { Report().SetConexao(ClientConnectionOf(value)); });
}

STDMETHODIMP CCaixaRptFace::get_LogFile(BSTR* value) noexcept {
  return FillAtBoundary(__uuidof(ICCaixaRpt), value,
                        [&] { return platform::windows::ScopedBstr(Report().LogFile()).detach(); });
}

STDMETHODIMP CCaixaRptFace::put_LogFile(BSTR value) noexcept {
  return AtBoundary(__uuidof(ICCaixaRpt), [&] { Report().SetLogFile(platform::windows::ToWide(value)); });
}

}  // namespace kodra::com
