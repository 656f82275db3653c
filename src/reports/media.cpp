// The media that hold digital copies (table CD): all of them, or those whose validity has expired.
#include "data/select_builder.h"
#include "frame/parameter_reader.h"
#include "reports/reports.h"

namespace kodra::reports {
namespace {

bool WantsExpired(const Call& call) { return frame::ReadText(call.Parameters(), L"TipoRpt") == L"V"; }

}  // namespace

// Reads TipoRpt: "V" lists the media recorded longer ago than their type's validity in years, any other text all media.
frame::ReportRows CCDRpt::RelatorioMidias(Call& call) {
  call.InicializaPS();
  data::SelectBuilder select;
  if (WantsExpired(call)) {
    select.SetColumns(L"NUM_CD, DOC_INICIAL, DOC_FINAL, DATA_GRAVACAO, 'Mídias Vencidas' AS RELATORIO ");
    const std::wstring expiry = call.Sql().DateAdd(L"A", L"t.VALIDADE_MIDIA", L"DATA_GRAVACAO");
    select.SetWhere(expiry + L" <= " + call.Sql().DataAtual());
  } else {
    select.SetColumns(L"NUM_CD, DOC_INICIAL, DOC_FINAL, DATA_GRAVACAO, 'Todas as Mídias' AS RELATORIO ");
  }
  select.SetFrom(L"CD");
  // Asked again: the answer of a client's own object may have changed.
  if (WantsExpired(call)) select.AddJoin(0, data::JoinKind::kInner, L"TIPO_MIDIA t", L"CD.COD_MIDIA=t.COD_MIDIA");
  select.SetOrderBy(L"NUM_CD");
  return call.Open(select.SQL());
}

}  // namespace kodra::reports
