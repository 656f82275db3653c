#include "reports/catalog/tipo_midia_rpt.h"

namespace kodra::reports {
namespace {

constexpr CatalogList kList = {
    .columns = L"DESCR_MIDIA, VALIDADE_MIDIA, CAPACIDADE_MIDIA",
    .from = L"TIPO_MIDIA",
    .orderBy = L"DESCR_MIDIA",
};

}  // namespace

frame::ReportRows CTipo_MidiaRpt::RelatorioTiposMidia(AutomationObject* obj) {
  return ListWhole(L"RelatorioTiposMidia", obj, kListStatement<kList>);
}

}  // namespace kodra::reports
