// The guide to the listings that the program makes itself. In place of a class and a method they name the command.
#include "console/reports/families.h"

namespace kodra::console::guide {
namespace {

constexpr Column kCode = {"CODIGO", kText, "Código lido ou esperado", "Código"};
constexpr Column kSituation = {"SITUACAO", kText, "presente, emprestado, ausente, em outro lugar ou desconhecido",
                               "Situação"};
constexpr Column kLocation = {"LOCALIZACAO", kText, "Fileira, estante e prateleira", "Localização"};

// Not given by the user, but printed in the same place.
const Parameter kTotals = {"Totais", "Quantos códigos há em cada situação", "1 presente", "{}"};

}  // namespace

std::vector<Report> OwnListings() {
  return {
      {.className = "kodrarpt",
       .method = "confere --modulo",
       .purpose = "Os documentos lidos e os que o acervo registra nos módulos",
       .parameters = {{"Modulos", "Os módulos conferidos", "AA001", "módulos {}"}, kTotals},
       .columns = {kCode,
                   kSituation,
                   {"MODULO", kText, "Módulo em que o acervo registra o documento", "Módulo"},
                   kLocation,
                   {"OPERADOR", kText, "Quem retirou o documento", "Retirado por", kDetail},
                   {"RETIRADA", kText, "Data de retirada, dd/mm/aaaa", "Retirada", kDetail},
                   {"DEVOLUCAO", kText, "Data de devolução, dd/mm/aaaa; sem data ou permanente", "Devolução", kDetail}},
       .page = {kListing, "Conferência de documentos"}},

      {.className = "kodrarpt",
       .method = "confere --conteiner",
       .purpose = "Os módulos lidos e os que o acervo registra nos contêineres",
       .parameters = {{"Conteineres", "Os contêineres conferidos", "CT01", "contêineres {}"}, kTotals},
       .columns = {kCode,
                   kSituation,
                   {"CONTEINER", kText, "Contêiner em que o acervo registra o módulo", "Contêiner"},
                   kLocation},
       .page = {kListing, "Conferência de módulos"}},
  };
}

}  // namespace kodra::console::guide
