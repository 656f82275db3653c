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
    {13, "Tipos incompatíveis", "O valor não serve para a propriedade: uma data ou um sim ou não que não se lê assim"},
    {94, "Uso de 'Null' inválido", "Uma propriedade não aceita Null: deixe-a como estava ou dê um valor"},
    {6, "Estouro", "Uma data fica fora dos anos de 100 a 9999"},
});

constexpr auto kCauses = std::to_array<Error>({
    {kErrBase + 9998, "É preciso definir a propriedade \"StringConexao\".",
     "Defina StringConexao antes de chamar o método"},
    {kErrBase + 9998, "Uma das propriedades \"Conexao\" ou \"StringConexao\" precisam ser informadas.",
     "Em CCaixaRpt, defina StringConexao ou passe uma conexão aberta em Conexao"},
    {kErrBase + 9999, "Objeto não definido.", "Passe um objeto de parâmetros, mesmo que sem nenhum filtro"},
    {kErrBase + 1, "Não há entrada para o banco tipo …",
     "O banco não é Oracle, SQL Server, MySQL, DB2 nem SQLite: confira o provider na string de conexão"},
    {kErrBase + 1, "Banco de dados \"…\" não encontrado.",
     "Confira o caminho em Database, na string de conexão do SQLite"},
    {kErrBase + 2, "Banco de dados \"…\" danificado.", "O arquivo do SQLite está vazio: volte uma cópia de segurança"},
    {kErrBase + 10, "Não foi possível obter uma lista dos módulos subordinados fechados associados ao módulo …",
     "O componente KodraBsnV3.ObtedorDeModulos não deu lista: confira a sua instalação e o seu log"},
    {kErrBase + 11, "Não há módulos subordinados fechados associados ao módulo …",
     "Feche ao menos um subordinado do módulo, ou confira o código em Modulo1"},
    {kErrBase + 1, "Arquivo INI ou String de Conexão não informada.",
     "Um parâmetro do sistema foi pedido sem string de conexão: defina StringConexao"},
    {kErrBase + 2, "Parâmetro desconhecido: \"…\".",
     "O nome de um parâmetro do sistema não existe; com os relatórios deste componente não acontece"},
    {429, "Não foi possível criar objeto da classe \"…\".",
     "Registre o componente da classe indicada, na versão de 32 bits"},
    {429, "O componente ActiveX não pode criar o objeto",
     "Falta registrar um componente de que o relatório precisa: KodraConexao, KodraBsnV3, KodraRegEvt, VantLib, "
     "VantLog "
     "ou o ADO"},
    {438, "O objeto de parâmetros não tem a propriedade \"…\".",
     "Passe o objeto de parâmetros da classe do relatório, ou dê a propriedade ao seu próprio objeto"},
    {91, "A variável do objeto ou a variável do bloco 'With' não foi definida",
     "Um componente não deu o que o relatório esperava; na guia de retirada, a solicitação não tem documentos"},
    {424, "O objeto é obrigatório", "Um componente deu um valor onde o relatório esperava um objeto: confira a versão"},
    {94, "Uso de 'Null' inválido", "Um objeto próprio do cliente respondeu Null a uma propriedade"},
    {13, "Tipos incompatíveis", "Um objeto próprio do cliente respondeu com um valor que não serve"},
    {6, "Estouro", "Uma data fica fora dos anos de 100 a 9999, ou um número é grande demais"},
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
