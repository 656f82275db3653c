// The COM class of the module reports: besides a report class's members a client's connection, a log file and an event.
#pragma once

#include "com/event_source.h"
#include "com/kodrarpt_h.h"
#include "com/report_face.h"
#include "reports/modules/caixa_rpt.h"

namespace kodra::com {

class CCaixaRptFace final : public ReportFace<::CCaixaRpt, ICCaixaRpt, reports::CCaixaRpt> {
 public:
  CCaixaRptFace();

  STDMETHODIMP get_Conexao(IDispatch** value) noexcept override;
  // An object that is no ADO connection raises RuntimeError::kTypeMismatch; null takes the connection away.
  STDMETHODIMP putref_Conexao(IDispatch* value) noexcept override;
  STDMETHODIMP get_LogFile(BSTR* value) noexcept override;
  STDMETHODIMP put_LogFile(BSTR value) noexcept override;

  STDMETHODIMP EtiquetaAbertura(IDispatch* obj, IDispatch** recordset) noexcept override {
    return Rows(&reports::CCaixaRpt::EtiquetaAbertura, obj, recordset);
  }
  STDMETHODIMP EtiquetaFechamento(IDispatch* obj, IDispatch** recordset) noexcept override {
    return Rows(&reports::CCaixaRpt::EtiquetaFechamento, obj, recordset);
  }
  STDMETHODIMP EtiquetaFechamentoSubordinada(IDispatch* obj, IDispatch** recordset) noexcept override {
    return Rows(&reports::CCaixaRpt::EtiquetaFechamentoSubordinada, obj, recordset);
  }
  STDMETHODIMP EtiquetaDivisoria(IDispatch* obj, IDispatch** recordset) noexcept override {
    return Rows(&reports::CCaixaRpt::EtiquetaDivisoria, obj, recordset);
  }
  STDMETHODIMP ModulosExcluidos(IDispatch* obj, IDispatch** recordset) noexcept override {
    return Rows(&reports::CCaixaRpt::ModulosExcluidos, obj, recordset);
  }
  STDMETHODIMP ModulosVencidos(IDispatch* obj, IDispatch** recordset) noexcept override {
    return Rows(&reports::CCaixaRpt::ModulosVencidos, obj, recordset);
  }
  STDMETHODIMP DocsNoModulo(IDispatch* obj, IDispatch** recordset) noexcept override {
    return Rows(&reports::CCaixaRpt::DocsNoModulo, obj, recordset);
  }
  STDMETHODIMP DocsNoModuloSubRpt(IDispatch* obj, IDispatch** recordset) noexcept override {
    return Rows(&reports::CCaixaRpt::DocsNoModuloSubRpt, obj, recordset);
  }
  STDMETHODIMP DocsNaoIndexadosNosModulos(IDispatch* obj, IDispatch** recordset) noexcept override {
    return Rows(&reports::CCaixaRpt::DocsNaoIndexadosNosModulos, obj, recordset);
  }
  STDMETHODIMP RelatoriosModulos(IDispatch* obj, IDispatch** recordset) noexcept override {
    return Rows(&reports::CCaixaRpt::RelatoriosModulos, obj, recordset);
  }
  STDMETHODIMP AutorizacaoDescarteModuloSubRpt(IDispatch* obj, IDispatch** recordset) noexcept override {
    return Rows(&reports::CCaixaRpt::AutorizacaoDescarteModuloSubRpt, obj, recordset);
  }

 private:
  EventSource events_;
};

}  // namespace kodra::com
