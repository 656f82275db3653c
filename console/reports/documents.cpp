// The guide to documents, requests and the event log.
#include <array>

#include "console/reports/families.h"

namespace kodra::console::guide {
namespace {

constexpr Parameter kDocumentFilter[] = {
    {"DataArmazenamento1", "Primeiro dia do período de armazenamento; só conta se DataArmazenamento2 for dada",
     "01/02/2024"},
    {"DataArmazenamento2", "Último dia do período; é ela que liga o filtro", "29/02/2024"},
    {"CodDepto", "Código do departamento, como está no banco; vazio não filtra", "001"},
};
constexpr Oddity kDocumentOddities[] = {
    {"Só a segunda data liga o período; sozinha, o período começa em 30/12/1899",
     "Only the second date switches the period on."},
    {"Os limites levam a hora, mas quem decide o que o banco vê deles é o dialeto",
     "The last day may end at midnight."},
    {"No SQLite um período é erro de sintaxe", "On SQLite a date bound is not quoted."},
    kPastedFilters,
};

constexpr Column kSintetico[] = {kCodDocto, kDescrSuporte, kNumCaixa, kNumCd, kDtArmaz, kDtVenc, kFrente, kVerso};

constexpr Column kAnalitico[] = {
    kCodDocto,
    kDescrGrupo,
    kDescrAssunto,
    KODRA_FIVE_COLUMNS("DESCR_CHAVE", "Valor da chave"),
    {"DESCR_OPERADOR", kText, "Operador que armazenou"},
    kDescrSuporte,
    kDtArmaz,
    {"ARQUIVO", kText, "Arquivo da cópia digital"},
    {"OBS", kText, "Observação do documento"},
    kFrente,
    kNumCaixa,
    kDtVenc,
    kVerso,
    kNumCd,
};

constexpr Column kInventarios[] = {
    kCodDocto,
    kDescrGrupo,
    kDescrAssunto,
    kNumCaixa,
    {"MACO", kText, "Maço"},
    kDtArmaz,
    KODRA_FIVE_COLUMNS("ACHAVE", "Legenda da chave"),
    KODRA_FIVE_COLUMNS("DESCR_CHAVE", "Valor da chave"),
    {"OBS", kText, "Observação do documento"},
};

constexpr Parameter kCodSolicit[] = {
    {"CodSolicit", "Código da solicitação, ou vários separados por vírgula; entra no SQL sem aspas", "1"}};
constexpr Column kRetirada[] = {
    {"OPERADOR", kText, "Nome completo de quem retira, ou o seu nome de acesso"},
    {"DOCUMENTOS", kText, "Linha pronta: documento, módulo e lugar"},
    {"DEVOLUCAO", kText, "Frase pronta sobre a devolução"},
    {"OBS_SOLICIT", kText, "Observação da solicitação, ou -"},
};
constexpr Oddity kRetiradaOddities[] = {
    {"Várias solicitações saem em uma guia só, com o operador, a frase e a observação da primeira que o banco der",
     "Withdrawal: several requests share one sentence."},
    {"Sem documento é erro, não uma guia vazia", "Withdrawal: no document is an error,"},
    {"O recordset vem parado na última linha", "Withdrawal: the slip stands on its last row."},
};
constexpr Failure kRetiradaFailures[] = {{"A variável do objeto ou a variável do bloco 'With' não foi definida",
                                          "A solicitação não tem documento em nenhum módulo: confira CodSolicit"}};

constexpr Parameter kListarJaDevolvidos[] = {
    {"ListarJaDevolvidos", "Sim junta os originais já devolvidos; muda também o título", "sim"}};
constexpr Column kDevolucao[] = {
    {"TITULO", kText, "Título da listagem"},
    kCodDocto,
    {"DESCR_OPERADOR", kText, "Nome completo de quem retirou, ou o seu nome de acesso"},
    {"DT_RETIRADA", kText, "Data de retirada, dd/mm/aaaa"},
    {"DEVOLVIDO", kText, "Modo: P permanente, I sem data, D com data, S já devolvido"},
    {"DT_DEVOLUCAO", kText, "Data de devolução, dd/mm/aaaa"},
};
constexpr Oddity kDevolucaoOddities[] = {
    {"CodSolicit não é usado: a listagem cobre todas as solicitações", "Returned originals: CodSolicit is not used."},
    {"No SQLite a data não tem texto e a instrução é erro de sintaxe", "On SQLite a date has no text."},
};

constexpr Parameter kLogFilter[] = {
    {"MaquinaOrigem", "Computador de onde veio o evento", "BALCAO01", false},
    {"Operador", "Nome do operador", "MARIA", false},
    {"Acao", "Texto da ação", "retirada", false},
    {"Evento", "Tipo de evento; contam os três primeiros caracteres, em maiúsculas", "ALT", false},
    {"CodDocto", "Código do documento", "D000001", false},
    {"DataInicial", "Primeiro dia", "01/02/2024", false},
    {"DataFinal", "Último dia", "29/02/2024", false},
};
#define KODRA_ACAO(number) \
  Column { "ACAO" number, kText, "Parte " number " da ação, até 250 caracteres" }
constexpr Column kLog[] = {
    {"DATA", kDate, "Data e hora do evento"},
    {"HORA", kText, "Hora do evento, hh:mm:ss"},
    {"DESCR_OPERADOR", kText, "Operador, até 250 caracteres"},
    {"MAQUINA", kText, "Computador, até 250 caracteres"},
    {"COD_DOCTO", kText, "Código do documento, até 10 caracteres"},
    {"COD_ACAO", kText, "Tipo do evento, até 10 caracteres"},
    KODRA_ACAO("1"),
    KODRA_ACAO("2"),
    KODRA_ACAO("3"),
    KODRA_ACAO("4"),
    KODRA_ACAO("5"),
    KODRA_ACAO("6"),
    KODRA_ACAO("7"),
    KODRA_ACAO("8"),
    KODRA_ACAO("9"),
    KODRA_ACAO("10"),
    KODRA_ACAO("11"),
    KODRA_ACAO("12"),
    KODRA_ACAO("13"),
    KODRA_ACAO("14"),
    KODRA_ACAO("15"),
    KODRA_ACAO("16"),
    KODRA_ACAO("17"),
    KODRA_ACAO("18"),
    KODRA_ACAO("19"),
    KODRA_ACAO("20"),
    KODRA_ACAO("21"),
    KODRA_ACAO("22"),
    KODRA_ACAO("23"),
    KODRA_ACAO("24"),
    KODRA_ACAO("25"),
    KODRA_ACAO("26"),
    KODRA_ACAO("27"),
    KODRA_ACAO("28"),
    KODRA_ACAO("29"),
    KODRA_ACAO("30"),
    KODRA_ACAO("31"),
    KODRA_ACAO("32"),
};
#undef KODRA_ACAO
constexpr Oddity kLogOddities[] = {
    {"Uma ação de mais de 8000 caracteres é erro, porque não há campo ACAO33",
     "Log: an action longer than 8000 characters fails the report,"},
    {"Nenhum evento é erro; nenhuma coleção é Nothing", "Log: no event is an error, no collection is Nothing."},
};
constexpr Failure kLogFailures[] = {{"O texto do ADO instalado para \"nenhum registro atual\" (3021)",
                                     "Nenhum evento passa pelo filtro: alargue o período ou tire filtros"}};

constexpr auto kReports = std::to_array<Report>({
    {"CDocumentoRpt",
     "RelatorioSintetico",
     "Os documentos em resumo: suporte, lugar, datas, folhas",
     kDocumentFilter,
     kSintetico,
     kDocumentOddities,
     {}},
    {"CDocumentoRpt",
     "RelatorioAnalitico",
     "Os documentos em detalhe: classificação, chaves, arquivo",
     kDocumentFilter,
     kAnalitico,
     kDocumentOddities,
     {}},
    {"CDocumentoRpt",
     "RelatorioInventarios",
     "Os documentos de inventário, com as chaves e as suas legendas",
     kDocumentFilter,
     kInventarios,
     kDocumentOddities,
     {}},
    {"CSolicitacaoRpt", "RelatorioRetiradaOriginal", "A guia de retirada dos originais de solicitações", kCodSolicit,
     kRetirada, kRetiradaOddities, kRetiradaFailures},
    {"CSolicitacaoRpt",
     "RelatorioDevolucaoOriginal",
     "Os originais retirados ou já devolvidos",
     kListarJaDevolvidos,
     kDevolucao,
     kDevolucaoOddities,
     {}},
    {"CLogRpt", "RelatorioLog", "Os eventos do registro, por período, operador e tipo", kLogFilter, kLog, kLogOddities,
     kLogFailures},
});

}  // namespace

std::span<const Report> Documents() { return kReports; }

}  // namespace kodra::console::guide
