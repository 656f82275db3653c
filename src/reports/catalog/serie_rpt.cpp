#include "reports/catalog/serie_rpt.h"

#include "data/connection_string.h"
#include "text/numbers.h"

namespace kodra::reports {
namespace {

// Whether a key must be filled, as a column; # stands for the key's number.
constexpr std::wstring_view kMandatoryColumn =
    L"CASE "
    L"WHEN a.DESCR_CHAVE# IS NULL OR a.DESCR_CHAVE#='' THEN '' "
    L"WHEN a.OBRIGATORIA# IN ('1','S','T','Y') THEN 'S' "
    L"ELSE 'N' "
    L"END AS OBRIGATORIA#, ";

std::wstring Columns() {
  std::wstring columns =
      L"c.DESCR_CLASSE, "
      L"g.DESCR_GRUPO, "
      L"a.DESCR_ASSUNTO, a.OBS_ASSUNTO, a.DONO, a.IDC_ATIVO AS SERIE_ATIVA, "
      L"a.DESCR_CHAVE1, a.DESCR_CHAVE2, a.DESCR_CHAVE3, a.DESCR_CHAVE4, a.DESCR_CHAVE5, "
      L"'S' AS OBRIGATORIA1, ";
  for (int i = 2; i <= 5; ++i) columns += data::Replace(kMandatoryColumn, L"#", text::NumberToText(i));
  columns +=
      L"a.MASK1, a.MASK2, a.MASK3, a.MASK4, a.MASK5, "
      L"o.DESCR_OPERADOR, "
      L"p.NOMEGRUPO, p.NOMESUBGRUPO, p.NOMESERIE, p.NOMESERIEPLURAL ";
  return columns;
}

}  // namespace

frame::ReportRows CSerieRpt::RelatorioSeries(platform::AutomationObject* obj) {
  return ListWhole(L"RelatorioSeries", obj,
                   {
                       .columns = Columns(),
                       .from = L"ASSUNTO a",
                       .joins = {{kInner, L"GRUPO g", L"a.COD_GRUPO = g.COD_GRUPO"},
                                 {kLeftOuter, L"OPERADOR o", L"a.DONO = o.COD_OPERADOR"},
                                 {kInner, L"CLASSE c", L"g.COD_CLASSE = c.COD_CLASSE"},
                                 {kInner, L"PARAMETRO p", L"p.CODIGO = '1'"}},
                       .orderBy = L"c.DESCR_CLASSE, g.DESCR_GRUPO, a.DESCR_ASSUNTO",
                   });
}

}  // namespace kodra::reports
