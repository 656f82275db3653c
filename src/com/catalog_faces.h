// The COM classes of the catalog reports, in the type library's order.
#pragma once

#include "com/kodrarpt_h.h"
#include "com/report_face.h"
#include "reports/catalog/cd_rpt.h"
#include "reports/catalog/deposito_rpt.h"
#include "reports/catalog/depto_rpt.h"
#include "reports/catalog/dicionario_rpt.h"
#include "reports/catalog/grupo_operador_rpt.h"
#include "reports/catalog/grupo_rpt.h"
#include "reports/catalog/modelo_rpt.h"
#include "reports/catalog/operador_rpt.h"
#include "reports/catalog/serie_rpt.h"
#include "reports/catalog/subgrupo_rpt.h"
#include "reports/catalog/suporte_rpt.h"
#include "reports/catalog/tipo_caixa_rpt.h"
#include "reports/catalog/tipo_midia_rpt.h"

namespace kodra::com {

class CCDRptFace final : public ReportFace<::CCDRpt, ICCDRpt, reports::CCDRpt> {
 public:
  STDMETHODIMP RelatorioMidias(IDispatch* obj, IDispatch** recordset) noexcept override {
    return Rows(&reports::CCDRpt::RelatorioMidias, obj, recordset);
  }
};

class CTipo_MidiaRptFace final : public ReportFace<::CTipo_MidiaRpt, ICTipo_MidiaRpt, reports::CTipo_MidiaRpt> {
 public:
  STDMETHODIMP RelatorioTiposMidia(IDispatch* obj, IDispatch** recordset) noexcept override {
    return Rows(&reports::CTipo_MidiaRpt::RelatorioTiposMidia, obj, recordset);
  }
};

class CSuporteRptFace final : public ReportFace<::CSuporteRpt, ICSuporteRpt, reports::CSuporteRpt> {
 public:
  STDMETHODIMP RelatorioSuportes(IDispatch* obj, IDispatch** recordset) noexcept override {
    return Rows(&reports::CSuporteRpt::RelatorioSuportes, obj, recordset);
  }
};

class CSerieRptFace final : public ReportFace<::CSerieRpt, ICSerieRpt, reports::CSerieRpt> {
 public:
  STDMETHODIMP RelatorioSeries(IDispatch* obj, IDispatch** recordset) noexcept override {
    return Rows(&reports::CSerieRpt::RelatorioSeries, obj, recordset);
  }
};

class CDepositoRptFace final : public ReportFace<::CDepositoRpt, ICDepositoRpt, reports::CDepositoRpt> {
 public:
  STDMETHODIMP RelatorioDepositos(IDispatch* obj, IDispatch** recordset) noexcept override {
    return Rows(&reports::CDepositoRpt::RelatorioDepositos, obj, recordset);
  }
};

class CDicionarioRptFace final : public ReportFace<::CDicionarioRpt, ICDicionarioRpt, reports::CDicionarioRpt> {
 public:
  STDMETHODIMP RelatorioTermosControlados(IDispatch* obj, IDispatch** recordset) noexcept override {
    return Rows(&reports::CDicionarioRpt::RelatorioTermosControlados, obj, recordset);
  }
};

class CDeptoRptFace final : public ReportFace<::CDeptoRpt, ICDeptoRpt, reports::CDeptoRpt> {
 public:
  STDMETHODIMP RelatorioDeptos(IDispatch* obj, IDispatch** recordset) noexcept override {
    return Rows(&reports::CDeptoRpt::RelatorioDeptos, obj, recordset);
  }
};

class CGrupoRptFace final : public ReportFace<::CGrupoRpt, ICGrupoRpt, reports::CGrupoRpt> {
 public:
  STDMETHODIMP RelatorioGrupos(IDispatch* obj, IDispatch** recordset) noexcept override {
    return Rows(&reports::CGrupoRpt::RelatorioGrupos, obj, recordset);
  }
};

class CModeloRptFace final : public ReportFace<::CModeloRpt, ICModeloRpt, reports::CModeloRpt> {
 public:
  STDMETHODIMP RelatorioModelos(IDispatch* obj, IDispatch** recordset) noexcept override {
    return Rows(&reports::CModeloRpt::RelatorioModelos, obj, recordset);
  }
};

class CTipo_CaixaRptFace final : public ReportFace<::CTipo_CaixaRpt, ICTipo_CaixaRpt, reports::CTipo_CaixaRpt> {
 public:
  STDMETHODIMP RelatorioTiposModulo(IDispatch* obj, IDispatch** recordset) noexcept override {
    return Rows(&reports::CTipo_CaixaRpt::RelatorioTiposModulo, obj, recordset);
  }
};

class CGrupoOperadorRptFace final
    : public ReportFace<::CGrupoOperadorRpt, ICGrupoOperadorRpt, reports::CGrupoOperadorRpt> {
 public:
  STDMETHODIMP RelatorioGruposOperadores(IDispatch* obj, IDispatch** recordset) noexcept override {
    return Rows(&reports::CGrupoOperadorRpt::RelatorioGruposOperadores, obj, recordset);
  }
};

class CSubgrupoRptFace final : public ReportFace<::CSubgrupoRpt, ICSubgrupoRpt, reports::CSubgrupoRpt> {
 public:
  STDMETHODIMP RelatorioSubgrupos(IDispatch* obj, IDispatch** recordset) noexcept override {
    return Rows(&reports::CSubgrupoRpt::RelatorioSubgrupos, obj, recordset);
  }
};

class COperadorRptFace final : public ReportFace<::COperadorRpt, ICOperadorRpt, reports::COperadorRpt> {
 public:
  STDMETHODIMP RelatorioOperadores(IDispatch* obj, IDispatch** recordset) noexcept override {
    return Rows(&reports::COperadorRpt::RelatorioOperadores, obj, recordset);
  }
};

}  // namespace kodra::com
