// The list of report methods.
#include "console/reports/report_methods.h"

#include <algorithm>
#include <array>

#include "reports/catalog/cd_rpt.h"
#include "reports/catalog/deposito_rpt.h"
#include "reports/catalog/depto_rpt.h"
#include "reports/catalog/dicionario_rpt.h"
#include "reports/catalog/grupo_operador_rpt.h"
#include "reports/catalog/grupo_rpt.h"
#include "reports/catalog/modelo_rpt.h"
#include "reports/catalog/operador_rpt.h"
#include "reports/catalog/serie_rpt.h"
#include "reports/catalog/subgrupo_rpt.h"
#include "reports/catalog/suporte_rpt.h"
#include "reports/catalog/tipo_caixa_rpt.h"
#include "reports/catalog/tipo_midia_rpt.h"
#include "reports/documents/documento_rpt.h"
#include "reports/documents/log_rpt.h"
#include "reports/documents/solicitacao_rpt.h"
#include "reports/modules/caixa_rpt.h"
#include "reports/modules/container_rpt.h"
#include "reports/statistics/estat_img_rpt.h"
#include "reports/statistics/estat_index_rpt.h"
#include "reports/statistics/estat_serie_rpt.h"
#include "reports/statistics/estat_subgrupo_rpt.h"
#include "reports/statistics/estat_suporte_rpt.h"

namespace kodra::reports {
namespace {

template <class Report, frame::ReportRows (Report::*kMethod)(AutomationObject*)>
frame::ReportRows CallOn(platform::Surroundings& surroundings, const std::wstring& connectionString,
                         AutomationObject* obj) {
  Report report(surroundings);
  report.SetStringConexao(connectionString);
  return (report.*kMethod)(obj);
}

// An entry; a report's parameter class is named after the report.
#define KODRA_METHOD(report, method) \
  ReportMethod { L## #report, L## #method, L## #report L"Obj", &CallOn<report, &report::method> }

constexpr auto kMethods = std::to_array<ReportMethod>({
    KODRA_METHOD(CCDRpt, RelatorioMidias),
    KODRA_METHOD(CTipo_MidiaRpt, RelatorioTiposMidia),
    KODRA_METHOD(CSuporteRpt, RelatorioSuportes),
    KODRA_METHOD(CSerieRpt, RelatorioSeries),
    KODRA_METHOD(CDepositoRpt, RelatorioDepositos),
    KODRA_METHOD(CDicionarioRpt, RelatorioTermosControlados),
    KODRA_METHOD(CDeptoRpt, RelatorioDeptos),
    KODRA_METHOD(CGrupoRpt, RelatorioGrupos),
    KODRA_METHOD(CModeloRpt, RelatorioModelos),
    KODRA_METHOD(CTipo_CaixaRpt, RelatorioTiposModulo),
    KODRA_METHOD(CGrupoOperadorRpt, RelatorioGruposOperadores),
    KODRA_METHOD(CSubgrupoRpt, RelatorioSubgrupos),
    KODRA_METHOD(COperadorRpt, RelatorioOperadores),
    KODRA_METHOD(CDocumentoRpt, RelatorioSintetico),
    KODRA_METHOD(CDocumentoRpt, RelatorioAnalitico),
    KODRA_METHOD(CDocumentoRpt, RelatorioInventarios),
    KODRA_METHOD(CSolicitacaoRpt, RelatorioRetiradaOriginal),
    KODRA_METHOD(CSolicitacaoRpt, RelatorioDevolucaoOriginal),
    KODRA_METHOD(CLogRpt, RelatorioLog),
    KODRA_METHOD(CCaixaRpt, EtiquetaAbertura),
    KODRA_METHOD(CCaixaRpt, EtiquetaFechamento),
    KODRA_METHOD(CCaixaRpt, EtiquetaFechamentoSubordinada),
    KODRA_METHOD(CCaixaRpt, EtiquetaDivisoria),
    KODRA_METHOD(CCaixaRpt, ModulosExcluidos),
    KODRA_METHOD(CCaixaRpt, ModulosVencidos),
    KODRA_METHOD(CCaixaRpt, DocsNoModulo),
    KODRA_METHOD(CCaixaRpt, DocsNoModuloSubRpt),
    KODRA_METHOD(CCaixaRpt, DocsNaoIndexadosNosModulos),
    KODRA_METHOD(CCaixaRpt, RelatoriosModulos),
    KODRA_METHOD(CCaixaRpt, AutorizacaoDescarteModuloSubRpt),
    KODRA_METHOD(CContainerRpt, RelatorioContainers),
    KODRA_METHOD(CContainerRpt, EtiquetaAbertura),
    KODRA_METHOD(CContainerRpt, EtiquetaAberturaSubRpt),
    KODRA_METHOD(CEstatImgRpt, RelatorioEstatisticas),
    KODRA_METHOD(CEstatIndexRpt, RelatorioEstatisticasPorDocumento),
    KODRA_METHOD(CEstatIndexRpt, RelatorioEstatisticasPorPalavrasChave),
    KODRA_METHOD(CEstatSuporteRpt, RelatorioEstatisticas),
    KODRA_METHOD(CEstatSubgrupoRpt, RelatorioEstatisticas),
    KODRA_METHOD(CEstatSerieRpt, RelatorioEstatisticas),
});

#undef KODRA_METHOD

}  // namespace

std::span<const ReportMethod> ReportMethods() { return kMethods; }

const ReportMethod* FindReportMethod(std::wstring_view className, std::wstring_view method) {
  const auto found = std::ranges::find_if(
      kMethods, [&](const ReportMethod& entry) { return entry.className == className && entry.method == method; });
  return found == kMethods.end() ? nullptr : &*found;
}

}  // namespace kodra::reports
