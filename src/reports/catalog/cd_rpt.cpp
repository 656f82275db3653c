#include "reports/catalog/cd_rpt.h"

#include "frame/parameter_reader.h"
#include "sql/tradutor_sql.h"

namespace kodra::reports {
namespace {

bool WantsExpired(AutomationObject& parameters) { return frame::ReadText(parameters, L"TipoRpt") == L"V"; }

}  // namespace

frame::ReportRows CCDRpt::RelatorioMidias(AutomationObject* obj) {
  return Report(L"RelatorioMidias", [&] {
    InicializaPS(obj);
    data::SelectBuilder builder = NewBuilder();
    const bool expiredOnly = WantsExpired(*obj);
    if (expiredOnly)
      builder.SetColumns(L"NUM_CD, DOC_INICIAL, DOC_FINAL, DATA_GRAVACAO, 'Mídias Vencidas' AS RELATORIO ");
    else
      builder.SetColumns(L"NUM_CD, DOC_INICIAL, DOC_FINAL, DATA_GRAVACAO, 'Todas as Mídias' AS RELATORIO ");
    builder.SetFrom(L"CD");
    if (expiredOnly)
      builder.SetWhere(sql::SQLDateAdd(L"A", L"t.VALIDADE_MIDIA", L"DATA_GRAVACAO"), L" <= ", sql::SQLDataAtual());
    // Asked again: the answer of a client's own object may have changed.
    if (WantsExpired(*obj)) builder.AddJoin(0, data::JoinKind::kInner, L"TIPO_MIDIA t", L"CD.COD_MIDIA=t.COD_MIDIA");
    builder.SetOrderBy(L"NUM_CD");
    return Open(builder.SQL());
  });
}

}  // namespace kodra::reports
