#include "reports/catalog/dicionario_rpt.h"

namespace kodra::reports {
namespace {

using enum data::JoinKind;

constexpr CatalogList kList = {
    .columns =
        L"g.DESCR_GRUPO, a.DESCR_ASSUNTO, d.COD_PALAVRA, "
        L"a.DESCR_CHAVE1, a.DESCR_CHAVE2, a.DESCR_CHAVE3, a.DESCR_CHAVE4, a.DESCR_CHAVE5, "
        L"d.DESCR_DICIONARIO",
    .from = L"DICIONARIO d",
    .joins = {{kInner, L"ASSUNTO a", L"d.COD_ASSUNTO = a.COD_ASSUNTO"},
              {kInner, L"GRUPO g", L"a.COD_GRUPO = g.COD_GRUPO"}},
    .orderBy =
        L"g.DESCR_GRUPO, a.DESCR_ASSUNTO, "
        L"a.DESCR_CHAVE1, a.DESCR_CHAVE2, a.DESCR_CHAVE3, a.DESCR_CHAVE4, a.DESCR_CHAVE5, "
        L"d.DESCR_DICIONARIO",
};

}  // namespace

frame::ReportRows CDicionarioRpt::RelatorioTermosControlados(AutomationObject* obj) {
  return ListWhole(L"RelatorioTermosControlados", obj, kListStatement<kList>);
}

}  // namespace kodra::reports
