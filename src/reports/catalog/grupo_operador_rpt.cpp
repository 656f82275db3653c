#include "reports/catalog/grupo_operador_rpt.h"

namespace kodra::reports {

frame::ReportRows CGrupoOperadorRpt::RelatorioGruposOperadores(platform::AutomationObject* obj) {
  return ListWhole(L"RelatorioGruposOperadores", obj,
                   {
                       .columns = L"DESCR_GRPOP, OBS_GRPOP",
                       .from = L"GRUPOS_OPERADORES",
                       .orderBy = L"DESCR_GRPOP",
                   });
}

}  // namespace kodra::reports
