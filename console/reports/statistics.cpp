// The guide to the statistics.
#include <array>

#include "console/reports/families.h"

namespace kodra::console::guide {
namespace {

constexpr Parameter kFirstDay = {"DataInicial", "Primeiro dia do período; sai também no título", "01/02/2024"};
constexpr Parameter kLastDay = {"DataFinal", "Último dia do período; sai também no título", "29/02/2024"};
constexpr Parameter kOwnerText = {"Owner", "Texto que volta na coluna OWNER", "Arquivo Geral"};
constexpr Parameter kCodDepto = {"CodDepto", "Código do departamento; vazio é todos", "001"};

constexpr Column kPeriodTitle = {"TIT1", kText, "Título: Período: … a …"};
constexpr Column kOperador = {"OPERADOR", kText, "Operador do filtro, ou Todos os Operadores"};
constexpr Column kDepto = {"DEPTO", kText, "Departamento do filtro, ou Todos os Departamentos"};

constexpr Parameter kImagingParameters[] = {
    kOwnerText, kFirstDay,
    kLastDay,   {"CodOperador", "Código do operador que armazenou; vazio é todos", "001"},
    kCodDepto,  {"TipoRpt", "P traz folhas e versos, F só folhas, outro valor o código do documento", "P"},
};
constexpr Column kImaging[] = {
    kPeriodTitle,
    kOperador,
    kDepto,
    kDtArmaz,
    kFundo,
    kOwner,
    {"FRENTE", kNumber, "Folhas: páginas de frente", "FP"},
    {"VERSO", kNumber, "Páginas de verso", "P"},
    {"COD_DOCTO", kText, "Código do documento", "*"},
};
constexpr Oddity kImagingOddities[] = {
    {"O módulo AA000 e o suporte DIGITAL não contam; nas outras estatísticas contam",
     "Imaging leaves out AA000 and the support DIGITAL; the other statistics count them."},
    kBrokenPeriodOnSqlite,
    kPastedFilters,
};

constexpr Parameter kByDocumentParameters[] = {
    kOwnerText, {"CodOperador", "Código do operador que indexou; vazio é todos", "001"}, kCodDepto, kFirstDay, kLastDay,
};
constexpr Column kByDocument[] = {
    kPeriodTitle, kOperador, kDepto, {"DATA_INDEXACAO", kDate, "Data de indexação, com hora"},
    kCodDocto,    kFundo,    kOwner,
};
constexpr Oddity kByDocumentOddities[] = {kBrokenPeriodOnSqlite, kPastedFilters};

#define KODRA_COUNT(number)                                                                                          \
  Parameter {                                                                                                        \
    "NumeroPC" number, "Documentos com a palavra-chave " number ", contados pelo cliente; vai sem aspas", number "2" \
  }
constexpr Parameter kByKeywordsParameters[] = {
    kOwnerText,
    {"DescrDepto", "Texto que volta na coluna DEPTO", "Todos os Departamentos"},
    {"DescrOperador", "Texto que volta na coluna OPERADOR", "Todos os Operadores"},
    {"DataInicial", "Primeiro dia do período, só para o título", "01/02/2024"},
    {"DataFinal", "Último dia do período, só para o título", "29/02/2024"},
    KODRA_COUNT("1"),
    KODRA_COUNT("2"),
    KODRA_COUNT("3"),
    KODRA_COUNT("4"),
    KODRA_COUNT("5"),
    {"NumeroObs", "Documentos com observação, contados pelo cliente; vai sem aspas", "7"},
};
#undef KODRA_COUNT
constexpr Column kByKeywords[] = {
    kPeriodTitle,
    {"OPERADOR", kText, "O parâmetro DescrOperador"},
    {"DEPTO", kText, "O parâmetro DescrDepto"},
    {"PC1", kNumber, "O parâmetro NumeroPC1"},
    {"PC2", kNumber, "O parâmetro NumeroPC2"},
    {"PC3", kNumber, "O parâmetro NumeroPC3"},
    {"PC4", kNumber, "O parâmetro NumeroPC4"},
    {"PC5", kNumber, "O parâmetro NumeroPC5"},
    {"OBS", kNumber, "O parâmetro NumeroObs"},
    kFundo,
    kOwner,
};
constexpr Oddity kByKeywordsOddities[] = {
    {"Um número vazio deixa a instrução com erro de sintaxe", "A count left empty is invalid SQL."}};
constexpr Failure kByKeywordsFailures[] = {
    {"Erro de sintaxe do banco", "Dê um número a NumeroPC1 até NumeroPC5 e a NumeroObs, mesmo que seja 0"}};

constexpr Parameter kBySupportParameters[] = {
    kFirstDay, kLastDay, {"TipoRpt", "F traz folhas, P folhas e versos, outro valor só os documentos", "F"}};
constexpr Column kBySupport[] = {
    {"TIT", kText, "Título: Período: … a …"},
    kCodDocto,
    kDescrSuporte,
    {"FRENTE", kNumber, "Folhas: páginas de frente", "FP"},
    {"VERSO", kNumber, "Páginas de verso; 0 com TipoRpt F", "FP"},
};
constexpr Oddity kBySupportOddities[] = {
    {"Com F as folhas vêm com um verso sempre 0", "Front pages come with a back count of 0"},
    kBrokenPeriodOnSqlite,
};

constexpr Column kBySubgroup[] = {
    {"TITULO", kText, "Título com o nome que a instalação dá ao subgrupo"},
    kPeriodTitle,
    kDescrGrupo,
    {"FRENTE", kNumber, "Folhas: páginas de frente", "FP"},
    {"VERSO", kNumber, "Páginas de verso", "P"},
    {"COD_DOCTO", kText, "Código do documento", "*"},
};
constexpr Oddity kBySubgroupOddities[] = {
    {"O período vai ao banco com o ano na frente, ao contrário das outras estatísticas",
     "The subgroup statistics read the date year first,"},
    kBrokenPeriodOnSqlite,
};

constexpr Parameter kBySeriesParameters[] = {
    kFirstDay,
    {"DataFinal", "Último dia do período; a instrução vai até o dia seguinte, inclusive", "29/02/2024"},
    {"TipoRpt", "N conta documentos; F, P e qualquer outro somam as folhas", "N"},
    {"CodGrupo", "Código do subgrupo; vazio não traz nenhuma linha", "001"},
};
constexpr Column kBySeries[] = {
    {"Titulo", kText, "Título com o nome que a instalação dá à série"},
    {"Subtitulo", kText, "O que se conta: folhas, páginas ou documentos"},
    {"Periodo", kText, "Período: … a …"},
    {"Subgrupo", kText, "O nome que a instalação dá ao subgrupo, e o subgrupo"},
    {"Serie", kText, "Série"},
    {"Total", kNumber, "Documentos, com TipoRpt N; senão, soma das folhas"},
};
constexpr Oddity kBySeriesOddities[] = {
    {"F e P só mudam o subtítulo: as duas somam as folhas, como qualquer valor que não seja N",
     "Pages are front pages in the series statistics."},
    {"A meia-noite do dia seguinte ao último conta", "The series statistics end a day later."},
    kBrokenPeriodOnSqlite,
};

constexpr auto kReports = std::to_array<Report>({
    {"CEstatImgRpt",
     "RelatorioEstatisticas",
     "A produção da digitalização em um período",
     kImagingParameters,
     kImaging,
     kImagingOddities,
     {}},
    {"CEstatIndexRpt",
     "RelatorioEstatisticasPorDocumento",
     "Os documentos indexados em um período",
     kByDocumentParameters,
     kByDocument,
     kByDocumentOddities,
     {}},
    {"CEstatIndexRpt", "RelatorioEstatisticasPorPalavrasChave", "Os totais de palavras-chave que o cliente contou",
     kByKeywordsParameters, kByKeywords, kByKeywordsOddities, kByKeywordsFailures},
    {"CEstatSuporteRpt",
     "RelatorioEstatisticas",
     "Os documentos, folhas ou páginas armazenados, por suporte",
     kBySupportParameters,
     kBySupport,
     kBySupportOddities,
     {}},
    {"CEstatSubgrupoRpt",
     "RelatorioEstatisticas",
     "Os documentos, folhas ou páginas armazenados, por subgrupo",
     kBySupportParameters,
     kBySubgroup,
     kBySubgroupOddities,
     {}},
    {"CEstatSerieRpt",
     "RelatorioEstatisticas",
     "Os totais armazenados por série de um subgrupo",
     kBySeriesParameters,
     kBySeries,
     kBySeriesOddities,
     {}},
});

}  // namespace

std::span<const Report> Statistics() { return kReports; }

}  // namespace kodra::console::guide
