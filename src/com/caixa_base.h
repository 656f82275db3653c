// What the COM class of the module reports has beyond a report class: the client's connection, a log file and an event.
#pragma once

#include "com/event_source.h"
#include "com/kodrarpt_h.h"
#include "com/report_face.h"
#include "reports/modules/module_object.h"

namespace kodra::com {

class CaixaBase : public ReportFace<::CCaixaRpt, ICCaixaRpt, reports::ModuleObject> {
 public:
  STDMETHODIMP get_Conexao(IDispatch** value) noexcept override;
  // An object that is not an ADO connection raises RuntimeError::kTypeMismatch; null removes the connection.
  STDMETHODIMP putref_Conexao(IDispatch* value) noexcept override;
  STDMETHODIMP get_LogFile(BSTR* value) noexcept override;
  STDMETHODIMP put_LogFile(BSTR value) noexcept override;

 protected:
  explicit CaixaBase(std::wstring_view className);
  void* Find(REFIID iid) noexcept override;

 private:
  EventSource events_;
};

}  // namespace kodra::com
