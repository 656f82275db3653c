// The COM class of the container reports.
#pragma once

#include "com/kodrarpt_h.h"
#include "com/report_face.h"
#include "reports/modules/container_rpt.h"

namespace kodra::com {

class CContainerRptFace final : public ReportFace<::CContainerRpt, ICContainerRpt, reports::CContainerRpt> {
 public:
  STDMETHODIMP RelatorioContainers(IDispatch* obj, IDispatch** recordset) noexcept override {
    return Rows(&reports::CContainerRpt::RelatorioContainers, obj, recordset);
  }
  STDMETHODIMP EtiquetaAbertura(IDispatch* obj, IDispatch** recordset) noexcept override {
    return Rows(&reports::CContainerRpt::EtiquetaAbertura, obj, recordset);
  }
  STDMETHODIMP EtiquetaAberturaSubRpt(IDispatch* obj, IDispatch** recordset) noexcept override {
    return Rows(&reports::CContainerRpt::EtiquetaAberturaSubRpt, obj, recordset);
  }
};

}  // namespace kodra::com
