#include "reports/catalog/grupo_rpt.h"

namespace kodra::reports {
namespace {

constexpr CatalogList kList = {
    .columns = L"DESCR_CLASSE, OBS_CLASSE",
    .from = L"CLASSE",
    .orderBy = L"DESCR_CLASSE",
};

}  // namespace

frame::ReportRows CGrupoRpt::RelatorioGrupos(AutomationObject* obj) {
  return ListWhole(L"RelatorioGrupos", obj, kListStatement<kList>);
}

}  // namespace kodra::reports
