#include "reports/catalog/grupo_operador_rpt.h"

namespace kodra::reports {
namespace {

constexpr CatalogList kList = {
    .columns = L"DESCR_GRPOP, OBS_GRPOP",
    .from = L"GRUPOS_OPERADORES",
    .orderBy = L"DESCR_GRPOP",
};

}  // namespace

frame::ReportRows CGrupoOperadorRpt::RelatorioGruposOperadores(AutomationObject* obj) {
  return ListWhole(L"RelatorioGruposOperadores", obj, kListStatement<kList>);
}

}  // namespace kodra::reports
