#include "testbed/archive/vocabulary.h"

namespace kodra::testbed {
namespace {

constexpr City kCities[] = {
    {L"São Paulo", L"SP", L"01310"},     {L"Belém", L"PA", L"66010"},
    {L"Goiânia", L"GO", L"74003"},       {L"Ribeirão Preto", L"SP", L"14010"},
    {L"Florianópolis", L"SC", L"88010"}, {L"Rio de Janeiro", L"RJ", L"20040"},
    {L"São Luís", L"MA", L"65010"},      {L"Brasília", L"DF", L"70040"},
    {L"Maceió", L"AL", L"57020"},        {L"Belo Horizonte", L"MG", L"30130"},
    {L"João Pessoa", L"PB", L"58010"},   {L"Vitória", L"ES", L"29010"},
    {L"Cuiabá", L"MT", L"78005"},        {L"Porto Alegre", L"RS", L"90010"},
    {L"Uberlândia", L"MG", L"38400"},    {L"Salvador", L"BA", L"40020"},
    {L"Macapá", L"AP", L"68900"},        {L"Niterói", L"RJ", L"24020"},
    {L"Santarém", L"PA", L"68005"},      {L"Fortaleza", L"CE", L"60025"},
    {L"Maringá", L"PR", L"87013"},       {L"Mossoró", L"RN", L"59610"},
    {L"Recife", L"PE", L"50030"},        {L"Jundiaí", L"SP", L"13201"},
    {L"Curitiba", L"PR", L"80020"},      {L"Teresina", L"PI", L"64000"},
    {L"Itajaí", L"SC", L"88301"},        {L"Manaus", L"AM", L"69005"},
    {L"Campo Grande", L"MS", L"79002"},  {L"São José dos Campos", L"SP", L"12210"},
    {L"Aracaju", L"SE", L"49010"},       {L"Porto Velho", L"RO", L"76801"},
    {L"Rio Branco", L"AC", L"69900"},    {L"Palmas", L"TO", L"77001"},
    {L"Boa Vista", L"RR", L"69301"},     {L"Conceição do Araguaia", L"PA", L"68540"},
};

constexpr std::wstring_view kFirstNames[] = {
    L"João",    L"Conceição", L"Antônio", L"Verônica", L"José",    L"Márcia",  L"Luís",      L"Ângela",
    L"Fábio",   L"Inês",      L"Sérgio",  L"Patrícia", L"André",   L"Cláudia", L"Otávio",    L"Lúcia",
    L"Caetano", L"Mônica",    L"Emílio",  L"Simão",    L"Íris",    L"Ronaldo", L"Letícia",   L"Érico",
    L"Úrsula",  L"Marçal",    L"Débora",  L"Valdir",   L"Aurélio", L"Regina",  L"Júlia",     L"Estêvão",
    L"Cecília", L"Hélio",     L"Beatriz", L"Vinícius", L"Graça",   L"Tomás",   L"Terezinha", L"Flávio",
};

constexpr std::wstring_view kSurnames[] = {
    L"Gonçalves", L"Araújo",   L"D'Ávila", L"Simões",   L"Corrêa",   L"Magalhães", L"Conceição", L"Falcão",
    L"Guimarães", L"Mendonça", L"Vilaça",  L"Brandão",  L"Antunes",  L"Sá",        L"Queirós",   L"Patrício",
    L"Assunção",  L"Rebouças", L"Teófilo", L"Lourenço", L"Nóbrega",  L"Bragança",  L"Leitão",    L"Câmara",
    L"Esteves",   L"Furtado",  L"Galvão",  L"Hilário",  L"Jordão",   L"Kühn",      L"Marçal",    L"Nazaré",
    L"Ornelas",   L"Peçanha",  L"Rocha",   L"Tavares",  L"Zacarias",
};

constexpr std::wstring_view kStreets[] = {
    L"Avenida Presidente Juscelino", L"Rua da Conceição",   L"Travessa São José",
    L"Rodovia dos Imigrantes, km",   L"Praça da República", L"Rua Antônio Vieira",
    L"Alameda das Acácias",          L"Rua Três Corações",  L"Largo do Sertão",
    L"Avenida João Ribeiro",         L"Rua 7 de Setembro",  L"Estrada do Açaí",
};

constexpr std::wstring_view kCompanies[] = {
    L"Açúcar & Álcool do Sertão S.A.",
    L"Comércio de Cereais Irmãos Vilaça Ltda.",
    L"Fundição São Jorge",
    L"Gráfica Três Corações",
    L"Mineração Rio Açu S.A.",
    L"Papéis e Cartões do Sul",
    L"Transportes D'Ávila",
    L"Elétrica Luz Própria ME",
    L"Laboratório Saúde Já",
    L"Construções Pão de Açúcar",
    L"Tecelagem Fio d'Água",
    L"Móveis Jacarandá Ltda.",
    L"Café Sabiá Exportação",
    L"Aço & Forma Estruturas",
    L"Pró-Memória Serviços",
    L"Viação Andorinha do Agreste",
};

constexpr std::wstring_view kDepartments[] = {
    L"Almoxarifado",
    L"Arquivo Central",
    L"Assessoria Jurídica",
    L"Auditoria Interna",
    L"Compras",
    L"Comunicação Social",
    L"Contabilidade",
    L"Contas a Pagar",
    L"Controladoria",
    L"Expedição",
    L"Faturamento",
    L"Gestão de Pessoas",
    L"Importação e Exportação",
    L"Licitações",
    L"Manutenção",
    L"Ouvidoria",
    L"Produção",
    L"Qualidade & Inovação",
    L"Segurança do Trabalho",
    L"Tecnologia da Informação",
};

constexpr GroupEntry kGroups[] = {
    {L"Administração Geral", L"Papéis da direção e da secretaria."},
    {L"Financeiro e Contábil", L"Guarda mínima de cinco anos após o exercício."},
    {L"Gestão de Pessoas", L"Prontuários: guarda até o óbito do funcionário."},
    {L"Jurídico", L""},
    {L"Suprimentos", L"Licitações, cotações e pedidos."},
    {L"Produção & Qualidade", L"Laudos, inspeções e certificações."},
    {L"Patrimônio Histórico", L"Ainda sem subgrupos."},
};

constexpr SubgroupEntry kSubgroups[] = {
    {0, L"Correspondência", L"Recebida e expedida."},
    {0, L"Atas e Reuniões", L""},
    {1, L"Contas a Pagar", L"Inclui adiantamentos."},
    {1, L"Contas a Receber", L"Inclui cobrança judicial."},
    {1, L"Contabilidade", L"Livros e balancetes."},
    {2, L"Admissão e Demissão", L"Sigiloso."},
    {2, L"Folha de Pagamento", L"Sigiloso."},
    {2, L"Segurança do Trabalho", L"PPP, ASO e CAT."},
    {3, L"Contratos", L"Vigentes e encerrados."},
    {3, L"Processos Judiciais", L"Cíveis e trabalhistas."},
    {4, L"Compras", L"Nacionais e importação."},
    {5, L"Controle de Qualidade", L"Laboratório próprio."},
    {-1, L"Acervo em Organização", L"Aguarda classificação da comissão."},
};

constexpr KeyEntry kNumero{KeyKind::kNumber, L"Número", L"99999999"};
constexpr KeyEntry kProcesso{KeyKind::kNumber, L"Nº do Processo", L"9999999-99.9999"};
constexpr KeyEntry kMatricula{KeyKind::kNumber, L"Matrícula", L"999999"};
constexpr KeyEntry kNome{KeyKind::kPerson, L"Nome do Funcionário", L""};
constexpr KeyEntry kResponsavel{KeyKind::kPerson, L"Responsável", L""};
constexpr KeyEntry kFornecedor{KeyKind::kCompany, L"Razão Social", L""};
constexpr KeyEntry kEmissao{KeyKind::kDate, L"Data de Emissão", L"99/99/9999"};
constexpr KeyEntry kReuniao{KeyKind::kDate, L"Data da Reunião", L"99/99/9999"};
constexpr KeyEntry kPraca{KeyKind::kCity, L"Praça", L""};
constexpr KeyEntry kComarca{KeyKind::kCity, L"Comarca", L""};
constexpr KeyEntry kValor{KeyKind::kMoney, L"Valor (R$)", L"#.##0,00"};
constexpr KeyEntry kSem{};
constexpr KeyEntry kBranco{KeyKind::kBlank, L"", L""};

constexpr SeriesEntry kSeries[] = {
    {0, L"Cartas e Ofícios", 5, {kNumero, kFornecedor, kEmissao, kSem, kSem}},
    {0, L"Comunicações Internas", 2, {kNumero, kResponsavel, kBranco, kBranco, kSem}},
    {1, L"Atas da Diretoria", 100, {kNumero, kReuniao, kResponsavel, kPraca, kBranco}},
    {1, L"Atas de Assembleia", 100, {kNumero, kReuniao, kSem, kSem, kSem}},
    {2, L"Notas Fiscais de Entrada", 5, {kNumero, kFornecedor, kEmissao, kValor, kPraca}},
    {2, L"Recibos e Adiantamentos", 5, {kNumero, kNome, kValor, kSem, kBranco}},
    {3, L"Notas Fiscais de Saída", 5, {kNumero, kFornecedor, kEmissao, kValor, kPraca}},
    {3, L"Duplicatas", 5, {kNumero, kFornecedor, kValor, kSem, kSem}},
    {4, L"Livros Razão", 10, {kNumero, kBranco, kSem, kSem, kSem}},
    {4, L"Conciliação Bancária", 5, {kNumero, kEmissao, kValor, kPraca, kSem}},
    {5, L"Prontuários de Funcionários", 100, {kMatricula, kNome, kPraca, kSem, kSem}},
    {5, L"Rescisões", 30, {kMatricula, kNome, kEmissao, kValor, kSem}},
    {6, L"Folhas de Pagamento", 30, {kNumero, kEmissao, kSem, kBranco, kSem}},
    {6, L"Cartões de Ponto", 5, {kMatricula, kNome, kEmissao, kSem, kSem}},
    {7, L"Comunicações de Acidente", 20, {kNumero, kNome, kEmissao, kPraca, kResponsavel}},
    {7, L"Exames Periódicos", 20, {kMatricula, kNome, kBranco, kEmissao, kSem}},
    {8, L"Contratos de Locação", 10, {kNumero, kFornecedor, kPraca, kEmissao, kValor}},
    {8, L"Contratos de Prestação de Serviços", 10, {kNumero, kFornecedor, kEmissao, kValor, kResponsavel}},
    {9, L"Ações Cíveis", 20, {kProcesso, kComarca, kFornecedor, kResponsavel, kValor}},
    {9, L"Reclamações Trabalhistas", 20, {kProcesso, kComarca, kNome, kSem, kValor}},
    {10, L"Pedidos de Compra", 5, {kNumero, kFornecedor, kEmissao, kValor, kSem}},
    {10, L"Cotações", 2, {kNumero, kFornecedor, kSem, kValor, kSem}},
    {11, L"Laudos de Inspeção", 10, {kNumero, kResponsavel, kEmissao, kBranco, kBranco}},
    {11, L"Não Conformidades", 5, {kNumero, kResponsavel, kEmissao, kSem, kSem}},
    {12, L"Documentos Históricos", 100, {kNumero, kPraca, kSem, kSem, kSem}},
};

}  // namespace

std::span<const City> Cities() { return kCities; }
std::span<const std::wstring_view> FirstNames() { return kFirstNames; }
std::span<const std::wstring_view> Surnames() { return kSurnames; }
std::span<const std::wstring_view> Streets() { return kStreets; }
std::span<const std::wstring_view> Companies() { return kCompanies; }
std::span<const std::wstring_view> Departments() { return kDepartments; }
std::span<const GroupEntry> Groups() { return kGroups; }
std::span<const SubgroupEntry> Subgroups() { return kSubgroups; }
std::span<const SeriesEntry> SeriesOfOneSite() { return kSeries; }

}  // namespace kodra::testbed
