#include "reports/catalog/depto_rpt.h"

namespace kodra::reports {
namespace {

constexpr CatalogList kList = {
    .columns = L"DESCR_DEPTO, ENDERECO, CIDADE, ESTADO, CEP, END_EMAIL",
    .from = L"DEPTO",
    .orderBy = L"DESCR_DEPTO",
};

}  // namespace

frame::ReportRows CDeptoRpt::RelatorioDeptos(AutomationObject* obj) {
  return ListWhole(L"RelatorioDeptos", obj, kListStatement<kList>);
}

}  // namespace kodra::reports
