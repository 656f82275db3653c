// What the guide says about errors. Their texts are compared with the component's in tests/tools/reference_test.cpp.
#include "console/reports/errors.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace kodra::console::guide {
namespace {

TEST(CauseIn, IsWithoutTheReportsWordsTheLayersAndTheNativeCode) {
  EXPECT_EQ(CauseIn("Erro ao gerar dados para o relatório: Estouro"), "Estouro");
  EXPECT_EQ(CauseIn("Erro ao gerar dados para o relatório: [modADO.AbreCn]: [modADO::PreAbreCn]: Banco de dados "
                    "\"a: b.db\" não encontrado."),
            "Banco de dados \"a: b.db\" não encontrado.");
  EXPECT_EQ(CauseIn("Erro ao obter dados do SGBD: [Microsoft OLE DB Provider for ODBC Drivers]: [SQLite]no such table: "
                    "OPERADOR (1) [N:1]"),
            "no such table: OPERADOR (1)");
  EXPECT_EQ(CauseIn("[unixODBC][Driver Manager]Can't open lib 'Nada' : file not found"),
            "Can't open lib 'Nada' : file not found");
  EXPECT_EQ(CauseIn("[sem fim"), "[sem fim");
  EXPECT_EQ(CauseIn("Erro interno"), "Erro interno");
  EXPECT_EQ(CauseIn(""), "");
}

std::string WhatHappened(std::string_view description, const Report* report = nullptr) {
  const auto explanation = Explain(description, report);
  return explanation ? explanation->whatHappened : "(nothing)";
}

TEST(Explain, PutsWhatVariesIntoTheWords) {
  const auto explanation = Explain(
      "Erro ao gerar dados para o relatório: [modADO.AbreCn]: Banco de dados \"C:\\a.db\" não encontrado.", nullptr);
  ASSERT_TRUE(explanation);
  EXPECT_EQ(explanation->whatHappened, "o arquivo \"C:\\a.db\" não existe, ou a pasta dele não pode ser lida");
  EXPECT_EQ(explanation->remedy,
            "Confira o caminho em Database, na string de conexão do SQLite, e as permissões do usuário");
  EXPECT_FALSE(explanation->isAnswer);
}

TEST(Explain, PrefersWhatTheReportItselfSaysOfACause) {
  const std::string description =
      "Erro ao gerar dados para o relatório: A variável do objeto ou a variável do bloco 'With' não foi definida";
  EXPECT_EQ(WhatHappened(description), "um componente não devolveu o que o relatório esperava");
  EXPECT_EQ(WhatHappened(description, Find(L"CSolicitacaoRpt", L"RelatorioRetiradaOriginal")),
            "a solicitação não tem documento em nenhum módulo");
  EXPECT_EQ(WhatHappened("Erro ao gerar dados para o relatório: [SQLite]near \"AS\": syntax error (1) [N:1]",
                         Find(L"CEstatIndexRpt", L"RelatorioEstatisticasPorPalavrasChave")),
            "falta um dos números que o cliente conta");
}

TEST(Explain, SaysOfTheStepOfTheOperatorsOnlyWhatNothingElseExplains) {
  const Report* const operators = Find(L"COperadorRpt", L"RelatorioOperadores");
  EXPECT_EQ(WhatHappened("Erro ao preencher conjunto de dados de saída: Estouro", operators),
            "uma data está fora dos anos 100 a 9999, ou um número é grande demais");
  EXPECT_EQ(WhatHappened("Erro ao preencher conjunto de dados de saída: Multiple-step operation", operators),
            "um texto do operador passa de 255 caracteres, ou o componente KodraBsnV3.ObtedorDeTiposOperadores falhou");
}

TEST(Explain, RecognisesTheAnswersOfDatabases) {
  const struct {
    const char* answer;
    const char* name;
  } kAnswers[] = {
      {"[SQLite]no such table: DEPTO (1)", "Tabela ou coluna que o banco não tem"},
      {"Table 'acervo.DEPTO' doesn't exist", "Tabela ou coluna que o banco não tem"},
      {"ORA-00942: table or view does not exist", "Tabela ou coluna que o banco não tem"},
      {"SELECT command denied to user 'ana'@'localhost' for table 'DEPTO'", "Tabela que o usuário não pode ler"},
      {"Access denied for user 'ana'@'localhost' (using password: YES)", "Usuário ou senha que o banco recusa"},
      {"[Driver Manager]Can't open lib 'Nada' : file not found", "Driver ou fonte de dados desconhecidos"},
      {"Data source name not found and no default driver specified", "Driver ou fonte de dados desconhecidos"},
      {"Unknown database 'acervos'", "Banco que o servidor não tem"},
      {"Can't connect to server on '127.0.0.1' (111)", "Servidor que não responde"},
      {"file is not a database (26)", "Arquivo que não é um banco SQLite"},
      {"database is locked (5)", "Banco ocupado"},
      {"timeout expired", "Tempo esgotado"},
      {"You have an error in your SQL syntax; check the manual", "Erro de sintaxe do banco"},
      {"ORA-00933: SQL command not properly ended", "Erro de sintaxe do banco"},
  };
  for (const auto& [answer, name] : kAnswers) {
    const auto expected = std::ranges::find(Answers(), name, &Answer::name);
    ASSERT_NE(expected, Answers().end()) << name;
    const auto explanation = Explain(std::string("Erro ao gerar dados para o relatório: ") + answer, nullptr);
    ASSERT_TRUE(explanation) << answer;
    EXPECT_EQ(explanation->whatHappened, expected->whatHappened) << answer;
    EXPECT_EQ(explanation->remedy, expected->remedy) << answer;
    EXPECT_TRUE(explanation->isAnswer) << answer;
  }
}

TEST(Explain, SaysNothingOfWordsThatItDoesNotKnow) {
  EXPECT_EQ(WhatHappened("Erro ao gerar dados para o relatório: algo estranho"), "(nothing)");
  EXPECT_EQ(WhatHappened(""), "(nothing)");
}

// A remedy begins a sentence, and what happened continues one.
TEST(ErrorTable, HasSentencesWithoutFullStop) {
  const auto check = [](std::string_view whatHappened, std::string_view remedy) {
    EXPECT_FALSE(whatHappened.empty() || whatHappened.ends_with('.')) << whatHappened;
    EXPECT_FALSE(remedy.empty() || remedy.ends_with('.')) << remedy;
    EXPECT_TRUE(remedy.front() >= 'A' && remedy.front() <= 'Z') << remedy;
    EXPECT_FALSE(whatHappened.front() >= 'A' && whatHappened.front() <= 'Z') << whatHappened;
  };
  for (const auto errors : {Errors(), Causes()})
    for (const Error& error : errors) check(error.whatHappened, error.remedy);
  for (const Answer& answer : Answers()) check(answer.whatHappened, answer.remedy);
  for (const Report& report : Reports())
    for (const Failure& failure : report.failures) check(failure.whatHappened, failure.remedy);
}

}  // namespace
}  // namespace kodra::console::guide
