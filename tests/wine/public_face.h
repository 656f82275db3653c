// The public face as clients have compiled it in. It is written by hand, and the type library, the class factories and
// the registry are compared with it. The ids of released classes never change.
#pragma once

#include <string>
#include <vector>

namespace kodra::face {

struct ReportEntry {
  const wchar_t* name;
  const wchar_t* clsid;
  // In the order of the interface, where they follow the properties.
  std::vector<const wchar_t*> methods;
  // The name of each method's argument.
  const wchar_t* argument = L"obj";

  const wchar_t* method() const { return methods.front(); }
};

// The catalogs: each has a connection string and one method.
inline const std::vector<ReportEntry>& CatalogReports() {
  static const std::vector<ReportEntry> classes = {
      {L"CCDRpt", L"{33E0FB59-3F03-41D1-851C-690BFA152989}", {L"RelatorioMidias"}},
      {L"CTipo_MidiaRpt", L"{B5FB0AF0-072F-4304-A0D0-BD18BADF0FB3}", {L"RelatorioTiposMidia"}},
      {L"CSuporteRpt", L"{AAD9A884-8A68-4070-9C32-038984A3C4F3}", {L"RelatorioSuportes"}},
      {L"CSerieRpt", L"{00EF59AE-4789-4C68-BF18-1C3B12BA3925}", {L"RelatorioSeries"}},
      {L"CDepositoRpt", L"{D9598F11-E7E1-407F-87EB-E2386799AEE2}", {L"RelatorioDepositos"}},
      {L"CDicionarioRpt", L"{9221398A-3B50-4E33-B22A-AFB237894931}", {L"RelatorioTermosControlados"}},
      {L"CDeptoRpt", L"{8EAFA4EE-8163-4508-872D-84D4E9420440}", {L"RelatorioDeptos"}},
      {L"CGrupoRpt", L"{257D4595-3AE2-4DAB-8106-F2A6614121DB}", {L"RelatorioGrupos"}},
      {L"CModeloRpt", L"{3EA9E437-30BB-4E8A-9C8F-01121278A029}", {L"RelatorioModelos"}},
      {L"CTipo_CaixaRpt", L"{75E3E593-BBB0-4879-864F-754DF2A4AFE6}", {L"RelatorioTiposModulo"}},
      {L"CGrupoOperadorRpt", L"{C966E9EA-3D65-46F7-B229-030CD3775188}", {L"RelatorioGruposOperadores"}},
      {L"CSubgrupoRpt", L"{2258F613-E1A5-4672-8E2B-A2116EE013BA}", {L"RelatorioSubgrupos"}},
  };
  return classes;
}

// The other reports. Only CCaixaRpt has further properties.
inline const std::vector<ReportEntry>& OtherReports() {
  static const std::vector<ReportEntry> classes = {
      {L"COperadorRpt", L"{FE88B20B-76BD-4CBD-BE1C-224E474812CC}", {L"RelatorioOperadores"}},
      {L"CDocumentoRpt",
       L"{8C45001C-39F3-4335-9C4B-9A82885C7BBB}",
       {L"RelatorioSintetico", L"RelatorioAnalitico", L"RelatorioInventarios"}},
      {L"CSolicitacaoRpt",
       L"{6F7A5CB9-C0F4-4059-8A79-107025B37C44}",
       {L"RelatorioRetiradaOriginal", L"RelatorioDevolucaoOriginal"}},
      {L"CLogRpt", L"{A8AD38D7-4138-4D8C-A991-84628D70D496}", {L"RelatorioLog"}},
      {L"CContainerRpt",
       L"{227CC1EB-A4EC-4539-BE02-3EA975433B39}",
       {L"RelatorioContainers", L"EtiquetaAbertura", L"EtiquetaAberturaSubRpt"},
       L"Params"},
      {L"CEstatImgRpt", L"{BE898CF5-8324-4805-9A87-4FF11F49E6EC}", {L"RelatorioEstatisticas"}},
      {L"CEstatIndexRpt",
       L"{899A8B76-72A3-4B5A-9432-067642789B40}",
       {L"RelatorioEstatisticasPorDocumento", L"RelatorioEstatisticasPorPalavrasChave"}},
      {L"CEstatSuporteRpt", L"{7FD16A7E-DAE6-4413-A4FF-B596A2892105}", {L"RelatorioEstatisticas"}},
      {L"CEstatSubgrupoRpt", L"{7DD0AAEE-6483-46A3-AD79-6E1CEB5C5A87}", {L"RelatorioEstatisticas"}},
      {L"CEstatSerieRpt", L"{E6EC1563-5A6B-40CD-AFEF-7EED2427000C}", {L"RelatorioEstatisticas"}},
      {L"CCaixaRpt",
       L"{F8D10159-7864-40E1-A78B-FB8BDA04D4C0}",
       {L"EtiquetaAbertura", L"EtiquetaFechamento", L"EtiquetaFechamentoSubordinada", L"EtiquetaDivisoria",
        L"ModulosExcluidos", L"ModulosVencidos", L"DocsNoModulo", L"DocsNoModuloSubRpt", L"DocsNaoIndexadosNosModulos",
        L"RelatoriosModulos", L"AutorizacaoDescarteModuloSubRpt"},
       L"Params"},
  };
  return classes;
}

inline std::vector<ReportEntry> ReportClasses() {
  std::vector<ReportEntry> classes = CatalogReports();
  classes.insert(classes.end(), OtherReports().begin(), OtherReports().end());
  return classes;
}

// The type of a property and the effect of assigning it.
enum class Kind {
  kText,
  kInitial,  // the first character, upper-cased
  kTrimmed,  // without blanks at either end
  kDate,
  kFlag,
};

struct PropertyEntry {
  const wchar_t* name;
  Kind kind;
  const wchar_t* initial = L"";  // of a text
};

struct ParameterEntry {
  const wchar_t* name;
  const wchar_t* clsid;
  std::vector<PropertyEntry> properties;
};

inline const std::vector<ParameterEntry>& ParameterClasses() {
  using enum Kind;
  static const std::vector<ParameterEntry> classes = {
      {L"CEstatSerieRptObj",
       L"{B9A2739A-A345-48D8-9179-289E22B8B560}",
       {{L"DataInicial", kDate},
        {L"DataFinal", kDate},
        {L"Owner", kText},
        {L"TipoRpt", kInitial},
        {L"CodGrupo", kText}}},
      {L"CCDRptObj", L"{4D50AB23-5E1D-4016-9583-A75BF4054042}", {{L"Owner", kText}, {L"TipoRpt", kInitial}}},
      {L"CTipo_CaixaRptObj", L"{43660A67-57D4-4FB5-8B1A-6176E2651B8B}", {{L"Owner", kText}}},
      {L"CSuporteRptObj", L"{2F240CB0-BDF7-4443-AC5C-4561D0930AE8}", {{L"Owner", kText}}},
      {L"CSubgrupoRptObj", L"{7950AD57-7D61-4E75-BFDE-9A36AEE066D5}", {{L"Owner", kText}}},
      {L"CSerieRptObj", L"{9FA7D875-2FD6-4E23-8F22-E58971F5CACE}", {{L"Owner", kText}}},
      {L"COperadorRptObj", L"{7A0710CA-47AF-4A8A-88E9-73DA2815A302}", {{L"Owner", kText}}},
      {L"CContainerRptObj",
       L"{916E56BC-35CD-4532-BF34-E27D211C6E36}",
       {{L"Owner", kText}, {L"Container1", kText}, {L"Container2", kText}, {L"Container3", kText}}},
      {L"CDepositoRptObj", L"{7D4C399D-4956-474B-95A6-B55EF4FC9283}", {{L"Owner", kText}}},
      {L"CDicionarioRptObj", L"{3FAA996E-B7F2-4E7F-90B2-84DBE828B2C5}", {{L"Owner", kText}}},
      {L"CDeptoRptObj", L"{851BA937-7EE9-471F-859A-2271E46C599D}", {{L"Owner", kText}}},
      {L"CDocumentoRptObj",
       L"{15019618-A83F-45E1-9574-24B0367CB4FF}",
       {{L"Owner", kText}, {L"DataArmazenamento1", kDate}, {L"DataArmazenamento2", kDate}, {L"CodDepto", kText}}},
      {L"CGrupoRptObj", L"{C930E912-AE26-4AA7-BC97-9870918CA43E}", {{L"Owner", kText}}},
      {L"CLogRptObj",
       L"{2A7B7039-A596-4D25-AF1C-1B66071930C9}",
       {{L"Owner", kText},
        {L"MaquinaOrigem", kText},
        {L"Operador", kText},
        {L"Acao", kText},
        {L"Evento", kText},
        {L"CodDocto", kText},
        {L"DataInicial", kDate},
        {L"DataFinal", kDate}}},
      {L"CModeloRptObj", L"{6D650588-A827-4C05-ABBC-17AA289B5BFF}", {{L"Owner", kText}, {L"CodModelo", kTrimmed}}},
      {L"CEstatImgRptObj",
       L"{FB8B71C8-74B2-4356-B968-712F9A1669BC}",
       {{L"Owner", kText},
        {L"DataInicial", kDate},
        {L"DataFinal", kDate},
        {L"CodOperador", kTrimmed},
        {L"CodDepto", kTrimmed},
        {L"TipoRpt", kInitial}}},
      {L"CEstatIndexRptObj",
       L"{B02A774F-6393-4DA2-AD5C-876BEC4BB16C}",
       {{L"Owner", kText},
        {L"CodOperador", kTrimmed},
        {L"CodDepto", kTrimmed},
        {L"DescrDepto", kText},
        {L"DescrOperador", kText},
        {L"DataInicial", kDate},
        {L"DataFinal", kDate},
        {L"NumeroPC1", kText},
        {L"NumeroPC2", kText},
        {L"NumeroPC3", kText},
        {L"NumeroPC4", kText},
        {L"NumeroPC5", kText},
        {L"NumeroObs", kText}}},
      {L"CEstatSuporteRptObj",
       L"{8D381AB9-640D-4F67-AC48-B8E1C6F674EE}",
       {{L"Owner", kText}, {L"DataInicial", kDate}, {L"DataFinal", kDate}, {L"TipoRpt", kInitial}}},
      {L"CEstatSubgrupoRptObj",
       L"{EEECBC5D-84E0-4C4F-B63A-8EC0349CF388}",
       {{L"Owner", kText}, {L"DataInicial", kDate}, {L"DataFinal", kDate}, {L"TipoRpt", kInitial}}},
      {L"CTipo_MidiaRptObj", L"{8A2270CD-7BD8-4976-86F8-DB879C568A74}", {{L"Owner", kText}}},
      {L"CSolicitacaoRptObj",
       L"{82B55921-0A71-45B4-8143-9AEE4C44F6EC}",
       {{L"Owner", kText}, {L"CodSolicit", kText}, {L"ListarJaDevolvidos", kFlag}}},
      {L"CGrupoOperadorRptObj", L"{139F72F8-53C9-48BE-AEE8-081C2C05E99F}", {{L"Owner", kText}}},
      {L"CCaixaRptObj",
       L"{32F52F04-DE3E-4D48-A4B4-FE93BB840838}",
       {{L"Owner", kText},
        {L"Modulo1", kText},
        {L"Modulo2", kText},
        {L"Modulo3", kText},
        {L"Ordenacao", kInitial, L"N"},
        {L"SomenteExistentes", kFlag},
        {L"Tipo", kInitial},
        {L"CodDepto", kText},
        {L"CodSerie", kText},
        {L"ModoPregresso", kFlag}}},
  };
  return classes;
}

struct ClassEntry {
  std::wstring name;
  std::wstring clsid;
  std::wstring progId() const { return L"KodraRpt." + name; }
};

inline constexpr const wchar_t* kAboutClsid = L"{C4A7DE75-9746-4A9A-A065-C7F9C57E434B}";
inline constexpr const wchar_t* kLibraryId = L"{C29A7A57-DBE5-4CE4-BD9A-0AF8EB978154}";

// Every class that a client may create.
inline std::vector<ClassEntry> PublicClasses() {
  std::vector<ClassEntry> classes;
  for (const auto& entry : ReportClasses()) classes.push_back({entry.name, entry.clsid});
  for (const auto& entry : ParameterClasses()) classes.push_back({entry.name, entry.clsid});
  classes.push_back({L"About", kAboutClsid});
  return classes;
}

}  // namespace kodra::face
