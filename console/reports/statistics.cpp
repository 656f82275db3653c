// The guide to the statistics.
#include "console/reports/families.h"

namespace kodra::console::guide {
namespace {

const Parameter kFirstDay = {"DataInicial", "Primeiro dia do período; aparece também no título", "01/02/2024",
                             "desde {}"};
const Parameter kLastDay = {"DataFinal", "Último dia do período; aparece também no título", "29/02/2024", "até {}"};
const Parameter kOwnerText = {"Owner", "Texto devolvido na coluna OWNER", "Arquivo Geral", "responsável {}"};
const Parameter kCodDepto = {
    "CodDepto", "Código do departamento; vazio inclui todos", "001", "departamento {}", InSql::kText, {""}};
// TipoRpt in the statistics by support and by subgroup.
const Parameter kCounted = {
    "TipoRpt",
    "F traz as folhas; P, folhas e versos; outro valor, só os documentos",
    "F",
    {},
    InSql::kText,
    {"P", "N"},
    {{"", "só os documentos"}, {"F", "documentos e folhas"}, {"P", "documentos, folhas e versos"}},
    "O que contar"};

// A total that the client has counted, and that the statement contains as it is.
Parameter CountedByTheClient(std::string_view name, std::string_view effect, std::string_view sample) {
  return {name, effect, sample, {}, InSql::kNumber};
}

constexpr Column kPeriod = {"TIT1", kText, "Título: \"Período: … a …\"", {}, kSubtitle};
constexpr Column kOperador = {"OPERADOR", kText, "Operador do filtro, ou Todos os Operadores", "Operador", kFact};
constexpr Column kDepto = {"DEPTO", kText, "Departamento do filtro, ou Todos os Departamentos", "Departamento", kFact};
constexpr Column kFundo = {"FUNDO", kText, "Nome da organização", "Fundo", kFact};
constexpr Column kOwner = {"OWNER", kText, "O valor do parâmetro Owner", "Responsável", kFact};
// What is counted depends on TipoRpt.
constexpr Column kSheets = {.name = "FRENTE", .type = kNumber, .meaning = "Folhas: páginas de frente", .kinds = "FP"};
constexpr Column kBacks = {.name = "VERSO", .type = kNumber, .meaning = "Páginas de verso", .kinds = "P"};
constexpr Column kDocument = {.name = "COD_DOCTO", .type = kText, .meaning = "Código do documento", .kinds = "*"};

constexpr Oddity kBrokenPeriodOnSqlite = {
    "No SQLite, a data do período sai sem aspas: vira uma conta, e nenhum documento cai no período",
    "On SQLite a date bound is not quoted."};

}  // namespace

std::vector<Report> Statistics() {
  return {
      {.className = "CEstatImgRpt",
       .method = "RelatorioEstatisticas",
       .purpose = "A produção da digitalização em um período",
       .parameters = {kOwnerText,
                      kFirstDay,
                      kLastDay,
                      {"CodOperador",
                       "Código do operador que armazenou; vazio inclui todos",
                       "001",
                       "operador {}",
                       InSql::kText,
                       {""}},
                      kCodDepto,
                      {"TipoRpt",
                       "P traz folhas e versos; F, só folhas; outro valor, o código do documento",
                       "P",
                       {},
                       InSql::kText,
                       {"F", "N"},
                       {{"", "documentos"}, {"F", "só folhas"}, {"P", "folhas e versos"}},
                       "O que contar"}},
       .columns = {kPeriod,
                   kOperador,
                   kDepto,
                   {"DT_ARMAZ", kMoment, "Data e hora de armazenamento", "Dia", kLine},
                   kFundo,
                   kOwner,
                   kSheets,
                   kBacks,
                   kDocument},
       .oddities = {{"O módulo AA000 e o suporte DIGITAL não contam; nas outras estatísticas, contam",
                     "Imaging leaves out AA000 and the support DIGITAL; the other statistics count them."},
                    kBrokenPeriodOnSqlite,
                    kPastedFilters},
       .page = {.kind = kStatistic,
                .title = "Estatísticas de digitalização",
                .first = {"FUNDO"},
                .notes = {{"os documentos do módulo AA000 e os de suporte DIGITAL não contam"}}}},

      {.className = "CEstatIndexRpt",
       .method = "RelatorioEstatisticasPorDocumento",
       .purpose = "Os documentos indexados em um período",
       .parameters = {kOwnerText,
                      {"CodOperador",
                       "Código do operador que indexou; vazio inclui todos",
                       "001",
                       "operador {}",
                       InSql::kText,
                       {""}},
                      kCodDepto,
                      kFirstDay,
                      kLastDay},
       .columns = {kPeriod,
                   kOperador,
                   kDepto,
                   {"DATA_INDEXACAO", kMoment, "Data e hora de indexação", "Dia", kLine},
                   kCodDocto,
                   kFundo,
                   kOwner},
       .oddities = {kBrokenPeriodOnSqlite, kPastedFilters},
       .page = {.kind = kStatistic, .title = "Estatísticas de indexação por documento", .first = {"FUNDO"}}},

      {.className = "CEstatIndexRpt",
       .method = "RelatorioEstatisticasPorPalavrasChave",
       .purpose = "Os totais de palavras-chave que o cliente contou",
       .parameters =
           {kOwnerText,
            {"DescrDepto", "Texto devolvido na coluna DEPTO", "Todos os Departamentos", "departamento {}"},
            {"DescrOperador", "Texto devolvido na coluna OPERADOR", "Todos os Operadores", "operador {}"},
            {"DataInicial", "Primeiro dia do período, só para o título", "01/02/2024", "desde {}"},
            {"DataFinal", "Último dia do período, só para o título", "29/02/2024", "até {}"},
            CountedByTheClient("NumeroPC1",
                               "Documentos com a palavra-chave 1, contados pelo cliente; entra no SQL sem aspas", "12"),
            CountedByTheClient("NumeroPC2",
                               "Documentos com a palavra-chave 2, contados pelo cliente; entra no SQL sem aspas", "22"),
            CountedByTheClient("NumeroPC3",
                               "Documentos com a palavra-chave 3, contados pelo cliente; entra no SQL sem aspas", "32"),
            CountedByTheClient("NumeroPC4",
                               "Documentos com a palavra-chave 4, contados pelo cliente; entra no SQL sem aspas", "42"),
            CountedByTheClient("NumeroPC5",
                               "Documentos com a palavra-chave 5, contados pelo cliente; entra no SQL sem aspas", "52"),
            CountedByTheClient("NumeroObs", "Documentos com observação, contados pelo cliente; entra no SQL sem aspas",
                               "7")},
       .columns = {kPeriod,
                   {"OPERADOR", kText, "O valor do parâmetro DescrOperador", "Operador", kFact},
                   {"DEPTO", kText, "O valor do parâmetro DescrDepto", "Departamento", kFact},
                   {"PC1", kNumber, "O valor do parâmetro NumeroPC1", "Chave 1", kCount},
                   {"PC2", kNumber, "O valor do parâmetro NumeroPC2", "Chave 2", kCount},
                   {"PC3", kNumber, "O valor do parâmetro NumeroPC3", "Chave 3", kCount},
                   {"PC4", kNumber, "O valor do parâmetro NumeroPC4", "Chave 4", kCount},
                   {"PC5", kNumber, "O valor do parâmetro NumeroPC5", "Chave 5", kCount},
                   {"OBS", kNumber, "O valor do parâmetro NumeroObs", "Observação", kCount},
                   kFundo,
                   kOwner},
       .oddities = {{"Um número vazio deixa a instrução com erro de sintaxe", "A count left empty is invalid SQL."}},
       .failures = {{"Erro de sintaxe do banco", "falta um dos números que o cliente conta",
                     "Informe um número em NumeroPC1 a NumeroPC5 e em NumeroObs, mesmo que seja 0"}},
       .page =
           {kStatistic,
            "Estatísticas de indexação por palavras-chave",
            "Chave",
            {"FUNDO"},
            {{"um documento com várias chaves conta em cada uma delas; o total geral não é o número de documentos"}}}},

      {.className = "CEstatSuporteRpt",
       .method = "RelatorioEstatisticas",
       .purpose = "Os documentos, folhas ou páginas armazenados, por suporte",
       .parameters = {kFirstDay, kLastDay, kCounted},
       .columns =
           {{"TIT", kText, "Título: \"Período: … a …\"", {}, kSubtitle},
            kCodDocto,
            {"DESCR_SUPORTE", kText, "Suporte", "Suporte", kLine},
            kSheets,
            {.name = "VERSO", .type = kNumber, .meaning = "Páginas de verso; sempre 0 com TipoRpt F", .kinds = "FP"}},
       .oddities = {{"Com F, a coluna VERSO vem sempre com 0", "Front pages come with a back count of 0"},
                    kBrokenPeriodOnSqlite},
       .page = {.kind = kStatistic,
                .title = "Estatísticas por suporte",
                .notes = {{"só as folhas foram somadas; o verso não conta", "F"}}}},

      {.className = "CEstatSubgrupoRpt",
       .method = "RelatorioEstatisticas",
       .purpose = "Os documentos, folhas ou páginas armazenados, por subgrupo",
       .parameters = {kFirstDay, kLastDay, kCounted},
       .columns = {{"TITULO", kText, "Título com o nome que a instalação dá ao subgrupo", {}, kTitle},
                   kPeriod,
                   {"DESCR_GRUPO", kText, "Subgrupo", "Subgrupo", kLine},
                   kSheets,
                   kBacks,
                   kDocument},
       .oddities = {{"O período vai ao banco com o ano na frente, ao contrário das outras estatísticas",
                     "The subgroup statistics read the date year first,"},
                    kBrokenPeriodOnSqlite},
       .page = {kStatistic, "Estatísticas por subgrupo"}},

      {.className = "CEstatSerieRpt",
       .method = "RelatorioEstatisticas",
       .purpose = "Os totais armazenados em cada série de um subgrupo",
       .parameters = {kFirstDay,
                      {"DataFinal",
                       "Último dia do período; a instrução vai até a meia-noite do dia seguinte, inclusive",
                       "29/02/2024", "até {}"},
                      {"TipoRpt",
                       "N conta documentos; F, P e qualquer outro somam as folhas",
                       "N",
                       {},
                       InSql::kText,
                       {"F", "P"},
                       {{"", "folhas"}, {"N", "documentos"}},
                       "O que contar"},
                      {"CodGrupo", "Código do subgrupo; vazio não traz nenhuma linha", "001", "subgrupo {}"}},
       .columns = {{"Titulo", kText, "Título com o nome que a instalação dá à série", {}, kTitle},
                   {"Subtitulo", kText, "O que se conta: folhas, páginas ou documentos", {}, kSubtitle},
                   {"Periodo", kText, "Período: … a …", {}, kSubtitle},
                   {"Subgrupo", kText, "O nome que a instalação dá ao subgrupo, e o subgrupo", {}, kBlock},
                   {"Serie", kText, "Série", "Série", kLine},
                   {"Total", kNumber, "Documentos, com TipoRpt N; senão, soma das folhas", "Total", kTotal}},
       .oddities = {{"F e P só mudam o subtítulo: os dois somam as folhas, como qualquer valor que não seja N",
                     "Pages are front pages in the series statistics."},
                    {"A meia-noite do dia seguinte ao último também conta", "The series statistics end a day later."},
                    kBrokenPeriodOnSqlite},
       .page = {.kind = kStatistic,
                .title = "Estatísticas por série",
                .notes = {{"os totais somam as folhas; o verso não conta", "P"},
                          {"os totais somam as folhas, e não os documentos", "!NFP"},
                          {"conta também o que foi armazenado à meia-noite depois do último dia"}}}},
  };
}

}  // namespace kodra::console::guide
