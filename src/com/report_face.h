// The COM face of a report class: its connection string, and methods that take a parameter object and give a recordset.
#pragma once

#include "com/dual_object.h"
#include "com/parameter_face.h"
#include "frame/report_class.h"
#include "platform/windows/ado_objects.h"
#include "platform/windows/automation_object.h"

namespace kodra::com {

template <class Class, class Interface, class Report>
class ReportFace : public DualObject<Class, Interface> {
 public:
  STDMETHODIMP get_StringConexao(BSTR* value) noexcept override {
    return this->Fill(value, [&] { return platform::windows::ScopedBstr(report_.StringConexao()).detach(); });
  }
  STDMETHODIMP put_StringConexao(BSTR value) noexcept override {
    return this->Run([&] { report_.SetStringConexao(platform::windows::ToWide(value)); });
  }

 protected:
  using Method = frame::ReportRows (Report::*)(platform::AutomationObject*);

  // Runs a report method on the client's parameter object. Both objects stay alive for the call, whatever the client
  // releases meanwhile.
  HRESULT Rows(Method method, IDispatch* obj, IDispatch** recordset) noexcept {
    const platform::windows::com_ptr<Interface> self(this);
    const platform::windows::com_ptr<IDispatch> parameters(obj);
    return this->Fill(recordset, [&]() -> IDispatch* {
      if (const auto own = parameters.template as<IParameters>()) return Detach((report_.*method)(&own->Parameters()));
      return Detach((report_.*method)(platform::windows::WrapDispatch(obj).get()));
    });
  }

 private:
  // The recordset as the client gets it; null for a report without one.
  static IDispatch* Detach(frame::ReportRows rows) noexcept {
    if (!rows) return nullptr;
    IDispatch* result = static_cast<platform::windows::AdoRecordset&>(*rows).Interface();
    result->AddRef();
    return result;
  }

  Report report_{ModuleSurroundings()};
};

}  // namespace kodra::com
