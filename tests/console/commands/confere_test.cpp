// kodrarpt confere on both databases: its whole output, and how it fails.
#include <gtest/gtest.h>

#include <fstream>

#include "tests/console/run.h"
#include "tests/console/typed_input.h"
#include "tests/db/mariadb.h"
#include "tests/db/sample.h"
#include "tests/db/sqlite_file.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

using tests::Engine;
using values::ToUtf8;

// In SQL that both databases execute. AB001 and AB002 are in the container C1, AB003 in C2, AB004 in none, and nothing
// is in C3. One document in AB001 has a support that does not exist. Documents 2, 3 and 4 are lent out.
const std::vector<std::wstring> kStatements = {
    L"CREATE TABLE CONTAINER (NUM_CONTAINER VARCHAR(10), DESC_CONTAINER VARCHAR(50))",
    L"INSERT INTO CONTAINER VALUES ('C1', 'Um'), ('C2', 'Dois'), ('C3', NULL)",
    L"CREATE TABLE CAIXA (NUM_CAIXA VARCHAR(5), DESC_CAIXA VARCHAR(50), DOC_INICIAL VARCHAR(10), "
    L"DOC_FINAL VARCHAR(10), DATA_VENCIMENTO DATE, DATA_FECHAMENTO DATE, COORD_X VARCHAR(5), COORD_Y VARCHAR(5), "
    L"COORD_Z VARCHAR(5), CONTAINER VARCHAR(10), TIPO_GUARDA VARCHAR(1))",
    L"INSERT INTO CAIXA (NUM_CAIXA, COORD_X, COORD_Y, COORD_Z, CONTAINER) VALUES ('AA000', NULL, NULL, NULL, ''), "
    L"('AB001', '1', '2', '3', 'C1'), ('AB002', '4', '', NULL, 'C1'), ('AB003', NULL, NULL, NULL, 'C2'), "
    L"('AB004', NULL, '7', NULL, '')",
    L"CREATE TABLE CAIXA_SUBORDINADA (NUM_CAIXA VARCHAR(5), NUM_SEQ INTEGER, DOC_INICIAL VARCHAR(10), "
    L"DOC_FINAL VARCHAR(10), DATA_VENCIMENTO DATE, DATA_FECHAMENTO DATE, TIPO_GUARDA VARCHAR(1))",
    L"INSERT INTO CAIXA_SUBORDINADA (NUM_CAIXA, NUM_SEQ) VALUES ('AB001', 1), ('AB003', 7)",
    L"CREATE TABLE SUPORTE (COD_SUPORTE VARCHAR(10), DESCR_SUPORTE VARCHAR(50))",
    L"INSERT INTO SUPORTE VALUES ('P', 'Papel')",
    L"CREATE TABLE DOCUMENTO (COD_DOCTO VARCHAR(10), COD_SUPORTE VARCHAR(10), NUM_CAIXA VARCHAR(5), "
    L"NUM_CD VARCHAR(10), DT_ARMAZ DATETIME, DT_VENC DATE, FRENTE INTEGER, VERSO INTEGER)",
    L"INSERT INTO DOCUMENTO (COD_DOCTO, COD_SUPORTE, NUM_CAIXA) VALUES ('0000000001', 'P', 'AB001'), "
    L"('0000000002', 'P', 'AB001'), ('0000000003', 'P', 'AB001'), ('0000000004', 'P', 'AB001'), "
    L"('0000000005', '?', 'AB001'), ('0000000006', 'P', 'AB002'), ('0000000007', 'P', 'AA000'), "
    L"('0000000008', 'P', NULL)",
    L"CREATE TABLE OPERADOR (COD_OPERADOR VARCHAR(10), DESCR_OPERADOR VARCHAR(50), NOME_COMPLETO VARCHAR(300))",
    L"INSERT INTO OPERADOR VALUES ('1', 'ANA', 'Ana de Souza'), ('2', 'RUI', NULL)",
    L"CREATE TABLE SOLICITACAO (COD_SOLICIT INTEGER, COD_DOCTO VARCHAR(10), COD_OPERADOR VARCHAR(10), "
    L"DT_RETIRADA DATETIME, DEVOLVIDO VARCHAR(1), DT_DEVOLUCAO DATETIME)",
    L"INSERT INTO SOLICITACAO VALUES (1, '0000000001', '1', '2024-01-02 10:00:00', 'S', '2024-01-09 00:00:00'), "
    L"(2, '0000000002', '1', '2024-02-29 10:00:00', 'D', '2024-03-31 00:00:00'), "
    L"(3, '0000000003', '2', NULL, 'P', NULL), (4, '0000000004', '2', '2024-03-01 09:00:00', 'I', NULL)",
};

