#include "reports/catalog/subgrupo_rpt.h"

namespace kodra::reports {
namespace {

using enum data::JoinKind;

constexpr CatalogList kList = {
    .columns = L"g.DESCR_CLASSE, sb.DESCR_GRUPO, sb.OBS_GRUPO, sb.IDC_ATIVO",
    .from = L"GRUPO sb",
    .joins = {{kInner, L"CLASSE g", L"g.COD_CLASSE = sb.COD_CLASSE"}},
    .orderBy = L"g.DESCR_CLASSE, sb.DESCR_GRUPO",
};

}  // namespace

frame::ReportRows CSubgrupoRpt::RelatorioSubgrupos(AutomationObject* obj) {
  return ListWhole(L"RelatorioSubgrupos", obj, kListStatement<kList>);
}

}  // namespace kodra::reports
