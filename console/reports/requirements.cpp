#include "console/reports/requirements.h"

#include <algorithm>
#include <array>

namespace kodra::console {
namespace {

// The captions of a series' five keys, or their values in a document.
#define KODRA_KEYS L"DESCR_CHAVE1 DESCR_CHAVE2 DESCR_CHAVE3 DESCR_CHAVE4 DESCR_CHAVE5"

constexpr std::wstring_view kNone;
constexpr std::wstring_view kModules = L"KodraBsnV3.ModulosBsn";

// The settings come all at once, whichever is asked for.
constexpr std::wstring_view kSettings =
    L"PARAMETRO: CODIGO NOMEGRUPO NOMESUBGRUPO NOMESERIE NOMESERIEPLURAL MINUTOS_BLOQUEIO MAX_DIAS_SENHA "
    L"TESTAR_QUALIDADE_SENHA USAR_AD TAMANHO_MAXIMO_ARQUIVO";

constexpr auto kRequirements = std::to_array<Requirement>({
    {L"CCDRpt", L"RelatorioMidias",
     L"CD: NUM_CD DOC_INICIAL DOC_FINAL DATA_GRAVACAO COD_MIDIA; TIPO_MIDIA: COD_MIDIA VALIDADE_MIDIA", kNone, kNone},
    {L"CTipo_MidiaRpt", L"RelatorioTiposMidia", L"TIPO_MIDIA: DESCR_MIDIA VALIDADE_MIDIA CAPACIDADE_MIDIA", kNone,
     kNone},
    {L"CSuporteRpt", L"RelatorioSuportes", L"SUPORTE: DESCR_SUPORTE", kNone, kNone},
    {L"CSerieRpt", L"RelatorioSeries",
     L"ASSUNTO: COD_GRUPO DESCR_ASSUNTO OBS_ASSUNTO DONO "
     L"IDC_ATIVO " KODRA_KEYS L" OBRIGATORIA2 OBRIGATORIA3 OBRIGATORIA4 OBRIGATORIA5 MASK1 MASK2 MASK3 MASK4 MASK5; "
     L"GRUPO: COD_GRUPO DESCR_GRUPO COD_CLASSE; OPERADOR: COD_OPERADOR DESCR_OPERADOR; "
     L"CLASSE: COD_CLASSE DESCR_CLASSE; PARAMETRO: CODIGO NOMEGRUPO NOMESUBGRUPO NOMESERIE NOMESERIEPLURAL",
     kNone, kNone},
    {L"CDepositoRpt", L"RelatorioDepositos", L"DEPOSITO: NOME ENDERECO CIDADE ESTADO CEP TELEFONE FAX CONTATO", kNone,
     kNone},
    {L"CDicionarioRpt", L"RelatorioTermosControlados",
     L"DICIONARIO: COD_ASSUNTO COD_PALAVRA DESCR_DICIONARIO; "
     L"ASSUNTO: COD_ASSUNTO COD_GRUPO DESCR_ASSUNTO " KODRA_KEYS L"; GRUPO: COD_GRUPO DESCR_GRUPO",
     kNone, kNone},
    {L"CDeptoRpt", L"RelatorioDeptos", L"DEPTO: DESCR_DEPTO ENDERECO CIDADE ESTADO CEP END_EMAIL", kNone, kNone},
    {L"CGrupoRpt", L"RelatorioGrupos", L"CLASSE: DESCR_CLASSE OBS_CLASSE", kNone, kNone},
    {L"CModeloRpt", L"RelatorioModelos",
     L"MODELO: COD_MODELO COD_GRUPO COD_ASSUNTO CHAVE1 CHAVE2 CHAVE3 CHAVE4 CHAVE5 VALIDADE; "
     L"GRUPO: COD_GRUPO COD_CLASSE DESCR_GRUPO; CLASSE: COD_CLASSE DESCR_CLASSE; "
     L"ASSUNTO: COD_ASSUNTO DESCR_ASSUNTO " KODRA_KEYS,
     kNone, kNone},
    {L"CTipo_CaixaRpt", L"RelatorioTiposModulo", L"TIPO_CAIXA: COD_TIPO_CX DESCR_TIPO_CX NUM_MAX_DOCS NUM_MAX_FOLHAS",
     kNone, kNone},
    {L"CGrupoOperadorRpt", L"RelatorioGruposOperadores", L"GRUPOS_OPERADORES: DESCR_GRPOP OBS_GRPOP", kNone, kNone},
    {L"CSubgrupoRpt", L"RelatorioSubgrupos",
     L"GRUPO: COD_CLASSE DESCR_GRUPO OBS_GRUPO IDC_ATIVO; CLASSE: COD_CLASSE DESCR_CLASSE", kNone, kNone},
    {L"COperadorRpt", L"RelatorioOperadores",
     L"OPERADOR: COD_DEPTO COD_GRPOP DESCR_OPERADOR NOME_COMPLETO TIPO CHAPA RAMAL IDC_ATIVO OPCOES_PESSOAIS; "
     L"DEPTO: COD_DEPTO DESCR_DEPTO; GRUPOS_OPERADORES: COD_GRPOP DESCR_GRPOP",
     kNone, L"KodraBsnV3.ObtedorDeTiposOperadores"},
    {L"CDocumentoRpt", L"RelatorioSintetico",
     L"DOCUMENTO: COD_DOCTO COD_SUPORTE COD_DEPTO NUM_CAIXA NUM_CD DT_ARMAZ DT_VENC FRENTE VERSO; "
     L"SUPORTE: COD_SUPORTE DESCR_SUPORTE",
     kNone, kNone},
    {L"CDocumentoRpt", L"RelatorioAnalitico",
     L"DOCUMENTO: COD_DOCTO COD_SUPORTE COD_OPERADOR COD_ASSUNTO COD_GRUPO "
     L"COD_DEPTO " KODRA_KEYS L" DT_ARMAZ ARQUIVO OBS FRENTE NUM_CAIXA DT_VENC VERSO NUM_CD; "
     L"SUPORTE: COD_SUPORTE DESCR_SUPORTE; OPERADOR: COD_OPERADOR DESCR_OPERADOR; "
     L"ASSUNTO: COD_ASSUNTO DESCR_ASSUNTO; GRUPO: COD_GRUPO DESCR_GRUPO",
     kNone, kNone},
    {L"CDocumentoRpt", L"RelatorioInventarios",
     L"DOCUMENTO: COD_DOCTO COD_ASSUNTO COD_GRUPO COD_DEPTO NUM_CAIXA MACO "
     L"DT_"
     L"ARMAZ"
     L" " KODRA_KEYS L" OBS EXTENSAO; ASSUNTO: COD_ASSUNTO DESCR_ASSUNTO " KODRA_KEYS L"; GRUPO: COD_GRUPO DESCR_GRUPO",
     kNone, kNone},
    {L"CSolicitacaoRpt", L"RelatorioRetiradaOriginal",
     L"SOLICITACAO: COD_SOLICIT COD_DOCTO COD_OPERADOR DEVOLVIDO DT_DEVOLUCAO OBS_SOLICIT; "
     L"DOCUMENTO: COD_DOCTO NUM_CAIXA; CAIXA: NUM_CAIXA COORD_X COORD_Y COORD_Z; "
     L"OPERADOR: COD_OPERADOR NOME_COMPLETO DESCR_OPERADOR",
     kNone, L"VantLib.Conversoes"},
    {L"CSolicitacaoRpt", L"RelatorioDevolucaoOriginal",
     L"SOLICITACAO: COD_DOCTO COD_OPERADOR DT_RETIRADA DEVOLVIDO DT_DEVOLUCAO; "
     L"OPERADOR: COD_OPERADOR NOME_COMPLETO DESCR_OPERADOR",
     kNone, kNone},
    {L"CLogRpt", L"RelatorioLog", kNone,
     L"EVENTO: COD_EVENTO DATA_INICIAL NOME_OPERADOR MAQUINA COD_DOCTO TIPO_EVENTO ACAO",
     L"KodraRegEvt.RegEvtFind KodraRegEvt.RegEvtDAO"},
    {L"CCaixaRpt", L"EtiquetaAbertura",
     L"CAIXA: NUM_CAIXA DESC_CAIXA TIPO_GUARDA ANOS_VENCIMENTO; "
     L"CAIXA_SUBORDINADA: NUM_CAIXA NUM_SEQ TIPO_GUARDA ANOS_VENCIMENTO",
     kNone, kModules},
    {L"CCaixaRpt", L"EtiquetaFechamento",
     L"CAIXA: NUM_CAIXA DESC_CAIXA DOC_INICIAL DOC_FINAL DATA_VENCIMENTO TIPO_GUARDA; PARAMETRO: CODIGO EMPRESA", kNone,
     kNone},
    {L"CCaixaRpt", L"EtiquetaFechamentoSubordinada",
     L"CAIXA: NUM_CAIXA DESC_CAIXA; "
     L"CAIXA_SUBORDINADA: NUM_CAIXA NUM_SEQ DOC_INICIAL DOC_FINAL DATA_VENCIMENTO TIPO_GUARDA; "
     L"PARAMETRO: CODIGO EMPRESA",
     L"CAIXA: NUM_CAIXA; CAIXA_SUBORDINADA: NUM_CAIXA NUM_SEQ DOC_INICIAL DOC_FINAL DATA_VENCIMENTO DATA_FECHAMENTO "
     L"TIPO_GUARDA ANOS_VENCIMENTO",
     L"VantLog.FnLog KodraBsnV3.ModulosBsn KodraBsnV3.ModulosFiltro "
     L"KodraBsnV3.ObtedorDeModulos"},
    {L"CCaixaRpt", L"EtiquetaDivisoria", L"DOCUMENTO: COD_DOCTO NUM_CAIXA", kNone, kNone},
    {L"CCaixaRpt", L"ModulosExcluidos",
     L"CAIXA: NUM_CAIXA DESC_CAIXA DOC_INICIAL DOC_FINAL DATA_VENCIMENTO DATA_FECHAMENTO TIPO_GUARDA COD_DEPTO "
     L"DOCS_PREGRESSOS; "
     L"CAIXA_SUBORDINADA: NUM_CAIXA NUM_SEQ DOC_INICIAL DOC_FINAL DATA_VENCIMENTO DATA_FECHAMENTO TIPO_GUARDA",
     kNone, kModules},
    {L"CCaixaRpt", L"ModulosVencidos",
     L"CAIXA: NUM_CAIXA DESC_CAIXA DOC_INICIAL DOC_FINAL DATA_VENCIMENTO DATA_FECHAMENTO TIPO_GUARDA ANOS_VENCIMENTO "
     L"COD_DEPTO DOCS_PREGRESSOS; "
     L"CAIXA_SUBORDINADA: NUM_CAIXA NUM_SEQ DOC_INICIAL DOC_FINAL DATA_VENCIMENTO DATA_FECHAMENTO TIPO_GUARDA "
     L"ANOS_VENCIMENTO; "
     L"DEPTO: COD_DEPTO DESCR_DEPTO; DOCUMENTO: NUM_CAIXA FRENTE",
     kNone, kModules},
    {L"CCaixaRpt", L"DocsNoModulo",
     L"CAIXA: NUM_CAIXA DESC_CAIXA OBS_CAIXA DOC_INICIAL DOC_FINAL DATA_VENCIMENTO DATA_FECHAMENTO COORD_X COORD_Y "
     L"COORD_Z CONTAINER COD_DEPOSITO COD_DEPTO; "
     L"CAIXA_SUBORDINADA: NUM_CAIXA NUM_SEQ DOC_INICIAL DOC_FINAL; CONTAINER: NUM_CONTAINER DESC_CONTAINER; "
     L"DEPOSITO: COD_DEPOSITO NOME ENDERECO CIDADE ESTADO TELEFONE CONTATO",
     kNone, kModules},
    {L"CCaixaRpt", L"DocsNoModuloSubRpt", L"DOCUMENTO: COD_DOCTO NUM_CAIXA", kNone, kNone},
    {L"CCaixaRpt", L"DocsNaoIndexadosNosModulos",
     L"CAIXA: NUM_CAIXA DESC_CAIXA COD_DEPTO; DOCUMENTO: NUM_CAIXA COD_ASSUNTO", kNone, kNone},
    {L"CCaixaRpt", L"RelatoriosModulos",
     L"CAIXA: NUM_CAIXA DESC_CAIXA DOC_INICIAL DOC_FINAL DATA_VENCIMENTO DATA_FECHAMENTO COORD_X COORD_Y COORD_Z "
     L"CONTAINER TIPO_GUARDA COD_DEPTO DOCS_PREGRESSOS; "
     L"CAIXA_SUBORDINADA: NUM_CAIXA NUM_SEQ DOC_INICIAL DOC_FINAL DATA_VENCIMENTO DATA_FECHAMENTO TIPO_GUARDA; "
     L"CONTAINER: NUM_CONTAINER DESC_CONTAINER",
     kNone, kModules},
    {L"CCaixaRpt", L"AutorizacaoDescarteModuloSubRpt", L"DOCUMENTO: COD_DOCTO NUM_CAIXA FRENTE VERSO", kNone,
     L"VantLog.FnLog"},
    {L"CContainerRpt", L"RelatorioContainers", L"CONTAINER: NUM_CONTAINER DESC_CONTAINER", kNone, kNone},
    {L"CContainerRpt", L"EtiquetaAbertura", L"CAIXA: CONTAINER DATA_VENCIMENTO TIPO_GUARDA; PARAMETRO: EMPRESA", kNone,
     L"VantLib.Conversoes"},
    {L"CContainerRpt", L"EtiquetaAberturaSubRpt", L"CAIXA: CONTAINER NUM_CAIXA", kNone, kNone},
    {L"CEstatImgRpt", L"RelatorioEstatisticas",
     L"DOCUMENTO: COD_DOCTO COD_SUPORTE COD_OPERADOR COD_DEPTO NUM_CAIXA DT_ARMAZ FRENTE VERSO; "
     L"SUPORTE: COD_SUPORTE DESCR_SUPORTE; OPERADOR: COD_OPERADOR DESCR_OPERADOR; DEPTO: COD_DEPTO DESCR_DEPTO; "
     L"PARAMETRO: CODIGO EMPRESA",
     kNone, kNone},
    {L"CEstatIndexRpt", L"RelatorioEstatisticasPorDocumento",
     L"DOCUMENTO: COD_DOCTO COD_INDEXADOR COD_DEPTO DATA_INDEXACAO; OPERADOR: COD_OPERADOR DESCR_OPERADOR; "
     L"DEPTO: COD_DEPTO DESCR_DEPTO; PARAMETRO: CODIGO EMPRESA",
     kNone, kNone},
    {L"CEstatIndexRpt", L"RelatorioEstatisticasPorPalavrasChave", L"PARAMETRO: CODIGO EMPRESA", kNone, kNone},
    {L"CEstatSuporteRpt", L"RelatorioEstatisticas",
     L"DOCUMENTO: COD_DOCTO COD_SUPORTE DT_ARMAZ FRENTE VERSO; SUPORTE: COD_SUPORTE DESCR_SUPORTE", kNone, kNone},
    {L"CEstatSubgrupoRpt", L"RelatorioEstatisticas",
     L"DOCUMENTO: COD_DOCTO COD_GRUPO DT_ARMAZ FRENTE VERSO; GRUPO: COD_GRUPO DESCR_GRUPO", kSettings,
     L"KodraParamSist.Obtedor"},
    {L"CEstatSerieRpt", L"RelatorioEstatisticas",
     L"ASSUNTO: COD_ASSUNTO COD_GRUPO DESCR_ASSUNTO; GRUPO: COD_GRUPO DESCR_GRUPO; "
     L"DOCUMENTO: COD_ASSUNTO DT_ARMAZ FRENTE",
     kSettings, L"KodraParamSist.Obtedor"},
});

#undef KODRA_KEYS

}  // namespace

std::span<const Requirement> Requirements() { return kRequirements; }

std::vector<std::wstring> WordsIn(std::wstring_view list) {
  std::vector<std::wstring> words;
  for (std::size_t at = list.find_first_not_of(L' '); at < list.size();) {
    const std::size_t end = std::min(list.find(L' ', at), list.size());
    words.emplace_back(list.substr(at, end - at));
    at = list.find_first_not_of(L' ', end);
  }
  return words;
}

std::vector<TableNeed> TablesIn(std::wstring_view list) {
  std::vector<TableNeed> tables;
  for (std::size_t at = 0; at < list.size();) {
    const std::size_t end = std::min(list.find(L';', at), list.size());
    const std::wstring_view entry = list.substr(at, end - at);
    const std::size_t colon = entry.find(L':');
    tables.push_back({WordsIn(entry.substr(0, colon)).front(), WordsIn(entry.substr(colon + 1))});
    at = end + 1;
  }
  return tables;
}

}  // namespace kodra::console
