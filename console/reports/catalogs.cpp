// The guide to the catalogs.
#include <array>

#include "console/reports/families.h"

namespace kodra::console::guide {
namespace {

constexpr Parameter kTipoRpt[] = {
    {"TipoRpt", "V, ou qualquer texto que comece com v, lista só as mídias vencidas; outro valor lista todas", "V"}};
constexpr Column kMidias[] = {
    {"NUM_CD", kText, "Número da mídia"},
    kDocInicial,
    kDocFinal,
    {"DATA_GRAVACAO", kDate, "Data de gravação"},
    {"RELATORIO", kText, "Título: Todas as Mídias ou Mídias Vencidas"},
};
constexpr Oddity kMidiasOddities[] = {
    {"Sem V a lista não olha o tipo; com V a mídia sem tipo fica de fora",
     "Media without \"V\" are listed without their type."},
    {"TipoRpt é lido duas vezes: um objeto próprio do cliente que mude de resposta mistura título e lista",
     "TipoRpt is read twice."},
    {"No SQLite a soma dos anos de validade sai entre aspas e nenhuma mídia vence",
     "On SQLite a date is added to a quoted name."},
};

constexpr Column kTiposMidia[] = {
    {"DESCR_MIDIA", kText, "Tipo de mídia"},
    {"VALIDADE_MIDIA", kNumber, "Validade, em anos"},
    {"CAPACIDADE_MIDIA", kNumber, "Capacidade"},
};

constexpr Column kSuportes[] = {kDescrSuporte};

constexpr Column kSeries[] = {
    {"DESCR_CLASSE", kText, "Grupo"},
    kDescrGrupo,
    kDescrAssunto,
    {"OBS_ASSUNTO", kText, "Observação da série"},
    {"DONO", kText, "Código do operador responsável"},
    {"SERIE_ATIVA", kText, "Se a série está ativa, como está no banco"},
    KODRA_FIVE_COLUMNS("DESCR_CHAVE", "Legenda da chave"),
    {"OBRIGATORIA1", kText, "S: a chave 1 é sempre obrigatória"},
    {"OBRIGATORIA2", kText, "Se a chave 2 é obrigatória: S, N, ou vazio sem a chave"},
    {"OBRIGATORIA3", kText, "Se a chave 3 é obrigatória: S, N, ou vazio sem a chave"},
    {"OBRIGATORIA4", kText, "Se a chave 4 é obrigatória: S, N, ou vazio sem a chave"},
    {"OBRIGATORIA5", kText, "Se a chave 5 é obrigatória: S, N, ou vazio sem a chave"},
    KODRA_FIVE_COLUMNS("MASK", "Máscara da chave"),
    {"DESCR_OPERADOR", kText, "Operador responsável; nulo sem responsável"},
    {"NOMEGRUPO", kText, "Como a instalação chama o grupo"},
    {"NOMESUBGRUPO", kText, "Como a instalação chama o subgrupo"},
    {"NOMESERIE", kText, "Como a instalação chama a série"},
    {"NOMESERIEPLURAL", kText, "Como a instalação chama as séries"},
};

constexpr Column kDepositos[] = {
    {"NOME", kText, "Depósito"}, {"ENDERECO", kText, "Endereço"},
    {"CIDADE", kText, "Cidade"}, {"ESTADO", kText, "Estado"},
    {"CEP", kText, "CEP"},       {"TELEFONE", kText, "Telefone"},
    {"FAX", kText, "Fax"},       {"CONTATO", kText, "Pessoa de contato"},
};

constexpr Column kTermos[] = {
    kDescrGrupo,
    kDescrAssunto,
    {"COD_PALAVRA", kText, "Código do termo"},
    KODRA_FIVE_COLUMNS("DESCR_CHAVE", "Legenda da chave"),
    {"DESCR_DICIONARIO", kText, "Termo controlado"},
};

constexpr Column kDeptos[] = {
    {"DESCR_DEPTO", kText, "Departamento"},
    {"ENDERECO", kText, "Endereço"},
    {"CIDADE", kText, "Cidade"},
    {"ESTADO", kText, "Estado"},
    {"CEP", kText, "CEP"},
    {"END_EMAIL", kText, "E-mail"},
};

constexpr Column kGrupos[] = {{"DESCR_CLASSE", kText, "Grupo"}, {"OBS_CLASSE", kText, "Observação do grupo"}};

constexpr Parameter kCodModelo[] = {
    {"CodModelo", "Código do modelo, em qualquer caixa e sem os espaços das pontas; vazio lista todos", "OFICIO"}};
constexpr Column kModelos[] = {
    {"GRUPO", kText, "Grupo; nulo se o subgrupo não tem"},
    {"SUBGRUPO", kText, "Subgrupo"},
    {"SERIE", kText, "Série"},
    KODRA_FIVE_COLUMNS("DESCR_CHAVE", "Legenda da chave"),
    KODRA_FIVE_COLUMNS("CHAVE", "Valor da chave"),
    {"VALIDADE", kNumber, "Validade, em anos"},
};
constexpr Oddity kModelosOddities[] = {{"O código é cortado em 128 caracteres antes de perder os espaços",
                                        "A model's code is cut to 128 characters before it is trimmed."}};

constexpr Column kTiposModulo[] = {
    {"DESCR_TIPO_CX", kText, "Tipo de módulo"},
    {"NUM_MAX_DOCS", kNumber, "Máximo de documentos"},
    {"NUM_MAX_FOLHAS", kNumber, "Máximo de folhas"},
};

constexpr Column kGruposOperadores[] = {{"DESCR_GRPOP", kText, "Grupo de operadores"},
                                        {"OBS_GRPOP", kText, "Observação do grupo"}};

constexpr Column kSubgrupos[] = {
    {"DESCR_CLASSE", kText, "Grupo"},
    kDescrGrupo,
    {"OBS_GRUPO", kText, "Observação do subgrupo"},
    {"IDC_ATIVO", kText, "Se o subgrupo está ativo, como está no banco"},
};
constexpr Oddity kSubgruposOddities[] = {{"No SQL os apelidos se cruzam: g é o grupo (CLASSE), sb o subgrupo (GRUPO)",
                                          "In the subgroups the aliases cross over:"}};

constexpr Column kOperadores[] = {
    {"DESCR_OPERADOR", kText, "Nome de acesso"},
    {"NOME_COMPLETO", kText, "Nome completo"},
    {"DESCR_TIPO", kText, "Tipo de operador, pelo componente KodraBsnV3.ObtedorDeTiposOperadores"},
    {"DESCR_DEPTO", kText, "Departamento"},
    {"CHAPA", kText, "Número da chapa"},
    {"RAMAL", kText, "Ramal"},
    {"DESCR_GRUPO_OP", kText, "Grupo de operadores"},
    {"ATIVO", kFlag, "Se o operador está ativo"},
};
constexpr Oddity kOperadoresOddities[] = {
    {"Uma marca de ativo que começa com vírgula vale como sim", "Operators: a comma means yes."},
    {"O erro diz a etapa, não \"Erro ao gerar dados para o relatório\"",
     "Operators: an error names its step and not the report."},
    {"Sem operadores o resultado é Nothing, sem erro", "Operators: none is no recordset."},
    {"Um texto de mais de 255 caracteres é erro", "Operators: a text longer than 255 characters fails the report."},
};
constexpr Failure kOperadoresFailures[] = {
    {"Erro : …", "O que falhou antes do banco está depois dos dois-pontos: a StringConexao ou o objeto de parâmetros"},
    {"Erro ao obter dados do SGBD: …", "Veja a causa que o banco deu, depois dos dois-pontos"},
    {"Erro ao preencher conjunto de dados de saída: …",
     "Um texto do operador passa de 255 caracteres, ou o componente KodraBsnV3.ObtedorDeTiposOperadores falhou"},
};

constexpr auto kReports = std::to_array<Report>({
    {"CCDRpt", "RelatorioMidias", "As mídias, todas ou só as vencidas", kTipoRpt, kMidias, kMidiasOddities, {}},
    {"CTipo_MidiaRpt", "RelatorioTiposMidia", "Os tipos de mídia, com validade e capacidade", {}, kTiposMidia, {}, {}},
    {"CSuporteRpt", "RelatorioSuportes", "Os suportes dos documentos", {}, kSuportes, {}, {}},
    {"CSerieRpt", "RelatorioSeries", "As séries por grupo e subgrupo, com as suas chaves", {}, kSeries, {}, {}},
    {"CDepositoRpt", "RelatorioDepositos", "Os depósitos, com endereço e contato", {}, kDepositos, {}, {}},
    {"CDicionarioRpt",
     "RelatorioTermosControlados",
     "Os termos controlados das chaves de cada série",
     {},
     kTermos,
     {},
     {}},
    {"CDeptoRpt", "RelatorioDeptos", "Os departamentos, com endereço", {}, kDeptos, {}, {}},
    {"CGrupoRpt", "RelatorioGrupos", "Os grupos da classificação", {}, kGrupos, {}, {}},
    {"CModeloRpt",
     "RelatorioModelos",
     "Os modelos de documento, todos ou um só",
     kCodModelo,
     kModelos,
     kModelosOddities,
     {}},
    {"CTipo_CaixaRpt", "RelatorioTiposModulo", "Os tipos de módulo, com a sua capacidade", {}, kTiposModulo, {}, {}},
    {"CGrupoOperadorRpt", "RelatorioGruposOperadores", "Os grupos de operadores", {}, kGruposOperadores, {}, {}},
    {"CSubgrupoRpt",
     "RelatorioSubgrupos",
     "Os subgrupos da classificação, por grupo",
     {},
     kSubgrupos,
     kSubgruposOddities,
     {}},
    {"COperadorRpt",
     "RelatorioOperadores",
     "Os operadores, com departamento, grupo, tipo e ramal",
     {},
     kOperadores,
     kOperadoresOddities,
     kOperadoresFailures},
});

}  // namespace

std::span<const Report> Catalogs() { return kReports; }

}  // namespace kodra::console::guide
