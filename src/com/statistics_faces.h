// The COM classes of the statistics.
#pragma once

#include "com/kodrarpt_h.h"
#include "com/report_face.h"
#include "reports/statistics/estat_img_rpt.h"
#include "reports/statistics/estat_index_rpt.h"
#include "reports/statistics/estat_serie_rpt.h"
#include "reports/statistics/estat_subgrupo_rpt.h"
#include "reports/statistics/estat_suporte_rpt.h"

namespace kodra::com {

class CEstatImgRptFace final : public ReportFace<::CEstatImgRpt, ICEstatImgRpt, reports::CEstatImgRpt> {
 public:
  STDMETHODIMP RelatorioEstatisticas(IDispatch* obj, IDispatch** recordset) noexcept override {
    return Rows(&reports::CEstatImgRpt::RelatorioEstatisticas, obj, recordset);
  }
};

class CEstatIndexRptFace final : public ReportFace<::CEstatIndexRpt, ICEstatIndexRpt, reports::CEstatIndexRpt> {
 public:
  STDMETHODIMP RelatorioEstatisticasPorDocumento(IDispatch* obj, IDispatch** recordset) noexcept override {
    return Rows(&reports::CEstatIndexRpt::RelatorioEstatisticasPorDocumento, obj, recordset);
  }
  STDMETHODIMP RelatorioEstatisticasPorPalavrasChave(IDispatch* obj, IDispatch** recordset) noexcept override {
    return Rows(&reports::CEstatIndexRpt::RelatorioEstatisticasPorPalavrasChave, obj, recordset);
  }
};

class CEstatSuporteRptFace final : public ReportFace<::CEstatSuporteRpt, ICEstatSuporteRpt, reports::CEstatSuporteRpt> {
 public:
  STDMETHODIMP RelatorioEstatisticas(IDispatch* obj, IDispatch** recordset) noexcept override {
    return Rows(&reports::CEstatSuporteRpt::RelatorioEstatisticas, obj, recordset);
  }
};

class CEstatSubgrupoRptFace final
    : public ReportFace<::CEstatSubgrupoRpt, ICEstatSubgrupoRpt, reports::CEstatSubgrupoRpt> {
 public:
  STDMETHODIMP RelatorioEstatisticas(IDispatch* obj, IDispatch** recordset) noexcept override {
    return Rows(&reports::CEstatSubgrupoRpt::RelatorioEstatisticas, obj, recordset);
  }
};

class CEstatSerieRptFace final : public ReportFace<::CEstatSerieRpt, ICEstatSerieRpt, reports::CEstatSerieRpt> {
 public:
  STDMETHODIMP RelatorioEstatisticas(IDispatch* obj, IDispatch** recordset) noexcept override {
    return Rows(&reports::CEstatSerieRpt::RelatorioEstatisticas, obj, recordset);
  }
};

}  // namespace kodra::com