constexpr const char* kDocumentColumns = "CODIGO,SITUACAO,MODULO,LOCALIZACAO,OPERADOR,RETIRADA,DEVOLUCAO\r\n";
constexpr const char* kModuleColumns = "CODIGO,SITUACAO,CONTEINER,LOCALIZACAO\r\n";

// SQLite cannot list the originals that are lent out.
constexpr const char* kNoLoans =
    "kodrarpt: aviso: não foi possível saber quais documentos estão emprestados, e eles saem como ausentes: o "
    "banco não aceita a instrução do relatório\n";

class Confere : public testing::TestWithParam<Engine> {
 protected:
  static bool HasLoans() { return GetParam() == Engine::kMariaDb; }

  static std::string Connection() { return ToUtf8(tests::DatabaseOf(GetParam(), L"conferencia", kStatements)); }

  // Compares the codes, which are typed, with a module or container.
  static RunResult RunOn(std::vector<std::string> arguments, const std::string& typed) {
    arguments.insert(arguments.begin(), "confere");
    arguments.insert(arguments.end(), {"--conexao", Connection(), "--formato", "csv"});
    const TypedInput input(typed);
    return RunProgram(arguments);
  }
};

INSTANTIATE_TEST_SUITE_P(, Confere, testing::Values(Engine::kSqlite, Engine::kMariaDb), tests::EngineName);

TEST_P(Confere, SaysOfEachDocumentWhereItIs) {
  const RunResult result =
      RunOn({"--modulo", "AB001"}, "0000000001\r\n0000000006\r\nX'Y\r\n0000000007\r\n0000000008\r\n");
  const std::string place = "AB001,\"fileira 1, estante 2, prateleira 3\",";
  const std::string documents = HasLoans() ? "0000000001,presente," + place + ",,\r\n" +  //
                                                 "0000000002,emprestado," + place +
                                                 "Ana de Souza,29/02/2024,31/03/2024\r\n" +                          //
                                                 "0000000003,emprestado," + place + "RUI,,permanente\r\n" +          //
                                                 "0000000004,emprestado," + place + "RUI,01/03/2024,sem data\r\n" +  //
                                                 "0000000005,ausente," + place + ",,\r\n"
                                           : "0000000001,presente," + place + ",,\r\n" +     //
                                                 "0000000002,ausente," + place + ",,\r\n" +  //
                                                 "0000000003,ausente," + place + ",,\r\n" +  //
                                                 "0000000004,ausente," + place + ",,\r\n" +  //
                                                 "0000000005,ausente," + place + ",,\r\n";
  EXPECT_EQ(result,
            (RunResult{ExitCode::kMismatch,
                       kDocumentColumns + documents +
                           "0000000006,em outro lugar,AB002,fileira 4,,,\r\n"
                           "X'Y,desconhecido,,,,,\r\n"
                           "0000000007,em outro lugar,AA000,,,,\r\n"
                           "0000000008,em outro lugar,,,,,\r\n",
                       HasLoans() ? "1 presente, 3 emprestados, 1 ausente, 3 em outro lugar, 1 desconhecido\n"
                                  : std::string(kNoLoans) + "1 presente, 0 emprestados, 4 ausentes, 3 em outro lugar, "
                                                            "1 desconhecido\n"}));
}

TEST_P(Confere, SucceedsIfAllDocumentsOfAllModulesAreThereOrLentOut) {
  const std::string lent = HasLoans() ? "" : "0000000002\n0000000003\n0000000004\n";
  const RunResult result = RunOn({"--modulo", "AB002", "--modulo", "AB001", "--modulo", "AB002"},
                                 "0000000005\n0000000006\n0000000001\n" + lent);
  EXPECT_EQ(result.code, ExitCode::kOk);
  EXPECT_TRUE(result.out.starts_with(std::string(kDocumentColumns) + "0000000006,presente,AB002,fileira 4,,,\r\n"
                                                                     "0000000001,presente,AB001,"))
      << result.out;
  EXPECT_EQ(result.err, HasLoans() ? "3 presentes, 3 emprestados, 0 ausentes, 0 em outro lugar, 0 desconhecidos\n"
                                   : std::string(kNoLoans) +
                                         "6 presentes, 0 emprestados, 0 ausentes, 0 em outro lugar, 0 desconhecidos\n");
}

TEST_P(Confere, TakesNoModuleForADocumentOfItself) {
  const RunResult result = RunOn({"--modulo", "AB002"}, "AB002\n0000000006\n");
  EXPECT_EQ(result.code, ExitCode::kOk);
  EXPECT_EQ(result.out, std::string(kDocumentColumns) + "0000000006,presente,AB002,fileira 4,,,\r\n");
}

