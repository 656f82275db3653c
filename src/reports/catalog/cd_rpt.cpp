#include "reports/catalog/cd_rpt.h"

#include "frame/parameter_reader.h"
#include "sql/tradutor_sql.h"

namespace kodra::reports {
namespace {

bool WantsExpired(platform::AutomationObject& parameters) { return frame::ReadText(parameters, L"TipoRpt") == L"V"; }

}  // namespace

frame::ReportRows CCDRpt::RelatorioMidias(platform::AutomationObject* obj) {
  return Report(L"RelatorioMidias", [&] {
    InicializaPS(obj);
    CatalogList list = {.from = L"CD", .orderBy = L"NUM_CD"};
    list.columns = L"NUM_CD, DOC_INICIAL, DOC_FINAL, DATA_GRAVACAO, 'Todas as Mídias' AS RELATORIO ";
    std::wstring expired;
    if (WantsExpired(*obj)) {
      list.columns = L"NUM_CD, DOC_INICIAL, DOC_FINAL, DATA_GRAVACAO, 'Mídias Vencidas' AS RELATORIO ";
      expired = sql::SQLDateAdd(L"A", L"t.VALIDADE_MIDIA", L"DATA_GRAVACAO") + L" <= " + sql::SQLDataAtual();
      list.where = expired;
    }
    // Asked again: the answer of a client's own object may have changed.
    if (WantsExpired(*obj)) list.joins[0] = {kInner, L"TIPO_MIDIA t", L"CD.COD_MIDIA=t.COD_MIDIA"};
    return Open(Statement(list));
  });
}

}  // namespace kodra::reports
