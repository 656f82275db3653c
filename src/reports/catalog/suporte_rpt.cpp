#include "reports/catalog/suporte_rpt.h"

namespace kodra::reports {

frame::ReportRows CSuporteRpt::RelatorioSuportes(platform::AutomationObject* obj) {
  return ListWhole(L"RelatorioSuportes", obj,
                   {
                       .columns = L"DESCR_SUPORTE",
                       .from = L"SUPORTE",
                       .orderBy = L"DESCR_SUPORTE",
                   });
}

}  // namespace kodra::reports
