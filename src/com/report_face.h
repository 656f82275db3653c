// The COM face of a report class: its connection string, and methods that take a parameter object and give a recordset.
#pragma once

#include "com/dual_object.h"
#include "com/module_surroundings.h"
#include "frame/report_class.h"

namespace kodra::com {

HRESULT GetStringConexao(const frame::ReportClass& report, REFIID iid, BSTR* value) noexcept;
HRESULT LetStringConexao(frame::ReportClass& report, REFIID iid, BSTR value) noexcept;

using ReportMethod = frame::ReportRows (frame::ReportClass::*)(AutomationObject*);

// Runs a report method on the client's parameter object. `object` is the COM object of the report, `iid` its dual
// interface. Both objects stay alive for the call, whatever the client releases meanwhile.
HRESULT RunReport(IDispatch& object, REFIID iid, frame::ReportClass& report, ReportMethod method, IDispatch* obj,
                  IDispatch** recordset) noexcept;

template <class Class, class Interface, class ReportClass>
class ReportFace : public DualObject<Class, Interface> {
 public:
  STDMETHODIMP get_StringConexao(BSTR* value) noexcept override {
    return GetStringConexao(report_, __uuidof(Interface), value);
  }
  STDMETHODIMP put_StringConexao(BSTR value) noexcept override {
    return LetStringConexao(report_, __uuidof(Interface), value);
  }

 protected:
  using Method = frame::ReportRows (ReportClass::*)(AutomationObject*);

  ReportClass& Report() noexcept { return report_; }

  HRESULT Rows(Method method, IDispatch* obj, IDispatch** recordset) noexcept {
    return RunReport(*this, __uuidof(Interface), report_, static_cast<ReportMethod>(method), obj, recordset);
  }

 private:
  ReportClass report_{ModuleSurroundings()};
};

}  // namespace kodra::com
