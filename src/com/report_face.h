// The COM face of a report class: its connection string, and methods that take a parameter object and give a recordset.
#pragma once

#include <memory>

#include "com/dual_object.h"
#include "frame/report_class.h"

namespace kodra::com {

// The parameter object that a client passed, as a report reads it: one of our own directly, any other through
// IDispatch, null as null. Keeps the client's object alive.
std::shared_ptr<platform::AutomationObject> ParametersOf(IDispatch* obj);

// The recordset as the client gets it, with a reference of the client's; null for a report without one.
IDispatch* HandOver(frame::ReportRows rows) noexcept;

HRESULT GetStringConexao(const frame::ReportClass& report, REFIID iid, BSTR* value) noexcept;
HRESULT LetStringConexao(frame::ReportClass& report, REFIID iid, BSTR value) noexcept;

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
  using Method = frame::ReportRows (ReportClass::*)(platform::AutomationObject*);

  ReportClass& Report() noexcept { return report_; }

  // Runs a report method on the client's parameter object. Both objects stay alive for the call, whatever the client
  // releases meanwhile.
  HRESULT Rows(Method method, IDispatch* obj, IDispatch** recordset) noexcept {
    const platform::windows::com_ptr<Interface> self(this);
    return FillAtBoundary(__uuidof(Interface), recordset,
                          [&] { return HandOver((report_.*method)(ParametersOf(obj).get())); });
  }

 private:
  ReportClass report_{ModuleSurroundings()};
};

}  // namespace kodra::com
