// The guide to the containers.
#include "console/reports/families.h"

namespace kodra::console::guide {
namespace {

const std::vector<Parameter> kThree = {
    {"Container1", "Código do primeiro contêiner", "CT01", "contêiner {}"},
    {"Container2", "Código do segundo contêiner; vazio não traz nenhum", "CT02", "contêiner {}"},
    {"Container3", "Código do terceiro contêiner; vazio não traz nenhum", "CT03", "contêiner {}"},
};

}  // namespace

std::vector<Report> Containers() {
  return {
      {.className = "CContainerRpt",
       .method = "RelatorioContainers",
       .purpose = "Os contêineres",
       .columns = {{"NUM_CONTAINER", kText, "Código do contêiner", "Contêiner"},
                   {"DESC_CONTAINER", kText, "Descrição do contêiner", "Descrição"}},
       .page = {kListing, "Contêineres"}},

      {.className = "CContainerRpt",
       .method = "EtiquetaAbertura",
       .purpose = "As etiquetas de até três contêineres",
       .parameters = kThree,
       .columns = {{"CONTAINER", kText, "Código do contêiner, como foi pedido"},
                   {"DATA_VENCIMENTO", kDate,
                    "O último prazo dos seus módulos; a data zero, 30/12/1899, se nenhum tem prazo"},
                   {"TIPO_GUARDA", kText, "T se algum módulo tem prazo; senão, o tipo do último módulo"},
                   {"NOME_EMPRESA", kText, "Nome da organização"}},
       .oddities =
           {{"Basta um módulo com prazo para o contêiner ser do tipo T, quaisquer que sejam os tipos dos módulos",
             "A container with one dated module is of kind \"T\","},
            {"O nome da organização é o da última linha de parâmetros que o banco devolver",
             "A container's label may name any company."},
            {"Um contêiner pedido duas vezes sai em duas etiquetas", "A container named twice has two labels."},
            kPastedFilters},
       .rows = RowsKind::kInMemory,
       .page = {kContainerLabels}},

      {.className = "CContainerRpt",
       .method = "EtiquetaAberturaSubRpt",
       .purpose = "Os módulos de até três contêineres, para as suas etiquetas",
       .parameters = kThree,
       .columns = {{"CONTAINER", kText, "Código do contêiner", "Contêiner"},
                   {"NUM_CAIXA", kText, "Código do módulo", "Módulo"}},
       .oddities = {kPastedFilters},
       .page = {kListing, "Módulos dos contêineres"}},
  };
}

}  // namespace kodra::console::guide
