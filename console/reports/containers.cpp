// The guide to the containers.
#include <array>

#include "console/reports/families.h"

namespace kodra::console::guide {
namespace {

constexpr Parameter kThree[] = {
    {"Container1", "Código do primeiro contêiner", "CT01"},
    {"Container2", "Código do segundo contêiner; vazio não traz nenhum", "CT02"},
    {"Container3", "Código do terceiro contêiner; vazio não traz nenhum", "CT03"},
};

constexpr Column kList[] = {{"NUM_CONTAINER", kText, "Código do contêiner"},
                            {"DESC_CONTAINER", kText, "Descrição do contêiner"}};

constexpr Column kLabel[] = {
    {"CONTAINER", kText, "Código do contêiner, como foi pedido"},
    {"DATA_VENCIMENTO", kDate, "O último prazo dos seus módulos; a data zero se nenhum tem"},
    {"TIPO_GUARDA", kText, "T se algum módulo tem prazo, senão o tipo do último módulo"},
    {"NOME_EMPRESA", kText, "Nome da organização"},
};
constexpr Oddity kLabelOddities[] = {
    {"Com um módulo com prazo o contêiner é do tipo T, quaisquer que sejam os tipos dos módulos",
     "A container with one dated module is of kind \"T\","},
    {"O nome da organização é o da última linha de parâmetros que o banco der",
     "A container's label may name any company."},
    {"Um contêiner pedido duas vezes tem duas etiquetas", "A container given twice gives two labels."},
    kPastedFilters,
};

constexpr Column kContents[] = {{"CONTAINER", kText, "Código do contêiner"}, {"NUM_CAIXA", kText, "Código do módulo"}};
constexpr Oddity kContentsOddities[] = {kPastedFilters};

constexpr auto kReports = std::to_array<Report>({
    {"CContainerRpt", "RelatorioContainers", "Os contêineres", {}, kList, {}, {}},
    {"CContainerRpt", "EtiquetaAbertura", "As etiquetas de até três contêineres", kThree, kLabel, kLabelOddities, {}},
    {"CContainerRpt",
     "EtiquetaAberturaSubRpt",
     "Os módulos de até três contêineres, para as suas etiquetas",
     kThree,
     kContents,
     kContentsOddities,
     {}},
});

}  // namespace

std::span<const Report> Containers() { return kReports; }

}  // namespace kodra::console::guide
