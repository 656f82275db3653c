// The table of the parameter classes.
#include <algorithm>
#include <array>

#include "frame/parameter_object.h"

namespace kodra::frame {
namespace {

using enum PropertyRule;

constexpr Property kOwner = {L"Owner", kText};
constexpr Property kDataInicial = {L"DataInicial", kDate};
constexpr Property kDataFinal = {L"DataFinal", kDate};
constexpr Property kTipoRpt = {L"TipoRpt", kInitial};
constexpr Property kCodOperador = {L"CodOperador", kTrimmed};
constexpr Property kCodDepto = {L"CodDepto", kTrimmed};

constexpr auto kOwnerOnly = std::to_array<Property>({kOwner});
// Its one-letter TipoRpt starts empty: the series report depends on that.
constexpr auto kEstatSerie =
    std::to_array<Property>({kDataInicial, kDataFinal, kOwner, kTipoRpt, {L"CodGrupo", kText}});
constexpr auto kCD = std::to_array<Property>({kOwner, kTipoRpt});
constexpr auto kContainer =
    std::to_array<Property>({kOwner, {L"Container1", kText}, {L"Container2", kText}, {L"Container3", kText}});
constexpr auto kDocumento = std::to_array<Property>(
    {kOwner, {L"DataArmazenamento1", kDate}, {L"DataArmazenamento2", kDate}, {L"CodDepto", kText}});
constexpr auto kLog = std::to_array<Property>({
    kOwner,
    {L"MaquinaOrigem", kText},
    {L"Operador", kText},
    {L"Acao", kText},
    {L"Evento", kText},
    {L"CodDocto", kText},
    kDataInicial,
    kDataFinal,
});
constexpr auto kModelo = std::to_array<Property>({kOwner, {L"CodModelo", kTrimmed}});
constexpr auto kEstatImg =
    std::to_array<Property>({kOwner, kDataInicial, kDataFinal, kCodOperador, kCodDepto, kTipoRpt});
constexpr auto kEstatIndex = std::to_array<Property>({
    kOwner,
    kCodOperador,
    kCodDepto,
    {L"DescrDepto", kText},
    {L"DescrOperador", kText},
    kDataInicial,
    kDataFinal,
    {L"NumeroPC1", kText},
    {L"NumeroPC2", kText},
    {L"NumeroPC3", kText},
    {L"NumeroPC4", kText},
    {L"NumeroPC5", kText},
    {L"NumeroObs", kText},
});
constexpr auto kEstatPeriodo = std::to_array<Property>({kOwner, kDataInicial, kDataFinal, kTipoRpt});
constexpr auto kSolicitacao = std::to_array<Property>({kOwner, {L"CodSolicit", kText}, {L"ListarJaDevolvidos", kFlag}});
constexpr auto kCaixa = std::to_array<Property>({
    kOwner,
    {L"Modulo1", kText},
    {L"Modulo2", kText},
    {L"Modulo3", kText},
    {L"Ordenacao", kInitial, L"N"},  // by module number
    {L"SomenteExistentes", kFlag},
    {L"Tipo", kInitial},
    {L"CodDepto", kText},
    {L"CodSerie", kText},
    {L"ModoPregresso", kFlag},
});

constexpr auto kClasses = std::to_array<ParameterClass>({
    {L"CEstatSerieRptObj", kEstatSerie},
    {L"CCDRptObj", kCD},
    {L"CTipo_CaixaRptObj", kOwnerOnly},
    {L"CSuporteRptObj", kOwnerOnly},
    {L"CSubgrupoRptObj", kOwnerOnly},
    {L"CSerieRptObj", kOwnerOnly},
    {L"COperadorRptObj", kOwnerOnly},
    {L"CContainerRptObj", kContainer},
    {L"CDepositoRptObj", kOwnerOnly},
    {L"CDicionarioRptObj", kOwnerOnly},
    {L"CDeptoRptObj", kOwnerOnly},
    {L"CDocumentoRptObj", kDocumento},
    {L"CGrupoRptObj", kOwnerOnly},
    {L"CLogRptObj", kLog},
    {L"CModeloRptObj", kModelo},
    {L"CEstatImgRptObj", kEstatImg},
    {L"CEstatIndexRptObj", kEstatIndex},
    {L"CEstatSuporteRptObj", kEstatPeriodo},
    {L"CEstatSubgrupoRptObj", kEstatPeriodo},
    {L"CTipo_MidiaRptObj", kOwnerOnly},
    {L"CSolicitacaoRptObj", kSolicitacao},
    {L"CGrupoOperadorRptObj", kOwnerOnly},
    {L"CCaixaRptObj", kCaixa},
});

}  // namespace

std::span<const ParameterClass> ParameterClasses() { return kClasses; }

const ParameterClass& ParameterClassNamed(std::wstring_view name) {
  return *std::find_if(kClasses.begin(), kClasses.end(),
                       [&](const ParameterClass& candidate) { return candidate.name == name; });
}

}  // namespace kodra::frame
