#include "reports/catalog/suporte_rpt.h"

namespace kodra::reports {
namespace {

constexpr CatalogList kList = {
    .columns = L"DESCR_SUPORTE",
    .from = L"SUPORTE",
    .orderBy = L"DESCR_SUPORTE",
};

}  // namespace

frame::ReportRows CSuporteRpt::RelatorioSuportes(AutomationObject* obj) {
  return ListWhole(L"RelatorioSuportes", obj, kListStatement<kList>);
}

}  // namespace kodra::reports
