// The table of cases. A report that is not in it has one case, with nothing set.
#include "tests/engines/cases.h"

#include "values/utf8.h"

namespace kodra::engines {
namespace {

struct Option {
  std::string label;  // empty: nothing is set
  std::vector<Setting> settings;
};
// The options that a client may choose from, one at a time.
using Choice = std::vector<Option>;

struct Plan {
  std::wstring_view className, method;
  std::vector<Choice> choices;
};

const Option kNothing;

const Choice kDepartment = {kNothing, {"department", {{L"CodDepto", L"002"}}}};
const Choice kBackCatalogue = {kNothing, {"back-catalogue", {{L"ModoPregresso", true}}}};
const Choice kPages = {kNothing, {"P", {{L"TipoRpt", L"P"}}}, {"F", {{L"TipoRpt", L"F"}}}};

// For the statistics, which always have one.
const Choice kPeriod = {
    {"period", {{L"DataInicial", L"01/01/2013"}, {L"DataFinal", L"31/12/2018"}, {L"Owner", L"Arquivo Geral"}}},
    {"period with hours", {{L"DataInicial", L"01/01/2013 08:30:00"}, {L"DataFinal", L"31/12/2018 18:00:00"}}},
    {"period left unset", {}},
};
const Choice kOperator = {kNothing, {"operator", {{L"CodOperador", L"7"}}}};
const Choice kOperatorsDepartment = {kNothing, {"department", {{L"CodDepto", L"011"}}}};
// For the documents, which may have one.
const Choice kStorage = {
    kNothing,
    {"both days", {{L"DataArmazenamento1", L"01/01/2013"}, {L"DataArmazenamento2", L"31/12/2018"}}},
    {"last day only", {{L"DataArmazenamento2", L"31/12/2018"}}},
    {"first day only", {{L"DataArmazenamento1", L"01/01/2013"}}},
};
const Choice kDocumentsDepartment = {
    kNothing,
    {"department", {{L"CodDepto", L"002"}}},
    {"blank department", {{L"CodDepto", L" "}}},
    {"quote in the department", {{L"CodDepto", L"D'Ávila"}}},
};

const Option kMainModule = {"module", {{L"Modulo1", L"AA001"}}};
const Option kSubordinate = {"subordinate", {{L"Modulo1", L"AA00102"}}};
const Option kThreeModules = {"three modules",
                              {{L"Modulo1", L"AA001"}, {L"Modulo2", L"AA004"}, {L"Modulo3", L"AA010"}}};

const std::vector<Plan>& Plans() {
  static const std::vector<Plan> plans = {
      {L"CCDRpt", L"RelatorioMidias", {{kNothing, {"expired", {{L"TipoRpt", L"V"}}}}}},
      {L"CModeloRpt", L"RelatorioModelos", {{kNothing, {"model", {{L"CodModelo", L"modelo-0002"}}}}}},
      {L"CDocumentoRpt", L"RelatorioSintetico", {kStorage, kDocumentsDepartment}},
      {L"CDocumentoRpt", L"RelatorioAnalitico", {kStorage, kDocumentsDepartment}},
      {L"CDocumentoRpt", L"RelatorioInventarios", {kStorage, kDocumentsDepartment}},
      {L"CSolicitacaoRpt",
       L"RelatorioRetiradaOriginal",
       {{{"one document", {{L"CodSolicit", L"5"}}},
         {"several documents", {{L"CodSolicit", L"8"}}},
         {"list of requests", {{L"CodSolicit", L"1,5,12"}}},
         {"no document", {{L"CodSolicit", L"9999"}}}}}},
      {L"CSolicitacaoRpt",
       L"RelatorioDevolucaoOriginal",
       {{kNothing, {"returned too", {{L"ListarJaDevolvidos", true}}}}}},
      {L"CCaixaRpt",
       L"EtiquetaAbertura",
       {{kMainModule,
         kThreeModules,
         {"subordinate", {{L"Tipo", L"S"}, {L"Modulo1", L"AA00102"}}},
         {"three subordinates",
          {{L"Tipo", L"S"}, {L"Modulo1", L"AA00102"}, {L"Modulo2", L"AA00410"}, {L"Modulo3", L"AA01009"}}}}}},
      {L"CCaixaRpt", L"EtiquetaFechamento", {{kMainModule, kThreeModules}}},
      {L"CCaixaRpt", L"EtiquetaFechamentoSubordinada", {{kMainModule}}},
      {L"CCaixaRpt", L"EtiquetaDivisoria", {{kMainModule, kSubordinate}}},
      {L"CCaixaRpt", L"ModulosExcluidos", {kDepartment, kBackCatalogue}},
      {L"CCaixaRpt", L"ModulosVencidos", {kDepartment, kBackCatalogue}},
      {L"CCaixaRpt", L"DocsNoModulo", {{kMainModule, kSubordinate}, kDepartment}},
      {L"CCaixaRpt", L"DocsNoModuloSubRpt", {{kMainModule, kSubordinate}}},
      {L"CCaixaRpt", L"DocsNaoIndexadosNosModulos", {kDepartment}},
      {L"CCaixaRpt",
       L"RelatoriosModulos",
       {kDepartment,
        {kNothing, {"existing", {{L"SomenteExistentes", true}}}},
        kBackCatalogue,
        {kNothing, {"by description", {{L"Ordenacao", L"D"}}}}}},
      {L"CCaixaRpt",
       L"AutorizacaoDescarteModuloSubRpt",
       {{kMainModule, kSubordinate, {"module without documents", {{L"Modulo1", L"ZZ001"}}}}}},
      {L"CContainerRpt",
       L"EtiquetaAbertura",
       {{{"container", {{L"Container1", L"CT0001"}}},
         {"three containers", {{L"Container1", L"CT0001"}, {L"Container2", L"CT0003"}, {L"Container3", L"CT9001"}}}}}},
      {L"CContainerRpt",
       L"EtiquetaAberturaSubRpt",
       {{{"container", {{L"Container1", L"CT0001"}}},
         {"three containers", {{L"Container1", L"CT0001"}, {L"Container2", L"CT0003"}, {L"Container3", L"CT9001"}}}}}},
      {L"CEstatImgRpt", L"RelatorioEstatisticas", {kPeriod, kOperator, kOperatorsDepartment, kPages}},
      {L"CEstatIndexRpt", L"RelatorioEstatisticasPorDocumento", {kPeriod, kOperator, kOperatorsDepartment}},
      {L"CEstatIndexRpt",
       L"RelatorioEstatisticasPorPalavrasChave",
       {kPeriod,
        {{"counts",
          {{L"DescrOperador", L"Todos"},
           {L"DescrDepto", L"Arquivo"},
           {L"NumeroPC1", L"12"},
           {L"NumeroPC2", L"0"},
           {L"NumeroPC3", L"7"},
           {L"NumeroPC4", L"1"},
           {L"NumeroPC5", L"3"},
           {L"NumeroObs", L"5"}}},
         {"missing counts", {}}}}},
      {L"CEstatSuporteRpt", L"RelatorioEstatisticas", {kPeriod, kPages}},
      {L"CEstatSubgrupoRpt", L"RelatorioEstatisticas", {kPeriod, kPages}},
      {L"CEstatSerieRpt",
       L"RelatorioEstatisticas",
       {kPeriod,
        {kNothing, {"P", {{L"TipoRpt", L"P"}}}, {"F", {{L"TipoRpt", L"F"}}}, {"N", {{L"TipoRpt", L"N"}}}},
        {{"subgroup", {{L"CodGrupo", L"002"}}}, {"no subgroup", {}}}}},
  };
  return plans;
}

std::vector<Choice> ChoicesOf(const reports::ReportMethod& method) {
  for (const Plan& plan : Plans()) {
    if (plan.className == method.className && plan.method == method.method) return plan.choices;
  }
  return {};
}

void Add(Case& wanted, const Option& option) {
  if (!option.label.empty()) wanted.label += (wanted.label.empty() ? "" : ", ") + option.label;
  wanted.settings.insert(wanted.settings.end(), option.settings.begin(), option.settings.end());
}

// Every combination of one option of each choice.
std::vector<Case> Combine(const reports::ReportMethod& method) {
  std::vector<Case> combined = {{&method, {}, {}}};
  for (const Choice& choice : ChoicesOf(method)) {
    std::vector<Case> next;
    for (const Case& before : combined) {
      for (const Option& option : choice) Add(next.emplace_back(before), option);
    }
    combined = std::move(next);
  }
  for (Case& one : combined) {
    if (one.label.empty()) one.label = "plain";
  }
  return combined;
}

}  // namespace

std::vector<Case> Cases() {
  std::vector<Case> cases;
  for (const reports::ReportMethod& method : reports::ReportMethods()) {
    for (Case& one : Combine(method)) cases.push_back(std::move(one));
  }
  return cases;
}

std::string NameOf(const reports::ReportMethod& method) {
  return values::ToUtf8(method.className) + "." + values::ToUtf8(method.method);
}

}  // namespace kodra::engines
