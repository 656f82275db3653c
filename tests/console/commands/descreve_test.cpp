// kodrarpt descreve.
#include <gtest/gtest.h>

#include "tests/console/run.h"

namespace kodra::console {
namespace {

TEST(DescreveTest, ShowsParametersColumnsAndOddities) {
  EXPECT_EQ(RunProgram({"descreve", "csolicitacaorpt.relatoriodevolucaooriginal"}),
            (RunResult{ExitCode::kOk,
                       "CSolicitacaoRpt.RelatorioDevolucaoOriginal\n"
                       "Os originais retirados ou já devolvidos.\n"
                       "\n"
                       "Parâmetros (CSolicitacaoRptObj):\n"
                       "  --ListarJaDevolvidos  sim ou não  Sim inclui os originais já devolvidos e muda o título\n"
                       "  Sem efeito neste relatório: --Owner, --CodSolicit\n"
                       "\n"
                       "Colunas:\n"
                       "  TITULO          texto  Título da listagem\n"
                       "  COD_DOCTO       texto  Código do documento\n"
                       "  DESCR_OPERADOR  texto  Nome completo de quem retirou, ou o seu nome de acesso\n"
                       "  DT_RETIRADA     texto  Data de retirada, dd/mm/aaaa\n"
                       "  DEVOLVIDO       texto  Modo: P permanente, I sem data, D com data, S já devolvido\n"
                       "  DT_DEVOLUCAO    texto  Data de devolução, dd/mm/aaaa\n"
                       "\n"
                       "Parece errado, mas é assim mesmo:\n"
                       "  - CodSolicit não é usado: a listagem cobre todas as solicitações.\n"
                       "  - No SQLite, a conversão da data em texto sai vazia, e a instrução dá erro de sintaxe.\n"
                       "\n"
                       "Exemplo:\n"
                       "  kodrarpt executa CSolicitacaoRpt.RelatorioDevolucaoOriginal --conexao \"DSN=Acervo\" "
                       "--ListarJaDevolvidos sim\n",
                       ""}));
}

TEST(DescreveTest, ShowsTheRuleOfAPropertyAndTheTipoRptOfAColumn) {
  EXPECT_EQ(
      RunProgram({"descreve", "CEstatSubgrupoRpt"}),
      (RunResult{ExitCode::kOk,
                 "CEstatSubgrupoRpt.RelatorioEstatisticas\n"
                 "Os documentos, folhas ou páginas armazenados, por subgrupo.\n"
                 "\n"
                 "Parâmetros (CEstatSubgrupoRptObj):\n"
                 "  --DataInicial  data                                      Primeiro dia do período; aparece também "
                 "no título\n"
                 "  --DataFinal    data                                      Último dia do período; aparece também no "
                 "título\n"
                 "  --TipoRpt      texto, só a primeira letra, em maiúscula  F traz as folhas; P, folhas e versos; "
                 "outro valor, só os documentos\n"
                 "  Sem efeito neste relatório: --Owner\n"
                 "\n"
                 "Colunas:\n"
                 "  TITULO       texto   Título com o nome que a instalação dá ao subgrupo\n"
                 "  TIT1         texto   Título: \"Período: … a …\"\n"
                 "  DESCR_GRUPO  texto   Subgrupo\n"
                 "  FRENTE       número  Folhas: páginas de frente (com TipoRpt F ou P)\n"
                 "  VERSO        número  Páginas de verso (com TipoRpt P)\n"
                 "  COD_DOCTO    texto   Código do documento (com outro TipoRpt)\n"
                 "\n"
                 "Parece errado, mas é assim mesmo:\n"
                 "  - O período vai ao banco com o ano na frente, ao contrário das outras estatísticas.\n"
                 "  - No SQLite, a data do período sai sem aspas: vira uma conta, e nenhum documento cai no período.\n"
                 "\n"
                 "Exemplo:\n"
                 "  kodrarpt executa CEstatSubgrupoRpt.RelatorioEstatisticas --conexao \"DSN=Acervo\" --DataInicial "
                 "01/02/2024 --DataFinal 29/02/2024 --TipoRpt F\n",
                 ""}));
}

TEST(DescreveTest, ShowsAReportsOwnErrors) {
  const std::string out = RunProgram({"descreve", "CLogRpt"}).out;
  EXPECT_EQ(
      out.substr(out.find("\nErros próprios:")),
      "\nErros próprios:\n"
      "  - A mensagem do ADO instalado para \"nenhum registro atual\" (3021)\n"
      "    O que houve: nenhum evento passa pelos filtros.\n"
      "    O que fazer: amplie o período ou tire filtros.\n"
      "\n"
      "Exemplo:\n"
      "  kodrarpt executa CLogRpt.RelatorioLog --conexao \"DSN=Acervo\" --MaquinaOrigem BALCAO01 --Operador MARIA "
      "--Acao retirada --Evento ALT --CodDocto D000001 --DataInicial 01/02/2024 --DataFinal 29/02/2024\n");
  EXPECT_NE(out.find("\n  --Operador       texto  Nome do operador (não muda o SQL)\n"), std::string::npos);
}

TEST(DescreveTest, WritesOneJsonObjectForPrograms) {
  EXPECT_EQ(
      RunProgram({"descreve", "RelatorioDevolucaoOriginal", "--json"}),
      Success("{\"nome\":\"CSolicitacaoRpt.RelatorioDevolucaoOriginal\","
              "\"finalidade\":\"Os originais retirados ou já devolvidos\","
              "\"parametros\":[{\"nome\":\"ListarJaDevolvidos\",\"tipo\":\"sim ou não\","
              "\"efeito\":\"Sim inclui os originais já devolvidos e muda o título\",\"exemplo\":\"sim\"}],"
              "\"colunas\":["
              "{\"nome\":\"TITULO\",\"tipo\":\"texto\",\"significado\":\"Título da listagem\",\"titulo\":\"\"},"
              "{\"nome\":\"COD_DOCTO\",\"tipo\":\"texto\",\"significado\":\"Código do documento\","
              "\"titulo\":\"Documento\"},"
              "{\"nome\":\"DESCR_OPERADOR\",\"tipo\":\"texto\",\"significado\":\"Nome completo de quem retirou, ou "
              "o seu nome de acesso\",\"titulo\":\"Operador\"},"
              "{\"nome\":\"DT_RETIRADA\",\"tipo\":\"texto\",\"significado\":\"Data de retirada, dd/mm/aaaa\","
              "\"titulo\":\"Retirada\"},"
              "{\"nome\":\"DEVOLVIDO\",\"tipo\":\"texto\",\"significado\":\"Modo: P permanente, I sem data, D com "
              "data, S já devolvido\",\"titulo\":\"Devolução\"},"
              "{\"nome\":\"DT_DEVOLUCAO\",\"tipo\":\"texto\",\"significado\":\"Data de devolução, dd/mm/aaaa\","
              "\"titulo\":\"Data da devolução\"}],"
              "\"particularidades\":[\"CodSolicit não é usado: a listagem cobre todas as solicitações\","
              "\"No SQLite, a conversão da data em texto sai vazia, e a instrução dá erro de sintaxe\"],"
              "\"erros\":[],"
              "\"exemplo\":\"kodrarpt executa CSolicitacaoRpt.RelatorioDevolucaoOriginal --conexao \\\"DSN=Acervo\\\" "
              "--ListarJaDevolvidos sim\"}\n"));
}

TEST(DescreveTest, HasAReportsOwnErrorsInItsJson) {
  const std::string out = RunProgram({"descreve", "RelatorioRetiradaOriginal", "--json"}).out;
  EXPECT_NE(out.find("\"erros\":[{\"causa\":\"A variável do objeto ou a variável do bloco 'With' não foi definida\","
                     "\"o_que_houve\":\"a solicitação não tem documento em nenhum módulo\","
                     "\"o_que_fazer\":\"Confira o código em CodSolicit\"}]"),
            std::string::npos)
      << out;
}

TEST(DescreveTest, RefusesAnUnknownReport) {
  EXPECT_EQ(RunProgram({"descreve", "CDeptoRpt.Relatorio"}),
            UsageFailure("o relatório \"CDeptoRpt.Relatorio\" não existe (quis dizer \"CDeptoRpt.RelatorioDeptos\"?); "
                         "\"kodrarpt lista\" mostra todos"));
}

}  // namespace
}  // namespace kodra::console
