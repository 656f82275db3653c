// The COM face of a report class: its connection string, and methods that take a parameter object and return a
// recordset.
#pragma once

#include <memory>

#include "com/dual_object.h"
#include "com/module_surroundings.h"
#include "comkit/com_ptr.h"
#include "frame/report_call.h"

namespace kodra::com {

HRESULT GetStringConexao(const frame::ReportObject& report, REFIID iid, BSTR* value) noexcept;
HRESULT LetStringConexao(frame::ReportObject& report, REFIID iid, BSTR value) noexcept;

// The parameter object that a client passed, as a report reads it: one of our own directly, any other through
// IDispatch, null as null. Keeps the client's object alive.
std::shared_ptr<AutomationObject> ParametersOf(IDispatch* obj);

// The recordset as the client receives it, with a reference that the client owns; null for a report without one.
IDispatch* HandOver(frame::ReportRows rows);

// Object is what the report keeps between two calls.
template <class Class, class Interface, class Object>
class ReportFace : public DualObject<Class, Interface> {
 public:
  STDMETHODIMP get_StringConexao(BSTR* value) noexcept override {
    return GetStringConexao(report_, __uuidof(Interface), value);
  }
  STDMETHODIMP put_StringConexao(BSTR value) noexcept override {
    return LetStringConexao(report_, __uuidof(Interface), value);
  }

 protected:
  explicit ReportFace(std::wstring_view className) : report_(className, ModuleSurroundings()) {}

  Object& Report() noexcept { return report_; }

  // Runs a report method on the client's parameter object. This object and that one stay alive for the call, whatever
  // the client releases meanwhile.
  template <class Call>
  HRESULT Rows(std::wstring_view method, frame::ReportRows (*report)(Call&), IDispatch* obj,
               IDispatch** recordset) noexcept {
    const comkit::com_ptr<IDispatch> self(this);
    return FillAtBoundary(__uuidof(Interface), recordset,
                          [&] { return HandOver(frame::Run(report_, method, report, ParametersOf(obj).get())); });
  }

 private:
  Object report_;
};

}  // namespace kodra::com
