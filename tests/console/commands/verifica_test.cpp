// kodrarpt verifica on both databases.
#include <gtest/gtest.h>

#include <fstream>

#include "tests/console/check/archive.h"
#include "tests/console/check/verifica.h"
#include "tests/db/mariadb.h"
#include "tests/db/sqlite_file.h"
#include "tests/db/temporary_folder.h"

namespace kodra::console {
namespace {

using tests::Engine;

// The output below the list of reports.
std::string Conclusions(const std::string& out) {
  const std::size_t list = out.find("\n\n");
  const std::size_t end = out.find("\n\n", list + 1);
  return end == std::string::npos ? out : out.substr(end + 2);
}

class Verificado : public testing::TestWithParam<Engine> {};

INSTANTIATE_TEST_SUITE_P(, Verificado, testing::Values(Engine::kSqlite, Engine::kMariaDb), tests::EngineName);

TEST(VerificaSample, NamesTheRequiredOdditiesOfSQLite) {
  EXPECT_EQ(
      Verifica(tests::SampleOn(Engine::kSqlite)),
      Success("Banco de dados: SQLite (tipo 7)\n"
              "\n"
              "CCDRpt.RelatorioMidias                                pronto, com ressalva\n"
              "CTipo_MidiaRpt.RelatorioTiposMidia                    pronto\n"
              "CSuporteRpt.RelatorioSuportes                         pronto\n"
              "CSerieRpt.RelatorioSeries                             pronto\n"
              "CDepositoRpt.RelatorioDepositos                       pronto\n"
              "CDicionarioRpt.RelatorioTermosControlados             pronto\n"
              "CDeptoRpt.RelatorioDeptos                             pronto\n"
              "CGrupoRpt.RelatorioGrupos                             pronto\n"
              "CModeloRpt.RelatorioModelos                           pronto\n"
              "CTipo_CaixaRpt.RelatorioTiposModulo                   pronto\n"
              "CGrupoOperadorRpt.RelatorioGruposOperadores           pronto\n"
              "CSubgrupoRpt.RelatorioSubgrupos                       pronto\n"
              "COperadorRpt.RelatorioOperadores                      pronto\n"
              "CDocumentoRpt.RelatorioSintetico                      pronto, com ressalva\n"
              "CDocumentoRpt.RelatorioAnalitico                      pronto, com ressalva\n"
              "CDocumentoRpt.RelatorioInventarios                    pronto, com ressalva\n"
              "CSolicitacaoRpt.RelatorioRetiradaOriginal             pronto\n"
              "CSolicitacaoRpt.RelatorioDevolucaoOriginal            não funciona neste banco\n"
              "CLogRpt.RelatorioLog                                  pronto\n"
              "CCaixaRpt.EtiquetaAbertura                            pronto\n"
              "CCaixaRpt.EtiquetaFechamento                          pronto\n"
              "CCaixaRpt.EtiquetaFechamentoSubordinada               pronto\n"
              "CCaixaRpt.EtiquetaDivisoria                           pronto\n"
              "CCaixaRpt.ModulosExcluidos                            pronto\n"
              "CCaixaRpt.ModulosVencidos                             pronto\n"
              "CCaixaRpt.DocsNoModulo                                pronto\n"
              "CCaixaRpt.DocsNoModuloSubRpt                          pronto\n"
              "CCaixaRpt.DocsNaoIndexadosNosModulos                  pronto\n"
              "CCaixaRpt.RelatoriosModulos                           pronto\n"
              "CCaixaRpt.AutorizacaoDescarteModuloSubRpt             pronto\n"
              "CContainerRpt.RelatorioContainers                     pronto\n"
              "CContainerRpt.EtiquetaAbertura                        pronto\n"
              "CContainerRpt.EtiquetaAberturaSubRpt                  pronto\n"
              "CEstatImgRpt.RelatorioEstatisticas                    pronto, com ressalva\n"
              "CEstatIndexRpt.RelatorioEstatisticasPorDocumento      pronto, com ressalva\n"
              "CEstatIndexRpt.RelatorioEstatisticasPorPalavrasChave  pronto\n"
              "CEstatSuporteRpt.RelatorioEstatisticas                pronto, com ressalva\n"
              "CEstatSubgrupoRpt.RelatorioEstatisticas               pronto, com ressalva\n"
              "CEstatSerieRpt.RelatorioEstatisticas                  pronto, com ressalva\n"
              "\n"
              "38 de 39 relatórios prontos, 1 não funciona neste banco\n"
              "\n"
              "Parece errado, mas neste banco é assim mesmo:\n"
              "  - sempre dá erro de sintaxe, porque o relatório não sabe escrever uma data como texto no SQLite:\n"
              "      CSolicitacaoRpt.RelatorioDevolucaoOriginal\n"
              "  - filtrar por período dá erro de sintaxe, porque as datas vão para o SQLite sem aspas:\n"
              "      CDocumentoRpt.RelatorioSintetico\n"
              "      CDocumentoRpt.RelatorioAnalitico\n"
              "      CDocumentoRpt.RelatorioInventarios\n"
              "  - nenhum documento cai no período, porque as datas vão para o SQLite sem aspas:\n"
              "      CEstatImgRpt.RelatorioEstatisticas\n"
              "      CEstatIndexRpt.RelatorioEstatisticasPorDocumento\n"
              "      CEstatSuporteRpt.RelatorioEstatisticas\n"
              "      CEstatSubgrupoRpt.RelatorioEstatisticas\n"
              "      CEstatSerieRpt.RelatorioEstatisticas\n"
              "  - com TipoRpt V, nenhuma mídia aparece como vencida, porque o nome da coluna vai para o SQLite entre "
              "aspas:\n"
              "      CCDRpt.RelatorioMidias\n"
              "\n"
              "Textos longos demais dão erro em COperadorRpt.RelatorioOperadores:\n"
              "  - OPERADOR.NOME_COMPLETO aceita 300 caracteres, e o relatório, 255.\n"));
}

TEST(VerificaSample, FindsEveryReportReadyOnMySQL) {
  const RunResult result = Verifica(tests::SampleOn(Engine::kMariaDb));
  EXPECT_EQ(result.code, ExitCode::kOk);
  EXPECT_TRUE(result.out.starts_with("Banco de dados: MySQL (tipo 3)\n\nCCDRpt.RelatorioMidias ")) << result.out;
  EXPECT_EQ(Findings(result.out).size(), 39U);
  for (const auto& [report, finding] : Findings(result.out)) EXPECT_EQ(finding, "pronto") << report;
  EXPECT_EQ(Conclusions(result.out),
            "39 de 39 relatórios prontos\n"
            "\n"
            "Textos longos demais dão erro em COperadorRpt.RelatorioOperadores:\n"
            "  - OPERADOR.NOME_COMPLETO aceita 300 caracteres, e o relatório, 255.\n");
}

TEST_P(Verificado, FindsTheSameInAnArchiveWithoutRows) {
  EXPECT_EQ(Verifica(tests::EmptyOn(GetParam())), Verifica(tests::SampleOn(GetParam())));
}

TEST_P(Verificado, NamesColumnsOfTheWrongType) {
  const RunResult result = Verifica(NewArchiveOn(
      GetParam(), {L"DROP TABLE TIPO_CAIXA",
                   L"CREATE TABLE TIPO_CAIXA (COD_TIPO_CX VARCHAR(10), DESCR_TIPO_CX INTEGER, NUM_MAX_DOCS "
                   L"VARCHAR(10), NUM_MAX_FOLHAS DATE)"}));
  EXPECT_EQ(result.code, ExitCode::kMismatch);
  EXPECT_EQ(Findings(result.out).at("CTipo_CaixaRpt.RelatorioTiposModulo"),
            "tipo errado: coluna TIPO_CAIXA.DESCR_TIPO_CX (número em vez de texto), coluna TIPO_CAIXA.NUM_MAX_DOCS "
            "(texto em vez de número), coluna TIPO_CAIXA.NUM_MAX_FOLHAS (data em vez de número)");
  EXPECT_EQ(Findings(result.out).at("CDeptoRpt.RelatorioDeptos"), "pronto");
}

// SQLite stores dates as text; MySQL does not.
TEST_P(Verificado, AcceptsADateInATextColumnOnlyOnSQLite) {
  const RunResult result = Verifica(NewArchiveOn(
      GetParam(), {L"ALTER TABLE DOCUMENTO DROP COLUMN DT_VENC", L"ALTER TABLE DOCUMENTO ADD DT_VENC VARCHAR(10)"}));
  EXPECT_EQ(Findings(result.out).at("CDocumentoRpt.RelatorioSintetico"),
            GetParam() == Engine::kSqlite ? "pronto, com ressalva"
                                          : "tipo errado: coluna DOCUMENTO.DT_VENC (texto em vez de data)");
}

TEST(VerificaMissing, NamesTablesAndColumnsOfEachReport) {
  tests::SqliteFile file;
  file.Run(L"CREATE TABLE DEPTO (COD_DEPTO TEXT, DESCR_DEPTO TEXT, ENDERECO TEXT, CIDADE TEXT, ESTADO TEXT)");
  file.Run(L"CREATE TABLE SUPORTE (COD_SUPORTE TEXT, DESCR_SUPORTE TEXT)");
  const RunResult result = Verifica(file.ConnectionString());
  EXPECT_EQ(result.code, ExitCode::kMismatch);
  const std::map<std::string, std::string> findings = Findings(result.out);
  ASSERT_EQ(findings.size(), 39U) << result.out;
  EXPECT_EQ(findings.at("CSuporteRpt.RelatorioSuportes"), "pronto");
  EXPECT_EQ(findings.at("CDeptoRpt.RelatorioDeptos"), "falta: coluna DEPTO.CEP, coluna DEPTO.END_EMAIL");
  EXPECT_EQ(findings.at("CDocumentoRpt.RelatorioSintetico"), "falta: tabela DOCUMENTO");
  EXPECT_EQ(findings.at("COperadorRpt.RelatorioOperadores"), "falta: tabela OPERADOR, tabela GRUPOS_OPERADORES");
  EXPECT_EQ(findings.at("CLogRpt.RelatorioLog"), "falta: tabela EVENTO");
  EXPECT_NE(result.out.find("\n1 de 39 relatórios prontos, 38 com problemas\n\nO que o banco respondeu:\n"
                            "  coluna DEPTO.CEP: [SQLite]no such column: CEP (1)\n"
                            "  coluna DEPTO.END_EMAIL: [SQLite]no such column: END_EMAIL (1)\n"
                            "  tabela ASSUNTO: [SQLite]no such table: ASSUNTO (1)\n"),
            std::string::npos)
      << result.out;
  EXPECT_NE(result.out.find("\n\nO que fazer:\n"
                            "  - Se algo falta ou tem outro tipo, compare o banco com o que o relatório lê: kodrarpt "
                            "esquema RELATÓRIO --banco sqlite\n"),
            std::string::npos)
      << result.out;
}

// The catalogue of MariaDB has it under both names.
TEST(VerificaMissing, NamesATableInAnotherLetterCase) {
  const RunResult result = Verifica(NewArchiveOn(Engine::kMariaDb, {L"RENAME TABLE SUPORTE TO suporte"}));
  EXPECT_EQ(result.code, ExitCode::kMismatch);
  EXPECT_EQ(Findings(result.out).at("CSuporteRpt.RelatorioSuportes"), "falta: tabela SUPORTE");
}

TEST(VerificaMissing, ShowsNoControlCharactersOfTheDatabase) {
  tests::SqliteFile file;
  file.Run(L"CREATE VIEW DEPTO AS SELECT * FROM \"X\x1b[2J\"");
  const RunResult result = Verifica(file.ConnectionString());
  EXPECT_NE(result.out.find("  tabela DEPTO: [SQLite]no such table: main.X\uFFFD[2J (1)\n"), std::string::npos)
      << result.out;
}

// A table that can be read and a statement that the database refuses all the same.
TEST(VerificaMissing, NamesAReportWhoseStatementIsRefused) {
  const std::wstring connection = NewArchiveOn(
      Engine::kMariaDb,
      {L"ALTER TABLE SUPORTE MODIFY COD_SUPORTE VARCHAR(10) CHARACTER SET latin1 COLLATE latin1_swedish_ci",
       L"ALTER TABLE DOCUMENTO MODIFY COD_SUPORTE VARCHAR(10) CHARACTER SET latin1 COLLATE "
       L"latin1_german1_ci"});
  const RunResult result = Verifica(connection);
  EXPECT_EQ(result.code, ExitCode::kMismatch);
  EXPECT_EQ(Findings(result.out).at("CDocumentoRpt.RelatorioSintetico"), "o banco recusa uma instrução");
  EXPECT_NE(result.out.find("\n35 de 39 relatórios prontos, 4 com problemas\n\nO que o banco respondeu:\n"
                            "  CDocumentoRpt.RelatorioSintetico: "),
            std::string::npos)
      << result.out;
  EXPECT_NE(result.out.find("Illegal mix of collations"), std::string::npos) << result.out;
  EXPECT_NE(
      result.out.find("\nO que fazer:\n"
                      "  - Se o banco recusa uma instrução, mostre-a, com a resposta, a quem cuida dele: kodrarpt "
                      "sql RELATÓRIO --banco mysql\n"),
      std::string::npos)
      << result.out;
}

// A user of the server who may read only some tables of the archive.
std::wstring ReaderWith(const std::vector<std::string>& grants) {
  tests::SampleOn(Engine::kMariaDb);
  const testbed::MariaDbServer& server = tests::MariaDb();
  server.Administer("create or replace user 'leitora'@'localhost' identified by 'NuncaMostrada1'");
  for (const std::string& grant : grants) server.Administer("use acervo; " + grant);
  return server.ConnectionString(L"acervo", L"leitora", L"NuncaMostrada1");
}

std::vector<std::string> AllGrants() {
  std::istringstream lines(RunProgram({"esquema", "--banco", "mysql", "--permissoes", "leitora@localhost"}).out);
  std::vector<std::string> grants;
  for (std::string line; std::getline(lines, line);) grants.push_back(line);
  return grants;
}

// The user may only read, so this shows also that nothing is changed.
TEST(VerificaPermissions, ThoseOfEsquemaAreEnough) {
  EXPECT_EQ(Verifica(ReaderWith(AllGrants())), Verifica(tests::SampleOn(Engine::kMariaDb)));
}

TEST(VerificaPermissions, AreToldApartFromMissingTables) {
  std::vector<std::string> grants = AllGrants();
  std::erase(grants, "GRANT SELECT ON DEPTO TO 'leitora'@'localhost';");
  std::erase(grants, "GRANT SELECT ON SUPORTE TO 'leitora'@'localhost';");
  grants.emplace_back(
      "GRANT SELECT (COD_DEPTO, DESCR_DEPTO, CIDADE, ESTADO, CEP, END_EMAIL) ON DEPTO TO "
      "'leitora'@'localhost'");
  const RunResult result = Verifica(ReaderWith(grants));
  EXPECT_EQ(result.code, ExitCode::kMismatch);
  const std::map<std::string, std::string> findings = Findings(result.out);
  EXPECT_EQ(findings.at("CDeptoRpt.RelatorioDeptos"), "sem permissão: coluna DEPTO.ENDERECO");
  EXPECT_EQ(findings.at("CSuporteRpt.RelatorioSuportes"), "sem permissão: tabela SUPORTE");
  EXPECT_EQ(findings.at("COperadorRpt.RelatorioOperadores"), "pronto");
  EXPECT_NE(result.out.find("SELECT command denied to user 'leitora'@'localhost' for table `acervo`.`SUPORTE`"),
            std::string::npos)
      << result.out;
  EXPECT_NE(result.out.find("\n\nO que fazer:\n"
                            "  - Se não há permissão, peça-a a quem administra o banco: kodrarpt esquema --banco mysql "
                            "--permissoes USUÁRIO\n\n"),
            std::string::npos)
      << result.out;
  EXPECT_EQ(result.out.find("NuncaMostrada1"), std::string::npos);
}

std::wstring FileWith(const std::string& content, const tests::TemporaryFolder& folder) {
  std::ofstream(folder / "acervo.db", std::ios::binary) << content;
  return L"Driver={SQLite3};Database=" + (folder / "acervo.db").wstring() + L";";
}

TEST(VerificaFile, RefusesAFileThatIsNoDatabase) {
  const tests::TemporaryFolder folder;
  std::string bytes;
  for (unsigned i = 0; i < 5000; ++i) bytes += static_cast<char>(i * 2654435761U >> 24);
  EXPECT_EQ(
      Verifica(FileWith(bytes, folder)),
      (RunResult{ExitCode::kConnection, "",
                 "kodrarpt: não foi possível conectar ao banco de dados: o arquivo não é um banco SQLite, ou está "
                 "danificado.\n"
                 "Resposta do banco ou do driver: file is not a database (26)\n"
                 "O que fazer: confira o caminho em Database, na string de conexão, ou restaure uma cópia de "
                 "segurança.\n"
                 "Com --detalhes, sai também a mensagem do componente.\n"}));
}

TEST(VerificaFile, RefusesAnEmptyFile) {
  const tests::TemporaryFolder folder;
  EXPECT_EQ(Verifica(FileWith("", folder)),
            (RunResult{ExitCode::kConnection, "",
                       "kodrarpt: não foi possível conectar ao banco de dados: o arquivo \"" +
                           (folder.Path() / "acervo.db").string() +
                           "\", do SQLite, está vazio.\n"
                           "O que fazer: restaure uma cópia de segurança.\n"
                           "Com --detalhes, sai também a mensagem do componente.\n"}));
}

TEST(VerificaFile, IsNotChanged) {
  const auto bytes = [] {
    std::ostringstream content;
    content << std::ifstream(tests::SampleFile(), std::ios::binary).rdbuf();
    return content.str();
  };
  const std::string before = bytes();
  EXPECT_EQ(Verifica(tests::SampleOn(Engine::kSqlite)).code, ExitCode::kOk);
  EXPECT_EQ(bytes(), before);
}

TEST(VerificaConnection, FailsWithACodeOfItsOwnIfItCannotConnect) {
  EXPECT_EQ(Verifica(tests::MariaDb().ConnectionString(L"mysql", L"segredo")),
            (RunResult{ExitCode::kConnection, "",
                       "kodrarpt: não foi possível conectar ao banco de dados: o banco não aceita o usuário ou a "
                       "senha.\n"
                       "Resposta do banco ou do driver: Access denied for user 'arquivo'@'localhost' (using password: "
                       "YES)\n"
                       "O que fazer: confira o usuário e a senha; no kodrarpt, ela pode estar na variável "
                       "KODRARPT_SENHA.\n"
                       "Com --detalhes, sai também a mensagem do componente.\n"}));
}

// A data source name tells nobody which database is behind it.
TEST(VerificaConnection, SaysThatItKnowsNoDialectForADatabase) {
  tests::SqliteFile file;
  const tests::TemporaryFolder folder;
  std::ofstream(folder / "odbc.ini") << "[acervo_sem_nome]\nDriver=SQLite3\nDatabase=" << values::ToUtf8(file.Path());
  setenv("ODBCINI", (folder / "odbc.ini").c_str(), 1);
  const RunResult result = Verifica(L"DSN=acervo_sem_nome");
  unsetenv("ODBCINI");
  EXPECT_EQ(result.code, ExitCode::kMismatch) << result.err;
  EXPECT_TRUE(result.out.starts_with(
      "Banco de dados: desconhecido (tipo 4)\n"
      "Os relatórios que usam datas ou conversões dão erro neste banco. Confira o provedor na string de conexão e a "
      "versão de KodraConexao.\n\n"))
      << result.out.substr(0, 300);
  EXPECT_NE(result.out.find("kodrarpt esquema RELATÓRIO --banco BANCO\n"), std::string::npos);
}

TEST(VerificaConnection, RefusesAnEmptyConnectionString) {
  EXPECT_EQ(Verifica(L""), UsageFailure("a string de conexão está vazia: informe-a em --conexao"));
}

}  // namespace
}  // namespace kodra::console
