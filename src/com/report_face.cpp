#include "com/report_face.h"

#include <memory>

#include "com/parameter_face.h"
#include "platform/windows/ado_objects.h"
#include "platform/windows/automation_object.h"
#include "platform/windows/variant.h"

namespace kodra::com {

using platform::windows::com_ptr;

namespace {

// The parameter object that a client passed, as a report reads it: one of our own directly, any other through
// IDispatch, null as null. Keeps the client's object alive.
std::shared_ptr<platform::AutomationObject> ParametersOf(IDispatch* obj) {
  const auto own = com_ptr<IDispatch>(obj).as<IParameters>(ParametersId());
  if (!own) return platform::windows::WrapDispatch(obj);
  return {&own->Parameters(), [own](platform::AutomationObject*) {}};
}

// The recordset as the client gets it, with a reference of the client's; null for a report without one.
IDispatch* HandOver(frame::ReportRows rows) noexcept {
  if (!rows) return nullptr;
  com_ptr<IDispatch> result(static_cast<platform::windows::AdoRecordset&>(*rows).Interface());
  return result.detach();
}

}  // namespace

HRESULT GetStringConexao(const frame::ReportClass& report, REFIID iid, BSTR* value) noexcept {
  return FillAtBoundary(iid, value, [&] { return platform::windows::ScopedBstr(report.StringConexao()).detach(); });
}

HRESULT LetStringConexao(frame::ReportClass& report, REFIID iid, BSTR value) noexcept {
  return AtBoundary(iid, [&] { report.SetStringConexao(platform::windows::ToWide(value)); });
}

HRESULT RunReport(IDispatch& object, REFIID iid, frame::ReportClass& report, ReportMethod method, IDispatch* obj,
                  IDispatch** recordset) noexcept {
  const com_ptr<IDispatch> self(&object);
  return FillAtBoundary(iid, recordset, [&] { return HandOver((report.*method)(ParametersOf(obj).get())); });
}

}  // namespace kodra::com
