#include "console/reports/errors.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "console/reports/families.h"
#include "frame/report_call.h"
#include "values/erro.h"
#include "values/upper.h"
#include "values/utf8.h"

namespace kodra::console::guide {
namespace {

constexpr std::string_view kVaries = "…";

constexpr auto kErrors = std::to_array<Error>({
    {frame::kReportError, "Erro ao gerar dados para o relatório: …", "um método de relatório falhou",
     "Procure a causa, que está depois dos dois-pontos, na lista das causas"},
    {frame::kReportError, "Erro …: …", "o mesmo em COperadorRpt, que diz a etapa antes dos dois-pontos",
     "Procure a causa, que está depois dos dois-pontos, na lista das causas"},
    {438, "O objeto não aceita esta propriedade ou método", "o objeto não tem esse membro",
     "Confira o nome da propriedade: a página da classe de parâmetros traz todos"},
    {13, "Tipos incompatíveis", "a propriedade pede uma data, ou True ou False, e recebeu outro valor",
     "Informe uma data, ou True ou False"},
    {94, "Uso de 'Null' inválido", "uma propriedade não aceita Null", "Deixe-a como está ou informe um valor"},
    {6, "Estouro", "uma data está fora dos anos 100 a 9999", "Confira a data"},
});

constexpr auto kCauses = std::to_array<Error>({
    {kErrBase + 9998, "É preciso definir a propriedade \"StringConexao\".", "a conexão está vazia",
     "Defina StringConexao antes de chamar o método; no kodrarpt, informe --conexao"},
    {kErrBase + 9998, "Uma das propriedades \"Conexao\" ou \"StringConexao\" precisam ser informadas.",
     "a conexão está vazia, em um relatório de módulos",
     "Defina StringConexao ou passe uma conexão aberta em Conexao; no kodrarpt, informe --conexao"},
    {kErrBase + 9999, "Objeto não definido.", "falta o objeto de parâmetros (é Nothing)",
     "Crie um objeto da classe …RptObj e passe-o ao método, mesmo que o relatório não leia nada dele"},
    {kErrBase + 1, "Não há entrada para o banco tipo …", "o banco não é Oracle, SQL Server, MySQL, DB2 nem SQLite",
     "Confira o provedor na string de conexão e a versão de KodraConexao"},
    {kErrBase + 1, "Banco de dados \"…\" não encontrado.",
     "o arquivo \"…\" não existe, ou a pasta dele não pode ser lida",
     "Confira o caminho em Database, na string de conexão do SQLite, e as permissões do usuário"},
    {kErrBase + 2, "Banco de dados \"…\" danificado.", "o arquivo \"…\", do SQLite, está vazio",
     "Restaure uma cópia de segurança"},
    {kErrBase + 10, kNoListOfSubordinates.cause, kNoListOfSubordinates.whatHappened, kNoListOfSubordinates.remedy},
    {kErrBase + 11, kNoClosedSubordinate.cause, kNoClosedSubordinate.whatHappened, kNoClosedSubordinate.remedy},
    {kErrBase + 1, "Arquivo INI ou String de Conexão não informada.",
     "um parâmetro do sistema foi pedido sem string de conexão", "Defina StringConexao"},
    {kErrBase + 2, "Parâmetro desconhecido: \"…\".",
     "o parâmetro do sistema \"…\" não existe, o que não acontece com os relatórios deste componente",
     "Confira o nome no programa que o pediu"},
    {429, "Não foi possível criar objeto da classe \"…\".",
     "o componente da classe \"…\" não está registrado para programas de 32 bits (ou de 64, se o programa é de 64)",
     "Registre-o com o regsvr32 de 32 bits (ou com o de 64)"},
    {429, "O componente ActiveX não pode criar o objeto",
     "um componente de que o relatório precisa não está registrado para programas de 32 bits (ou de 64, se o "
     "programa é de 64)",
     "Registre KodraConexao, KodraBsnV3, KodraRegEvt, VantLib, VantLog e o ADO com o regsvr32 de 32 bits (ou com "
     "o de 64)"},
    {438, "O objeto de parâmetros não tem a propriedade \"…\".", "o objeto de parâmetros não tem a propriedade \"…\"",
     "Passe o objeto de parâmetros da classe do relatório, ou acrescente a propriedade ao seu próprio objeto"},
    {91, "A variável do objeto ou a variável do bloco 'With' não foi definida",
     "um componente não devolveu o que o relatório esperava", "Confira a instalação dos componentes"},
    {424, "O objeto é obrigatório", "um componente devolveu um valor onde o relatório esperava um objeto",
     "Confira a versão do componente"},
    {94, "Uso de 'Null' inválido", "há um nulo onde o relatório precisa de um valor",
     "Confira os dados do registro e, em um objeto do próprio cliente, as propriedades que devolvem Null"},
    {13, "Tipos incompatíveis", "um objeto do próprio cliente devolveu um valor que não serve para a propriedade",
     "Confira o tipo da propriedade"},
    {6, "Estouro", "uma data está fora dos anos 100 a 9999, ou um número é grande demais",
     "Confira as datas e os números informados"},
    {7, "Memória insuficiente", "faltou memória", "Feche outros programas ou peça menos dados"},
    {51, "Erro interno", "o componente falhou de um modo que não previa",
     "Anote o que fez e avise quem mantém o componente"},
});

// The part of the text that `…` in the pattern matches; nothing if the text does not match the pattern. REQUIRES: the
// pattern has one … at most.
std::optional<std::string> VaryingPart(std::string_view pattern, std::string_view text) {
  const std::size_t at = pattern.find(kVaries);
  if (at == pattern.npos) return pattern == text ? std::optional<std::string>("") : std::nullopt;
  const std::string_view before = pattern.substr(0, at);
  const std::string_view after = pattern.substr(at + kVaries.size());
  const bool matches = text.size() >= before.size() + after.size() && text.starts_with(before) && text.ends_with(after);
  if (!matches) return std::nullopt;
  return std::string(text.substr(before.size(), text.size() - before.size() - after.size()));
}

std::string Filled(std::string_view pattern, const std::string& part) {
  std::string text(pattern);
  if (const std::size_t at = text.find(kVaries); at != text.npos) text.replace(at, kVaries.size(), part);
  return text;
}

const Answer* AnswerIn(std::string_view cause) {
  const std::wstring upper = values::UpperCase(values::FromUtf8(cause));
  const auto found = std::ranges::find_if(Answers(), [&](const Answer& answer) {
    return std::ranges::any_of(answer.words, [&](std::string_view words) {
      return upper.find(values::UpperCase(values::FromUtf8(words))) != upper.npos;
    });
  });
  return found == Answers().end() ? nullptr : &*found;
}

// What the report says about a text: the description of an error, its cause, or the name of the kind of answer.
std::optional<Explanation> SaidBy(const Report* report, std::string_view text) {
  if (report == nullptr) return std::nullopt;
  for (const Failure& failure : report->failures) {
    if (const std::optional<std::string> part = VaryingPart(failure.cause, text))
      return Explanation{Filled(failure.whatHappened, *part), std::string(failure.remedy)};
  }
  return std::nullopt;
}

}  // namespace

std::span<const Error> Errors() { return kErrors; }

std::span<const Error> Causes() { return kCauses; }

const std::vector<Answer>& Answers() {
  static const std::vector<Answer> answers = {
      {"Tabela ou coluna que o banco não tem",
       {"no such table", "no such column", "doesn't exist", "Unknown column", "Invalid object name",
        "Invalid column name", "ORA-00942", "ORA-00904", "SQL0204N", "SQL0206N"},
       "o banco não tem uma tabela ou coluna que o relatório lê, ou o usuário não a vê",
       "Confira a conexão; \"kodrarpt verifica\" mostra tudo o que falta"},
      {"Tabela que o usuário não pode ler",
       {"command denied", "permission was denied", "ORA-01031", "SQL0551N"},
       "o usuário não pode ler uma tabela",
       "Peça a permissão a quem administra o banco: \"kodrarpt esquema --permissoes\" escreve as instruções"},
      {"Usuário ou senha que o banco recusa",
       {"Access denied for user", "Login failed", "ORA-01017", "SQL30082N"},
       "o banco não aceita o usuário ou a senha",
       "Confira o usuário e a senha; no kodrarpt, ela pode estar na variável KODRARPT_SENHA"},
      {"Driver ou fonte de dados desconhecidos",
       {"Can't open lib", "Data source name not found", "Nome da fonte de dados não encontrado",
        "Provider cannot be found"},
       "esta máquina não tem o driver ou a fonte de dados da conexão",
       "Confira o nome em Driver, DSN ou Provider, e instale o driver; um programa de 32 bits precisa de um de 32 "
       "bits"},
      {"Banco que o servidor não tem",
       {"Unknown database", "Cannot open database"},
       "o servidor não tem o banco de dados da conexão",
       "Confira o nome do banco na string de conexão"},
      {"Servidor que não responde",
       {"Can't connect to", "Unknown server host", "Unknown MySQL server host", "Connection refused",
        "SQL Server does not exist", "ORA-12154", "ORA-12170", "ORA-12514", "ORA-12541", "SQL30081N"},
       "o servidor do banco não responde",
       "Confira o nome e a porta do servidor, e se ele está no ar"},
      {"Arquivo que não é um banco SQLite",
       {"file is not a database", "disk image is malformed"},
       "o arquivo não é um banco SQLite, ou está danificado",
       "Confira o caminho em Database, na string de conexão, ou restaure uma cópia de segurança"},
      {"Banco ocupado",
       {"database is locked", "database table is locked", "Lock wait timeout", "ORA-00054"},
       "outro programa está gravando no banco",
       "Tente de novo daqui a pouco"},
      {"Tempo esgotado",
       {"Timeout expired", "Tempo limite", "Query execution was interrupted", "ORA-01013"},
       "o banco demorou mais do que o tempo permitido",
       "Peça um período menor; \"kodrarpt verifica\" mostra os índices que faltam"},
      {"Erro de sintaxe do banco",
       {"syntax error", "SQL syntax", "Incorrect syntax", "ORA-009", "SQL0104N"},
       "o banco não aceita a instrução do relatório",
       "Tire o apóstrofo dos códigos informados; se não há nenhum, o relatório não serve para este banco, como diz "
       "\"kodrarpt verifica\""},
  };
  return answers;
}

std::string CauseIn(std::string_view description) {
  constexpr std::string_view kColon = ": ";
  if (const std::size_t colon = description.find(kColon); description.starts_with("Erro ") && colon != description.npos)
    description.remove_prefix(colon + kColon.size());
  while (description.starts_with('[') && description.find(']') != description.npos) {
    description.remove_prefix(description.find(']') + 1);
    if (description.starts_with(kColon)) description.remove_prefix(kColon.size());
  }
  if (const std::size_t code = description.rfind(" [N:"); code != description.npos && description.ends_with(']'))
    description = description.substr(0, code);
  return std::string(description);
}

std::optional<Explanation> Explain(std::string_view description, const Report* report) {
  const std::string cause = CauseIn(description);
  if (auto special = SaidBy(report, cause)) return special;
  for (const Error& known : kCauses) {
    if (const std::optional<std::string> part = VaryingPart(known.text, cause))
      return Explanation{Filled(known.whatHappened, *part), std::string(known.remedy)};
  }
  const Answer* const answer = AnswerIn(cause);
  if (answer == nullptr) return SaidBy(report, description);
  Explanation explanation = {std::string(answer->whatHappened), std::string(answer->remedy)};
  if (auto special = SaidBy(report, answer->name)) explanation = *special;
  explanation.isAnswer = true;
  return explanation;
}

std::string NumberWords(std::int32_t number) {
  if (number >= 0) return std::to_string(number);
  char hexadecimal[9];
  std::snprintf(hexadecimal, sizeof hexadecimal, "%08X", static_cast<unsigned>(number));
  return std::string(hexadecimal) + " (" + std::to_string(number) + ")";
}

}  // namespace kodra::console::guide
