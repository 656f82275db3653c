#include "reports/catalog/tipo_caixa_rpt.h"

namespace kodra::reports {
namespace {

constexpr CatalogList kList = {
    .columns = L"DESCR_TIPO_CX, NUM_MAX_DOCS, NUM_MAX_FOLHAS",
    .from = L"TIPO_CAIXA",
    .where = L"COD_TIPO_CX<>'0'",  // a reserved row
    .orderBy = L"DESCR_TIPO_CX",
};

}  // namespace

frame::ReportRows CTipo_CaixaRpt::RelatorioTiposModulo(AutomationObject* obj) {
  return ListWhole(L"RelatorioTiposModulo", obj, kListStatement<kList>);
}

}  // namespace kodra::reports