TEST_P(Confere, ShowsWhoHasADocumentThatIsThereAlthoughItIsLentOut) {
  const RunResult result = RunOn({"--modulo", "AB002"}, "0000000006\n0000000002\n");
  const std::string loan = HasLoans() ? "Ana de Souza,29/02/2024,31/03/2024\r\n" : ",,\r\n";
  EXPECT_EQ(result.out, std::string(kDocumentColumns) +
                            "0000000006,presente,AB002,fileira 4,,,\r\n"
                            "0000000002,em outro lugar,AB001,\"fileira 1, estante 2, prateleira 3\"," +
                            loan);
}

TEST_P(Confere, SaysOfEachModuleWhereItIs) {
  EXPECT_EQ(RunOn({"--conteiner", "C1"}, "AB00101\nC1\nAB003\nAB004\nZZ999\nAB001\n"),
            (RunResult{ExitCode::kMismatch,
                       std::string(kModuleColumns) + "AB001,presente,C1,\"fileira 1, estante 2, prateleira 3\"\r\n"
                                                     "AB002,ausente,C1,fileira 4\r\n"
                                                     "AB003,em outro lugar,C2,\r\n"
                                                     "AB004,em outro lugar,,estante 7\r\n"
                                                     "ZZ999,desconhecido,,\r\n",
                       "1 presente, 0 emprestados, 1 ausente, 2 em outro lugar, 1 desconhecido\n"}));
}

TEST_P(Confere, SucceedsIfAllModulesOfAllContainersAreThere) {
  EXPECT_EQ(RunOn({"--conteiner", "C2", "--conteiner", "C1", "--conteiner", "C3"}, "AB002\nAB00307\nAB001\n"),
            Success(std::string(kModuleColumns) + "AB003,presente,C2,\r\n"
                                                  "AB001,presente,C1,\"fileira 1, estante 2, prateleira 3\"\r\n"
                                                  "AB002,presente,C1,fileira 4\r\n",
                    "3 presentes, 0 emprestados, 0 ausentes, 0 em outro lugar, 0 desconhecidos\n"));
}

TEST_P(Confere, RefusesPlacesThatTheArchiveDoesNotList) {
  EXPECT_EQ(RunOn({"--modulo", "AB001", "--modulo", "ab003"}, "1\n"),
            UsageFailure("o módulo \"ab003\" não está na relação de módulos do acervo (quis dizer \"AB003\"?)"));
  EXPECT_EQ(RunOn({"--modulo", "X' OR '1'='1"}, "1\n"),
            UsageFailure("o módulo \"X' OR '1'='1\" não está na relação de módulos do acervo"));
  EXPECT_EQ(
      RunOn({"--modulo", "AB00101"}, "1\n"),
      UsageFailure("o módulo \"AB00101\" é subordinado, e o acervo não diz quais documentos estão nele: informe o "
                   "módulo principal, AB001"));
  EXPECT_EQ(RunOn({"--conteiner", "AB001"}, "1\n"),
            UsageFailure("o contêiner \"AB001\" não está na relação de contêineres do acervo"));
}

TEST_P(Confere, WritesAFileInEveryFormat) {
  const tests::TemporaryFolder folder;
  std::ofstream(folder / "lidos.txt") << "0000000006\n";
  for (const auto& [format, start] :
       std::map<std::string, std::string>{{"csv", "CODIGO,"},
                                          {"json", "[\n{\"CODIGO\":\"0000000006\",\"SITUACAO\":"},
                                          {"tabela", "CODIGO "},
                                          {"xlsx", "PK"},
                                          {"html", "<!DOCTYPE html>"},
                                          {"pdf", "%PDF-"}}) {
    const std::filesystem::path target = folder / ("conferencia." + format);
    const RunResult result =
        RunProgram({"confere", "--modulo", "AB002", "--conexao", Connection(), "--lista",
                    (folder / "lidos.txt").string(), "--formato", format, "--saida", target.string()});
    EXPECT_EQ(result.code, ExitCode::kOk) << format;
    EXPECT_EQ(result.out, "") << format;
    const std::string text = tests::Read(target);
    EXPECT_EQ(text.substr(0, start.size()), start);
  }
}

