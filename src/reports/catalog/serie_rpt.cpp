#include "reports/catalog/serie_rpt.h"

namespace kodra::reports {
namespace {

// Whether the key `n`, a one-digit literal, must be filled, as a column.
#define MANDATORY_COLUMN(n) \
  L"CASE "                                                           \
  L"WHEN a.DESCR_CHAVE" n L" IS NULL OR a.DESCR_CHAVE" n L"='' THEN '' " \
  L"WHEN a.OBRIGATORIA" n L" IN ('1','S','T','Y') THEN 'S' "         \
  L"ELSE 'N' "                                                       \
  L"END AS OBRIGATORIA" n L", "

constexpr std::wstring_view kColumns =
    L"c.DESCR_CLASSE, "
    L"g.DESCR_GRUPO, "
    L"a.DESCR_ASSUNTO, a.OBS_ASSUNTO, a.DONO, a.IDC_ATIVO AS SERIE_ATIVA, "
    L"a.DESCR_CHAVE1, a.DESCR_CHAVE2, a.DESCR_CHAVE3, a.DESCR_CHAVE4, a.DESCR_CHAVE5, "
    L"'S' AS OBRIGATORIA1, "  // the first key always
    MANDATORY_COLUMN(L"2") MANDATORY_COLUMN(L"3") MANDATORY_COLUMN(L"4") MANDATORY_COLUMN(L"5")
    L"a.MASK1, a.MASK2, a.MASK3, a.MASK4, a.MASK5, "
    L"o.DESCR_OPERADOR, "
    L"p.NOMEGRUPO, p.NOMESUBGRUPO, p.NOMESERIE, p.NOMESERIEPLURAL ";
#undef MANDATORY_COLUMN

using enum data::JoinKind;

constexpr CatalogList kList = {
    .columns = kColumns,
    .from = L"ASSUNTO a",
    .joins = {{kInner, L"GRUPO g", L"a.COD_GRUPO = g.COD_GRUPO"},
              {kLeftOuter, L"OPERADOR o", L"a.DONO = o.COD_OPERADOR"},
              {kInner, L"CLASSE c", L"g.COD_CLASSE = c.COD_CLASSE"},
              {kInner, L"PARAMETRO p", L"p.CODIGO = '1'"}},
    .orderBy = L"c.DESCR_CLASSE, g.DESCR_GRUPO, a.DESCR_ASSUNTO",
};

}  // namespace

frame::ReportRows CSerieRpt::RelatorioSeries(AutomationObject* obj) {
  return ListWhole(L"RelatorioSeries", obj, kListStatement<kList>);
}

}  // namespace kodra::reports
