#include "com/report_face.h"

#include "ado/ado_objects.h"
#include "ado/automation_object.h"
#include "ado/variant.h"
#include "com/parameter_face.h"

namespace kodra::com {

using comkit::com_ptr;

HRESULT GetStringConexao(const frame::ReportObject& report, REFIID iid, BSTR* value) noexcept {
  return FillAtBoundary(iid, value, [&] { return comkit::ScopedBstr(report.StringConexao()).detach(); });
}

HRESULT LetStringConexao(frame::ReportObject& report, REFIID iid, BSTR value) noexcept {
  return AtBoundary(iid, [&] { report.SetStringConexao(comkit::ToWide(value)); });
}

std::shared_ptr<AutomationObject> ParametersOf(IDispatch* obj) {
  const auto own = com_ptr<IDispatch>(obj).as<IParameters>(ParametersId());
  if (!own) return ado::WrapDispatch(obj);
  return {&own->Parameters(), [own](AutomationObject*) {}};
}

IDispatch* HandOver(frame::ReportRows rows) { return rows ? ado::DispatchOf(*rows).detach() : nullptr; }

}  // namespace kodra::com
