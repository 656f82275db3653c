// The guide to the labels of modules.
#include "console/reports/families.h"

namespace kodra::console::guide {
namespace {

const std::vector<Column> kClosingColumns = {kDescCaixa,
                                             kModulo,
                                             kDocInicial,
                                             kDocFinal,
                                             kDataVencimento,
                                             kTipoGuarda,
                                             {"Nome_Empresa", kText, "Nome da organização"}};

}  // namespace

std::vector<Report> ModuleLabels() {
  return {
      {.className = "CCaixaRpt",
       .method = "EtiquetaAbertura",
       .purpose = "As etiquetas de abertura de até três módulos",
       .parameters = {{"Tipo",
                       "S gera etiquetas de módulos subordinados; outro valor, de módulos principais",
                       "S",
                       {},
                       InSql::kText,
                       {"N"},
                       {{"", "módulos principais"}, {"S", "módulos subordinados"}},
                       "Módulos"},
                      {"Modulo1", "Código do primeiro módulo: 5 caracteres, ou 7 com Tipo S", "AA00101"},
                      {"Modulo2", "Código do segundo módulo; vazio não traz nenhum", "AA00102"},
                      {"Modulo3", "Código do terceiro módulo; vazio não traz nenhum", "AA00201"}},
       .columns = {kDescCaixa, kModulo, kTipoGuarda, kAnosVencimento},
       .oddities = {{"Cada módulo vem duas vezes; com a propriedade Conexao, uma só vez e sem ordem definida",
                     "A client's connection returns other rows than a connection string."},
                    kPastedFilters},
       .page = {kOpeningLabels}},

      {.className = "CCaixaRpt",
       .method = "EtiquetaFechamento",
       .purpose = "As etiquetas de fechamento de até três módulos",
       .parameters = {{"Modulo1", "Código do primeiro módulo principal", "AA001"},
                      {"Modulo2", "Código do segundo módulo; vazio não traz nenhum", "AA002"},
                      {"Modulo3", "Código do terceiro módulo; vazio não traz nenhum", "AA003"}},
       .columns = kClosingColumns,
       .oddities = {kPastedFilters},
       .page = {kClosingLabels}},

      {.className = "CCaixaRpt",
       .method = "EtiquetaFechamentoSubordinada",
       .purpose = "As etiquetas de fechamento dos módulos subordinados de um módulo",
       .parameters = {{"Modulo1", "Código do módulo principal, 5 caracteres", "AA001"}},
       .columns = kClosingColumns,
       .oddities = {{"Basta um subordinado fechado para saírem as etiquetas de todos",
                     "One closed subordinate brings the labels of all."},
                    kPastedFilters},
       .failures = {kNoListOfSubordinates, kNoClosedSubordinate},
       .page = {kClosingLabels}},

      {.className = "CCaixaRpt",
       .method = "EtiquetaDivisoria",
       .purpose = "As etiquetas divisórias dos documentos de um módulo",
       .parameters = {{"Modulo1", "Código do módulo; valem os 5 primeiros caracteres, o módulo principal", "AA001"}},
       .columns = {kCodDocto},
       .oddities = {kPastedFilters},
       .page = {kDividerLabels}},
  };
}

}  // namespace kodra::console::guide
