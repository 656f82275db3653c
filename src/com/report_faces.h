// The COM classes of the reports, as the IDL has them.
#pragma once

#include <type_traits>

#include "com/caixa_base.h"
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
#include "reports/documents/documento_rpt.h"
#include "reports/documents/log_rpt.h"
#include "reports/documents/solicitacao_rpt.h"
#include "reports/modules/caixa_rpt.h"
#include "reports/modules/container_rpt.h"
#include "reports/statistics/estat_img_rpt.h"
#include "reports/statistics/estat_index_rpt.h"
#include "reports/statistics/estat_serie_rpt.h"
#include "reports/statistics/estat_subgrupo_rpt.h"
#include "reports/statistics/estat_suporte_rpt.h"

namespace kodra::com {

// What a report's face has besides its report methods: the connection string, for CCaixaRpt more.
template <class Class, class Interface, class Report>
using ReportBase =
    std::conditional_t<std::is_same_v<Class, ::CCaixaRpt>, CaixaBase, ReportFace<Class, Interface, Report>>;

#define KODRA_REPORT_CLASS(NAME, METHODS)                                      \
  class NAME##Face final : public ReportBase<::NAME, I##NAME, reports::NAME> { \
   public:                                                                     \
    METHODS                                                                    \
  };
#define KODRA_REPORT_METHOD(CLASS, NAME)                                       \
  STDMETHODIMP NAME(IDispatch* obj, IDispatch** recordset) noexcept override { \
    return Rows(&reports::CLASS::NAME, obj, recordset);                        \
  }
#include "idl/public_classes.def"

}  // namespace kodra::com
