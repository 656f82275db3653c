#include "client/guide/guide.h"

#include <array>

namespace kodra::client::guide {
namespace {

constexpr auto kReports = std::to_array<Report>({
    {"CCDRpt", "RelatorioMidias", "As mídias, todas ou só as vencidas"},
    {"CTipo_MidiaRpt", "RelatorioTiposMidia", "Os tipos de mídia, com validade e capacidade"},
    {"CSuporteRpt", "RelatorioSuportes", "Os suportes dos documentos"},
    {"CSerieRpt", "RelatorioSeries", "As séries por grupo e subgrupo, com as suas chaves"},
    {"CDepositoRpt", "RelatorioDepositos", "Os depósitos, com endereço e contato"},
    {"CDicionarioRpt", "RelatorioTermosControlados", "Os termos controlados das chaves de cada série"},
    {"CDeptoRpt", "RelatorioDeptos", "Os departamentos, com endereço"},
    {"CGrupoRpt", "RelatorioGrupos", "Os grupos da classificação"},
    {"CModeloRpt", "RelatorioModelos", "Os modelos de documento, todos ou um só"},
    {"CTipo_CaixaRpt", "RelatorioTiposModulo", "Os tipos de módulo, com a sua capacidade"},
    {"CGrupoOperadorRpt", "RelatorioGruposOperadores", "Os grupos de operadores"},
    {"CSubgrupoRpt", "RelatorioSubgrupos", "Os subgrupos da classificação, por grupo"},
    {"COperadorRpt", "RelatorioOperadores", "Os operadores, com departamento, grupo, tipo e ramal"},
    {"CDocumentoRpt", "RelatorioSintetico", "Os documentos em resumo: suporte, lugar, datas, folhas"},
    {"CDocumentoRpt", "RelatorioAnalitico", "Os documentos em detalhe: classificação, chaves, arquivo"},
    {"CDocumentoRpt", "RelatorioInventarios", "Os documentos de inventário, com as chaves e as suas legendas"},
    {"CSolicitacaoRpt", "RelatorioRetiradaOriginal", "A guia de retirada dos originais de solicitações"},
    {"CSolicitacaoRpt", "RelatorioDevolucaoOriginal", "Os originais retirados ou já devolvidos"},
    {"CLogRpt", "RelatorioLog", "Os eventos do registro, por período, operador e tipo"},
    {"CCaixaRpt", "EtiquetaAbertura", "As etiquetas de abertura de até três módulos"},
    {"CCaixaRpt", "EtiquetaFechamento", "As etiquetas de fechamento de até três módulos"},
    {"CCaixaRpt", "EtiquetaFechamentoSubordinada", "As etiquetas de fechamento dos módulos subordinados de um módulo"},
    {"CCaixaRpt", "EtiquetaDivisoria", "As etiquetas divisórias dos documentos de um módulo"},
    {"CCaixaRpt", "ModulosExcluidos", "Os módulos cujo conteúdo foi descartado"},
    {"CCaixaRpt", "ModulosVencidos", "Os módulos que chegaram ao prazo de descarte"},
    {"CCaixaRpt", "DocsNoModulo", "O cabeçalho de um módulo: lugar, depósito e prazos"},
    {"CCaixaRpt", "DocsNoModuloSubRpt", "Os códigos dos documentos de um módulo"},
    {"CCaixaRpt", "DocsNaoIndexadosNosModulos", "Quantos documentos sem série há em cada módulo"},
    {"CCaixaRpt", "RelatoriosModulos", "Todos os módulos, com o seu lugar"},
    {"CCaixaRpt", "AutorizacaoDescarteModuloSubRpt",
     "Os documentos de um módulo com totais, para autorizar o descarte"},
    {"CContainerRpt", "RelatorioContainers", "Os containers"},
    {"CContainerRpt", "EtiquetaAbertura", "As etiquetas de até três containers"},
    {"CContainerRpt", "EtiquetaAberturaSubRpt", "Os módulos de um container, para a sua etiqueta"},
    {"CEstatImgRpt", "RelatorioEstatisticas", "A produção da digitalização em um período"},
    {"CEstatIndexRpt", "RelatorioEstatisticasPorDocumento", "Os documentos indexados em um período"},
    {"CEstatIndexRpt", "RelatorioEstatisticasPorPalavrasChave", "Os totais de palavras-chave que o cliente contou"},
    {"CEstatSuporteRpt", "RelatorioEstatisticas", "Os documentos, folhas ou páginas armazenados, por suporte"},
    {"CEstatSubgrupoRpt", "RelatorioEstatisticas", "Os documentos, folhas ou páginas armazenados, por subgrupo"},
    {"CEstatSerieRpt", "RelatorioEstatisticas", "Os totais armazenados por série de um grupo"},
});

}  // namespace

std::span<const Report> Reports() { return kReports; }

const Report& About(const reports::ReportMethod& method) {
  return kReports[static_cast<std::size_t>(&method - reports::ReportMethods().data())];
}

std::string NameOf(const Report& report) { return std::string(report.className) + "." + std::string(report.method); }

}  // namespace kodra::client::guide
