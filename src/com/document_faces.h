// The COM classes of the document, request and log reports.
#pragma once

#include "com/kodrarpt_h.h"
#include "com/report_face.h"
#include "reports/documents/documento_rpt.h"
#include "reports/documents/log_rpt.h"
#include "reports/documents/solicitacao_rpt.h"

namespace kodra::com {

class CDocumentoRptFace final : public ReportFace<::CDocumentoRpt, ICDocumentoRpt, reports::CDocumentoRpt> {
 public:
  STDMETHODIMP RelatorioSintetico(IDispatch* obj, IDispatch** recordset) noexcept override {
    return Rows(&reports::CDocumentoRpt::RelatorioSintetico, obj, recordset);
  }
  STDMETHODIMP RelatorioAnalitico(IDispatch* obj, IDispatch** recordset) noexcept override {
    return Rows(&reports::CDocumentoRpt::RelatorioAnalitico, obj, recordset);
  }
  STDMETHODIMP RelatorioInventarios(IDispatch* obj, IDispatch** recordset) noexcept override {
    return Rows(&reports::CDocumentoRpt::RelatorioInventarios, obj, recordset);
  }
};

class CSolicitacaoRptFace final : public ReportFace<::CSolicitacaoRpt, ICSolicitacaoRpt, reports::CSolicitacaoRpt> {
 public:
  STDMETHODIMP RelatorioRetiradaOriginal(IDispatch* obj, IDispatch** recordset) noexcept override {
    return Rows(&reports::CSolicitacaoRpt::RelatorioRetiradaOriginal, obj, recordset);
  }
  STDMETHODIMP RelatorioDevolucaoOriginal(IDispatch* obj, IDispatch** recordset) noexcept override {
    return Rows(&reports::CSolicitacaoRpt::RelatorioDevolucaoOriginal, obj, recordset);
  }
};

class CLogRptFace final : public ReportFace<::CLogRpt, ICLogRpt, reports::CLogRpt> {
 public:
  STDMETHODIMP RelatorioLog(IDispatch* obj, IDispatch** recordset) noexcept override {
    return Rows(&reports::CLogRpt::RelatorioLog, obj, recordset);
  }
};

}  // namespace kodra::com
