#include "console/reports/errors.h"

#include <array>
#include <cstdio>

#include "frame/report_call.h"
#include "values/erro.h"

namespace kodra::console::guide {
namespace {

constexpr auto kErrors = std::to_array<Error>({
    {frame::kReportError, "Erro ao gerar dados para o relatório: …",
     "É o erro dos métodos de relatório; a causa está depois dos dois-pontos: procure-a na lista das causas"},
    {frame::kReportError, "Erro …: …",
     "É o erro de COperadorRpt, que diz a etapa antes dos dois-pontos e a causa depois deles"},
    {438, "O objeto não aceita esta propriedade ou método",
     "Confira o nome da propriedade: a página da classe de parâmetros traz todos"},
    {13, "Tipos incompatíveis", "O valor não serve para a propriedade, que é uma data ou um sim ou não"},
    {94, "Uso de 'Null' inválido", "Uma propriedade não aceita Null: deixe-a como está ou informe um valor"},
    {6, "Estouro", "Uma data está fora dos anos 100 a 9999"},
});

constexpr auto kCauses = std::to_array<Error>({
    {kErrBase + 9998, "É preciso definir a propriedade \"StringConexao\".",
     "Defina StringConexao antes de chamar o método"},
    {kErrBase + 9998, "Uma das propriedades \"Conexao\" ou \"StringConexao\" precisam ser informadas.",
     "Em CCaixaRpt, defina StringConexao ou passe uma conexão aberta em Conexao"},
    {kErrBase + 9999, "Objeto não definido.", "Passe um objeto de parâmetros, mesmo sem nenhum filtro"},
    {kErrBase + 1, "Não há entrada para o banco tipo …",
     "O banco não é Oracle, SQL Server, MySQL, DB2 nem SQLite: confira o provider na string de conexão"},
    {kErrBase + 1, "Banco de dados \"…\" não encontrado.",
     "Confira o caminho em Database, na string de conexão do SQLite"},
    {kErrBase + 2, "Banco de dados \"…\" danificado.",
     "O arquivo do SQLite está vazio: restaure uma cópia de segurança"},
    {kErrBase + 10, "Não foi possível obter uma lista dos módulos subordinados fechados associados ao módulo …",
     "O componente KodraBsnV3.ObtedorDeModulos não devolveu a lista: confira a instalação e o log dele"},
    {kErrBase + 11, "Não há módulos subordinados fechados associados ao módulo …",
     "Feche ao menos um subordinado do módulo, ou confira o código em Modulo1"},
    {kErrBase + 1, "Arquivo INI ou String de Conexão não informada.",
     "Um parâmetro do sistema foi pedido sem string de conexão: defina StringConexao"},
    {kErrBase + 2, "Parâmetro desconhecido: \"…\".",
     "O parâmetro do sistema pedido não existe; isto não acontece com os relatórios deste componente"},
    {429, "Não foi possível criar objeto da classe \"…\".",
     "Registre o componente da classe indicada, na versão de 32 bits"},
    {429, "O componente ActiveX não pode criar o objeto",
     "Falta registrar um componente de que o relatório precisa: KodraConexao, KodraBsnV3, KodraRegEvt, VantLib, "
     "VantLog ou o ADO"},
    {438, "O objeto de parâmetros não tem a propriedade \"…\".",
     "Passe o objeto de parâmetros da classe do relatório, ou acrescente a propriedade ao seu próprio objeto"},
    {91, "A variável do objeto ou a variável do bloco 'With' não foi definida",
     "Um componente não devolveu o que o relatório esperava; na guia de retirada, a solicitação não tem documentos"},
    {424, "O objeto é obrigatório",
     "Um componente devolveu um valor onde o relatório esperava um objeto: confira a versão do componente"},
    {94, "Uso de 'Null' inválido", "Um objeto do próprio cliente devolveu Null em uma propriedade"},
    {13, "Tipos incompatíveis", "Um objeto do próprio cliente devolveu um valor que não serve para a propriedade"},
    {6, "Estouro", "Uma data está fora dos anos 100 a 9999, ou um número é grande demais"},
    {7, "Memória insuficiente", "Feche outros programas ou peça menos dados"},
    {51, "Erro interno", "Anote o que fez e avise quem mantém o componente"},
});

}  // namespace

std::span<const Error> Errors() { return kErrors; }

std::span<const Error> Causes() { return kCauses; }

std::string NumberWords(std::int32_t number) {
  if (number >= 0) return std::to_string(number);
  char hexadecimal[9];
  std::snprintf(hexadecimal, sizeof hexadecimal, "%08X", static_cast<unsigned>(number));
  return std::string(hexadecimal) + " (" + std::to_string(number) + ")";
}

}  // namespace kodra::console::guide
