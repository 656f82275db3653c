// The guide to the listings of modules.
#include <array>

#include "console/reports/families.h"

namespace kodra::console::guide {
namespace {

constexpr Parameter kDepto = {"CodDepto",
                              "Código do departamento; só filtra se o seu valor numérico for maior que zero", "001"};
constexpr Parameter kPregresso = {"ModoPregresso", "Sim deixa só os módulos do acervo pregresso", "sim"};
constexpr Parameter kDeptoAndPregresso[] = {kDepto, kPregresso};
constexpr Parameter kDeptoOnly[] = {kDepto};

constexpr Oddity kConnection = {"Pela propriedade Conexao vêm só os módulos principais, sem ordem",
                                "A client's connection gives other rows than a connection string."};
constexpr Oddity kRepeated = {"As condições dos filtros se repetem em uma metade da instrução e faltam na outra",
                              "Filters repeat."};
constexpr Oddity kDepartmentText = {"Um departamento 0 não filtra, e 007 entra como 007",
                                    "A department of 0 is no department, and 007 stays 007"};

constexpr Column kDiscarded[] = {kModulo,         kDescCaixa,      kDocInicial, kDocFinal,
                                 kDataVencimento, kDataFechamento, kTipoGuarda};
constexpr Oddity kDiscardedOddities[] = {kConnection, kRepeated, kDepartmentText};

constexpr Column kDue[] = {
    {"DESCR_DEPTO", kText, "Departamento; nulo se o módulo não tem"},
    kModulo,
    kDescCaixa,
    kDocInicial,
    kDocFinal,
    kDataVencimento,
    kDataFechamento,
    kTipoGuarda,
    kAnosVencimento,
    {"NUM_PAGINAS", kNumber, "Soma das folhas do módulo principal"},
    {"NUM_DOCS", kNumber, "Documentos do módulo principal"},
};
constexpr Oddity kDueOddities[] = {
    kConnection,
    kRepeated,
    {"O subordinado vem com as folhas e os documentos do módulo principal",
     "A due subordinate counts its parent's documents and pages."},
    {"O módulo AA000 só fica fora da metade dos principais", "The module AA000 is left out of the main half only"},
    kDepartmentText,
};

constexpr Parameter kHeaderParameters[] = {
    {"Modulo1", "Código do módulo: 5 caracteres para um principal, 7 para um subordinado", "AA001"},
    kDepto,
};
constexpr Column kHeader[] = {
    kModulo,
    kDescCaixa,
    {"OBS_CAIXA", kText, "Observação; vazia no subordinado"},
    kDocInicial,
    kDocFinal,
    {"DATA_VENCIMENTO", kDate, "Fim do prazo de guarda; no subordinado, o do principal"},
    {"DATA_FECHAMENTO", kDate, "Data de fechamento; no subordinado, a do principal"},
    {"FILEIRA", kText, "Fileira; vazia no subordinado"},
    {"ESTANTE", kText, "Estante; vazia no subordinado"},
    {"PRATELEIRA", kText, "Prateleira; vazia no subordinado"},
    {"CONTAINER", kText, "Contêiner; vazio no subordinado"},
    {"DEPOSITO", kText, "Depósito"},
    {"ENDERECO", kText, "Endereço do depósito"},
    {"CIDADE", kText, "Cidade do depósito"},
    {"ESTADO", kText, "Estado do depósito"},
    {"TELEFONE", kText, "Telefone do depósito"},
    {"CONTATO", kText, "Pessoa de contato do depósito"},
};
constexpr Oddity kHeaderOddities[] = {kDepartmentText, kPastedFilters};

constexpr Parameter kDocumentsOf[] = {
    {"Modulo1", "Código do módulo; contam os 5 primeiros caracteres, o módulo principal", "AA001"}};
constexpr Column kDocumentCodes[] = {kCodDocto};
constexpr Oddity kDocumentCodesOddities[] = {
    {"O método não confere nada, não grava no log e o erro chega como é, sem o texto e o número dos outros",
     "DocsNoModuloSubRpt has no frame."}};

constexpr Column kUnindexed[] = {
    kModulo,
    kDescCaixa,
    {"NaoIndexados", kNumber, "Documentos do módulo sem série"},
};
constexpr Oddity kUnindexedOddities[] = {kDepartmentText};

constexpr Parameter kAllModules[] = {
    kDepto,
    {"SomenteExistentes", "Sim deixa de fora os módulos descartados (E) e os de tipo P", "sim"},
    kPregresso,
    {"Ordenacao", "D ordena pela descrição; outro valor, pelo código. Um objeto novo já traz N", "D"},
};
constexpr Column kPlaces[] = {
    kModulo,         kDescCaixa, kDocInicial, kDocFinal,   kDataVencimento,
    kDataFechamento, kFileira,   kEstante,    kPrateleira, {"CONTAINER", kText, "Contêiner"},
    kTipoGuarda,
};
constexpr Oddity kPlacesOddities[] = {
    kConnection,
    {"Dos dois tipos que SomenteExistentes tira, o segundo é lido do módulo principal também no subordinado",
     "Existing modules: the second test of a subordinate reads its parent's kind."},
    kDepartmentText,
};

constexpr Parameter kDiscardOf[] = {
    {"Modulo1", "Código de um módulo principal, 5 caracteres; outro tamanho dá uma linha em branco", "AA001"}};
constexpr Column kDiscard[] = {
    kCodDocto,
    {"TOTAL_DOCS", kNumber, "Documentos do módulo"},
    {"TOTAL_PAGINAS", kNumber, "Folhas e versos do módulo"},
};
constexpr Oddity kDiscardOddities[] = {kPastedFilters};

constexpr auto kReports = std::to_array<Report>({
    {"CCaixaRpt",
     "ModulosExcluidos",
     "Os módulos cujo conteúdo foi descartado",
     kDeptoAndPregresso,
     kDiscarded,
     kDiscardedOddities,
     {}},
    {"CCaixaRpt",
     "ModulosVencidos",
     "Os módulos que chegaram ao prazo de descarte",
     kDeptoAndPregresso,
     kDue,
     kDueOddities,
     {}},
    {"CCaixaRpt",
     "DocsNoModulo",
     "O cabeçalho de um módulo: lugar, depósito e prazos",
     kHeaderParameters,
     kHeader,
     kHeaderOddities,
     {}},
    {"CCaixaRpt",
     "DocsNoModuloSubRpt",
     "Os códigos dos documentos de um módulo",
     kDocumentsOf,
     kDocumentCodes,
     kDocumentCodesOddities,
     {}},
    {"CCaixaRpt",
     "DocsNaoIndexadosNosModulos",
     "Quantos documentos sem série há em cada módulo",
     kDeptoOnly,
     kUnindexed,
     kUnindexedOddities,
     {}},
    {"CCaixaRpt", "RelatoriosModulos", "Todos os módulos, com o seu lugar", kAllModules, kPlaces, kPlacesOddities, {}},
    {"CCaixaRpt",
     "AutorizacaoDescarteModuloSubRpt",
     "Os documentos de um módulo com totais, para autorizar o descarte",
     kDiscardOf,
     kDiscard,
     kDiscardOddities,
     {}},
});

}  // namespace

std::span<const Report> ModuleListings() { return kReports; }

}  // namespace kodra::console::guide
