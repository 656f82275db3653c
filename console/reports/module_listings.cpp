// The guide to the listings of modules.
#include "console/reports/families.h"

namespace kodra::console::guide {
namespace {

const Parameter kDepto = {"CodDepto", "Código do departamento; só filtra se o seu valor numérico for maior que zero",
                          "001", "departamento {}"};
const Parameter kPregresso = {"ModoPregresso", "Sim lista só os módulos do acervo pregresso", "sim",
                              "só o acervo pregresso"};

constexpr Column kFileira = {"FILEIRA", kText, "Fileira", "Fileira"};
constexpr Column kEstante = {"ESTANTE", kText, "Estante", "Estante"};
constexpr Column kPrateleira = {"PRATELEIRA", kText, "Prateleira", "Prateleira"};

constexpr Oddity kConnection = {"Com a propriedade Conexao, vêm só os módulos principais, sem ordem definida",
                                "A client's connection returns other rows than a connection string."};
constexpr Oddity kRepeated = {"As condições dos filtros se repetem em uma metade da instrução e faltam na outra",
                              "Filters repeat."};
constexpr Oddity kDepartmentText = {"Com 0 em CodDepto, nada é filtrado; 007 vai ao SQL com os zeros",
                                    "A department of 0 is no department, and 007 stays 007"};

}  // namespace

std::vector<Report> ModuleListings() {
  return {
      {.className = "CCaixaRpt",
       .method = "ModulosExcluidos",
       .purpose = "Os módulos cujo conteúdo foi descartado",
       .parameters = {kDepto, kPregresso},
       .columns = {kModulo, kDescCaixa, kDocInicial, kDocFinal, kDataVencimento, kDataFechamento, kTipoGuarda},
       .oddities = {kConnection, kRepeated, kDepartmentText},
       .page = {kListing, "Módulos com conteúdo descartado"}},

      {.className = "CCaixaRpt",
       .method = "ModulosVencidos",
       .purpose = "Os módulos que chegaram ao prazo de descarte",
       .parameters = {kDepto, kPregresso},
       .columns = {{"DESCR_DEPTO", kText, "Departamento; nulo se o módulo não tem departamento", "Departamento"},
                   kModulo,
                   kDescCaixa,
                   kDocInicial,
                   kDocFinal,
                   kDataVencimento,
                   kDataFechamento,
                   kTipoGuarda,
                   kAnosVencimento,
                   {"NUM_PAGINAS", kNumber, "Soma das folhas do módulo principal", "Páginas"},
                   {"NUM_DOCS", kNumber, "Documentos do módulo principal", "Documentos"}},
       .oddities = {kConnection,
                    kRepeated,
                    {"O subordinado vem com as folhas e os documentos do módulo principal",
                     "A due subordinate counts its parent's documents and pages."},
                    {"O módulo AA000 só fica de fora na metade dos módulos principais",
                     "The module AA000 is left out of the main half only"},
                    kDepartmentText},
       .page = {.kind = kListing,
                .title = "Módulos vencidos",
                .notes = {{"um módulo subordinado aparece com as páginas e os documentos do seu módulo principal"}}}},

      {.className = "CCaixaRpt",
       .method = "DocsNoModulo",
       .purpose = "O cabeçalho de um módulo: localização, depósito e prazos",
       .parameters = {{"Modulo1",
                       "Código do módulo: 5 caracteres para um principal, 7 para um subordinado",
                       "AA001",
                       "módulo {}",
                       InSql::kText,
                       {"AA00101"}},
                      kDepto},
       .columns = {kModulo,
                   kDescCaixa,
                   {"OBS_CAIXA", kText, "Observação; vazia no subordinado", "Observação", kDetail},
                   kDocInicial,
                   kDocFinal,
                   {"DATA_VENCIMENTO", kDate, "Fim do prazo de guarda; no subordinado, o do principal", "Vencimento"},
                   {"DATA_FECHAMENTO", kDate, "Data de fechamento; no subordinado, a do principal", "Fechamento"},
                   {"FILEIRA", kText, "Fileira; vazia no subordinado", "Fileira"},
                   {"ESTANTE", kText, "Estante; vazia no subordinado", "Estante"},
                   {"PRATELEIRA", kText, "Prateleira; vazia no subordinado", "Prateleira"},
                   {"CONTAINER", kText, "Contêiner; vazio no subordinado", "Contêiner"},
                   {"DEPOSITO", kText, "Depósito", "Depósito", kDetail},
                   {"ENDERECO", kText, "Endereço do depósito", "Endereço", kDetail},
                   {"CIDADE", kText, "Cidade do depósito", "Cidade", kDetail},
                   {"ESTADO", kText, "Estado do depósito", "Estado", kDetail},
                   {"TELEFONE", kText, "Telefone do depósito", "Telefone", kDetail},
                   {"CONTATO", kText, "Pessoa de contato do depósito", "Contato", kDetail}},
       .oddities = {kDepartmentText, kPastedFilters},
       .rows = RowsKind::kAtClient,
       .page = {kListing, "Documentos no módulo"}},

      {.className = "CCaixaRpt",
       .method = "DocsNoModuloSubRpt",
       .purpose = "Os códigos dos documentos de um módulo",
       .parameters = {{"Modulo1", "Código do módulo; valem os 5 primeiros caracteres, o módulo principal", "AA001",
                       "módulo {}"}},
       .columns = {kCodDocto},
       .oddities =
           {{"O método não confere nada nem grava no log, e o erro chega como é, sem o texto e o número dos erros "
             "dos outros métodos",
             "DocsNoModuloSubRpt has no frame."}},
       .page = {kListing, "Documentos de um módulo"}},

      {.className = "CCaixaRpt",
       .method = "DocsNaoIndexadosNosModulos",
       .purpose = "Quantos documentos sem série há em cada módulo",
       .parameters = {kDepto},
       .columns = {kModulo, kDescCaixa, {"NaoIndexados", kNumber, "Documentos do módulo sem série", "Não indexados"}},
       .oddities = {kDepartmentText},
       .page = {kListing, "Documentos não indexados nos módulos"}},

      {.className = "CCaixaRpt",
       .method = "RelatoriosModulos",
       .purpose = "Todos os módulos, com a sua localização",
       .parameters = {kDepto,
                      {"SomenteExistentes", "Sim deixa de fora os módulos descartados (E) e os de tipo P", "sim",
                       "só os existentes"},
                      kPregresso,
                      {"Ordenacao",
                       "D ordena pela descrição; outro valor, pelo código. Um objeto novo já traz N",
                       "D",
                       {},
                       InSql::kText,
                       {"N"},
                       {{"N", "pelo código"}, {"D", "pela descrição"}},
                       "Ordem"}},
       .columns = {kModulo,
                   kDescCaixa,
                   kDocInicial,
                   kDocFinal,
                   kDataVencimento,
                   kDataFechamento,
                   kFileira,
                   kEstante,
                   kPrateleira,
                   {"CONTAINER", kText, "Contêiner", "Contêiner"},
                   kTipoGuarda},
       .oddities = {kConnection,
                    {"Com SomenteExistentes, o tipo P é lido do módulo principal também para o subordinado",
                     "Existing modules: the second test of a subordinate reads its parent's kind."},
                    kDepartmentText},
       .page = {kListing, "Módulos"}},

      {.className = "CCaixaRpt",
       .method = "AutorizacaoDescarteModuloSubRpt",
       .purpose = "Os documentos de um módulo com totais, para autorizar o descarte",
       .parameters = {{"Modulo1",
                       "Código de um módulo principal, 5 caracteres; com outro tamanho vem uma linha em branco",
                       "AA001", "módulo {}"}},
       .columns = {kCodDocto,
                   {"TOTAL_DOCS", kNumber, "Documentos do módulo", "Total de documentos", kFact},
                   {"TOTAL_PAGINAS", kNumber, "Folhas e versos do módulo", "Total de páginas", kFact}},
       .oddities = {kPastedFilters},
       .rows = RowsKind::kAtClient,
       .page = {kListing, "Autorização de descarte: documentos do módulo"},
       .sqlNote = "a segunda instrução só é enviada se a primeira não devolver nenhuma linha"},
  };
}

}  // namespace kodra::console::guide
