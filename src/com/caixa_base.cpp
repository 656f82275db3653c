#include "com/caixa_base.h"

#include "ado/ado_objects.h"
#include "ado/automation_object.h"
#include "ado/variant.h"

namespace kodra::com {

using comkit::com_ptr;

namespace {

platform::ClientConnection ClientConnectionOf(IDispatch* object) {
  if (object == nullptr) return {};
  auto connection = com_ptr<IDispatch>(object).as<_Connection>();
  if (!connection) throw MakeRuntimeError(RuntimeError::kTypeMismatch);
  return {std::make_shared<ado::AdoConnection>(std::move(connection)), ado::WrapDispatch(object)};
}

}  // namespace

CaixaBase::CaixaBase(std::wstring_view className)
    : ReportFace(className), events_(static_cast<ICCaixaRpt&>(*this), __uuidof(DCCaixaRptEvents)) {
  constexpr DISPID kDebugLog = 1;
  Report().OnDebugLog([this](const std::wstring& line) { events_.Fire(kDebugLog, line); });
}

void* CaixaBase::Find(REFIID iid) noexcept {
  if (iid == IID_IConnectionPointContainer) return static_cast<IConnectionPointContainer*>(&events_);
  return ReportFace::Find(iid);
}

STDMETHODIMP CaixaBase::get_Conexao(IDispatch** value) noexcept {
  return FillAtBoundary(__uuidof(ICCaixaRpt), value,
                        [&] { return ado::DispatchOf(Report().Conexao().object).detach(); });
}

STDMETHODIMP CaixaBase::putref_Conexao(IDispatch* value) noexcept {
  return AtBoundary(__uuidof(ICCaixaRpt), [&] { Report().SetConexao(ClientConnectionOf(value)); });
}

STDMETHODIMP CaixaBase::get_LogFile(BSTR* value) noexcept {
  return FillAtBoundary(__uuidof(ICCaixaRpt), value, [&] { return comkit::ScopedBstr(Report().LogFile()).detach(); });
}

STDMETHODIMP CaixaBase::put_LogFile(BSTR value) noexcept {
  return AtBoundary(__uuidof(ICCaixaRpt), [&] { Report().SetLogFile(comkit::ToWide(value)); });
}

}  // namespace kodra::com
