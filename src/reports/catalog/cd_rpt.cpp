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
    std::wstring title = L"Todas as Mídias";
    if (WantsExpired(*obj)) {
      title = L"Mídias Vencidas";
      list.where = sql::SQLDateAdd(L"A", L"t.VALIDADE_MIDIA", L"DATA_GRAVACAO") + L" <= " + sql::SQLDataAtual();
    }
    list.columns = L"NUM_CD, DOC_INICIAL, DOC_FINAL, DATA_GRAVACAO, '" + title + L"' AS RELATORIO ";
    // Asked again: the answer of a client's own object may have changed.
    if (WantsExpired(*obj)) list.joins = {{kInner, L"TIPO_MIDIA t", L"CD.COD_MIDIA=t.COD_MIDIA"}};
    return Open(Statement(list));
  });
}

}  // namespace kodra::reports