TEST_P(Confere, WritesOnlyTheChosenColumnsAndTheFirstRowsButCountsAll) {
  const RunResult result =
      RunOn({"--modulo", "AB002", "--colunas", "situacao,codigo", "--limite", "1"}, "0000000006\nX\n");
  EXPECT_EQ(result.out, "SITUACAO,CODIGO\r\npresente,0000000006\r\n");
  EXPECT_TRUE(result.err.ends_with("1 presente, 0 emprestados, 0 ausentes, 0 em outro lugar, 1 desconhecido\n"))
      << result.err;
}

TEST_P(Confere, HasAPageWithTheTotalsAndTheCaptionsOfItsColumns) {
  const TypedInput typed("0000000006\n");
  const RunResult result = RunProgram({"confere", "--modulo", "AB002", "--conexao", Connection(), "--formato", "html"});
  EXPECT_NE(result.out.find("<h1>Conferência de documentos</h1>"), std::string::npos) << result.out;
  EXPECT_NE(result.out.find("Módulos AB002 · 1 presente, 0 emprestados, 0 ausentes, 0 em outro lugar, 0 desconhecidos"),
            std::string::npos)
      << result.out;
  EXPECT_NE(result.out.find("<th>Código</th><th>Situação</th><th>Módulo</th><th>Localização</th>"), std::string::npos)
      << result.out;
}

TEST(ConfereUsage, RefusesWrongOptionsBeforeItConnects) {
  const TypedInput typed("1\n");
  EXPECT_EQ(RunProgram({"confere", "--conexao", "DSN=D"}),
            UsageFailure("falta --modulo, para conferir documentos, ou --conteiner, para conferir módulos"));
  EXPECT_EQ(RunProgram({"confere", "--conexao", "DSN=D", "--modulo", "AB001", "--conteiner", "C1"}),
            UsageFailure("--modulo e --conteiner não podem ser usados juntos"));
  EXPECT_EQ(RunProgram({"confere", "--modulo", "AB001"}), UsageFailure("falta --conexao ou --perfil"));
  EXPECT_EQ(RunProgram({"confere", "--conexao", "DSN=D", "--modulo", "AB001", "--formato", "xlsx"}),
            UsageFailure("o formato xlsx precisa de --saida"));
}

TEST(ConfereUsage, RefusesAListThatItCannotReadBeforeItConnects) {
  const tests::TemporaryFolder folder;
  const std::string list = (folder / "lidos.txt").string();
  const std::vector<std::string> arguments = {"confere", "--conexao", "DSN=D", "--modulo", "AB001", "--lista", list};
  EXPECT_EQ(RunProgram(arguments), FileFailure("não foi possível ler \"" + list + "\": o arquivo não existe"));
  std::ofstream(list) << std::string("1\n\0\n", 4);
  EXPECT_EQ(RunProgram(arguments),
            UsageFailure("\"" + list +
                         "\" não é uma lista de códigos: a linha 2 não é texto; grave a lista como texto, "
                         "em UTF-8, com um código por linha"));
  std::filesystem::resize_file(list, 8'000'001);
  EXPECT_EQ(RunProgram(arguments),
            FileFailure("não foi possível ler \"" + list + "\": passa do máximo, que é de 8 MB"));
  const TypedInput typed("\r\n \r\n");
  EXPECT_EQ(RunProgram({"confere", "--conexao", "DSN=D", "--modulo", "AB001", "--lista", "-"}),
            UsageFailure("a entrada padrão não tem nenhum código"));
}

TEST(ConfereFailure, KeepsTheFormerFileAndHidesThePassword) {
  const tests::TemporaryFolder folder;
  const std::filesystem::path target = folder / "conferencia.csv";
  std::ofstream(target) << "antes";
  const TypedInput typed("1\n");
  const RunResult result =
      RunProgram({"confere", "--modulo", "AB001", "--conexao",
                  ToUtf8(tests::MariaDb().ConnectionString(L"mysql", L"segredo")), "--saida", target.string()});
  EXPECT_EQ(result.code, ExitCode::kConnection);
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(result.err.find("segredo"), std::string::npos) << result.err;
  const std::string text = tests::Read(target);
  EXPECT_EQ(text, "antes");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 1);
}

TEST(ConfereFailure, EndsWithTheErrorOfAReport) {
  tests::SqliteFile file;
  file.Run(L"CREATE TABLE DEPTO (COD_DEPTO TEXT)");
  const TypedInput typed("1\n");
  const RunResult result = RunProgram({"confere", "--modulo", "AB001", "--conexao", ToUtf8(file.ConnectionString())});
  EXPECT_EQ(result.code, ExitCode::kReportError);
  EXPECT_EQ(result.out, "");
  EXPECT_NE(result.err.find("no such table: CAIXA"), std::string::npos) << result.err;
}

}  // namespace
}  // namespace kodra::console
