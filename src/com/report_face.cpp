#include "com/report_face.h"

#include "com/parameter_face.h"
#include "platform/windows/ado_objects.h"
#include "platform/windows/automation_object.h"
#include "platform/windows/variant.h"

namespace kodra::com {

using platform::windows::com_ptr;

std::shared_ptr<platform::AutomationObject> ParametersOf(IDispatch* obj) {
  const auto own = com_ptr<IDispatch>(obj).as<IParameters>();
  if (!own) return platform::windows::WrapDispatch(obj);
  return {&own->Parameters(), [own](platform::AutomationObject*) {}};
}

IDispatch* HandOver(frame::ReportRows rows) noexcept {
  if (!rows) return nullptr;
  com_ptr<IDispatch> result(static_cast<platform::windows::AdoRecordset&>(*rows).Interface());
  return result.detach();
}

HRESULT GetStringConexao(const frame::ReportClass& report, REFIID iid, BSTR* value) noexcept {
  return FillAtBoundary(iid, value, [&] { return platform::windows::ScopedBstr(report.StringConexao()).detach(); });
}

HRESULT LetStringConexao(frame::ReportClass& report, REFIID iid, BSTR value) noexcept {
  return AtBoundary(iid, [&] { report.SetStringConexao(platform::windows::ToWide(value)); });
}

}  // namespace kodra::com
