// The guide to the labels of modules.
#include <array>

#include "console/reports/families.h"

namespace kodra::console::guide {
namespace {

constexpr Column kCompany = {"Nome_Empresa", kText, "Nome da organização"};

constexpr Parameter kOpening[] = {
    {"Tipo", "S faz etiquetas de módulos subordinados; outro valor, de módulos principais", "S"},
    {"Modulo1", "Código do primeiro módulo: 5 caracteres, ou 7 com Tipo S", "AA00101"},
    {"Modulo2", "Código do segundo módulo; vazio não traz nenhum", "AA00102"},
    {"Modulo3", "Código do terceiro módulo; vazio não traz nenhum", "AA00201"},
};
constexpr Column kOpeningColumns[] = {kDescCaixa, kModulo, kTipoGuarda, kAnosVencimento};
constexpr Oddity kOpeningOddities[] = {
    {"Cada módulo vem duas vezes; pela propriedade Conexao, uma vez e sem ordem",
     "A client's connection gives other rows than a connection string."},
    kPastedFilters,
};

constexpr Parameter kClosing[] = {
    {"Modulo1", "Código do primeiro módulo principal", "AA001"},
    {"Modulo2", "Código do segundo módulo; vazio não traz nenhum", "AA002"},
    {"Modulo3", "Código do terceiro módulo; vazio não traz nenhum", "AA003"},
};
constexpr Column kClosingColumns[] = {kDescCaixa,      kModulo,     kDocInicial, kDocFinal,
                                      kDataVencimento, kTipoGuarda, kCompany};
constexpr Oddity kClosingOddities[] = {kPastedFilters};

constexpr Parameter kParent[] = {{"Modulo1", "Código do módulo principal, 5 caracteres", "AA001"}};
constexpr Oddity kSubordinateOddities[] = {
    {"Basta um subordinado fechado para sair a etiqueta de todos", "One closed subordinate gives the labels of all."},
    kPastedFilters,
};
constexpr Failure kSubordinateFailures[] = {
    {"Não foi possível obter uma lista dos módulos subordinados fechados associados ao módulo …",
     "O componente KodraBsnV3.ObtedorDeModulos não deu lista: confira a sua instalação e o seu log"},
    {"Não há módulos subordinados fechados associados ao módulo …",
     "Feche ao menos um subordinado do módulo, ou confira o código em Modulo1"},
};

constexpr Parameter kDivider[] = {
    {"Modulo1", "Código do módulo; contam os 5 primeiros caracteres, o módulo principal", "AA001"}};
constexpr Column kDividerColumns[] = {kCodDocto};

constexpr auto kReports = std::to_array<Report>({
    {"CCaixaRpt",
     "EtiquetaAbertura",
     "As etiquetas de abertura de até três módulos",
     kOpening,
     kOpeningColumns,
     kOpeningOddities,
     {}},
    {"CCaixaRpt",
     "EtiquetaFechamento",
     "As etiquetas de fechamento de até três módulos",
     kClosing,
     kClosingColumns,
     kClosingOddities,
     {}},
    {"CCaixaRpt", "EtiquetaFechamentoSubordinada", "As etiquetas de fechamento dos módulos subordinados de um módulo",
     kParent, kClosingColumns, kSubordinateOddities, kSubordinateFailures},
    {"CCaixaRpt",
     "EtiquetaDivisoria",
     "As etiquetas divisórias dos documentos de um módulo",
     kDivider,
     kDividerColumns,
     kClosingOddities,
     {}},
});

}  // namespace

std::span<const Report> ModuleLabels() { return kReports; }

}  // namespace kodra::console::guide
