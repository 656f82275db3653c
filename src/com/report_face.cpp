#include "com/report_face.h"

#include <memory>

#include "ado/ado_objects.h"
#include "ado/automation_object.h"
#include "ado/variant.h"
#include "com/parameter_face.h"

namespace kodra::com {

using comkit::com_ptr;

namespace {

// The parameter object that a client passed, as a report reads it: one of our own directly, any other through
// IDispatch, null as null. Keeps the client's object alive.
std::shared_ptr<AutomationObject> ParametersOf(IDispatch* obj) {
  const auto own = com_ptr<IDispatch>(obj).as<IParameters>(ParametersId());
  if (!own) return ado::WrapDispatch(obj);
  return {&own->Parameters(), [own](AutomationObject*) {}};
}

// The recordset as the client gets it, with a reference of the client's; null for a report without one.
IDispatch* HandOver(frame::ReportRows rows) noexcept {
  if (!rows) return nullptr;
  com_ptr<IDispatch> result(static_cast<ado::AdoRecordset&>(*rows).Interface());
  return result.detach();
}

}  // namespace

HRESULT GetStringConexao(const frame::ReportClass& report, REFIID iid, BSTR* value) noexcept {
  return FillAtBoundary(iid, value, [&] { return comkit::ScopedBstr(report.StringConexao()).detach(); });
}

HRESULT LetStringConexao(frame::ReportClass& report, REFIID iid, BSTR value) noexcept {
  return AtBoundary(iid, [&] { report.SetStringConexao(comkit::ToWide(value)); });
}

HRESULT RunReport(IDispatch& object, REFIID iid, frame::ReportClass& report, ReportMethod method, IDispatch* obj,
                  IDispatch** recordset) noexcept {
  const com_ptr<IDispatch> self(&object);
  return FillAtBoundary(iid, recordset, [&] { return HandOver((report.*method)(ParametersOf(obj).get())); });
}

}  // namespace kodra::com
