// kodrarpt executa on both databases: its whole output, and how it fails.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "tests/console/run.h"
#include "tests/console/small_archive.h"
#include "tests/db/mariadb.h"
#include "tests/db/sample.h"
#include "tests/db/temporary_folder.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

namespace fs = std::filesystem;
using tests::Engine;
using tests::Read;
using values::ToUtf8;

class Executa : public testing::TestWithParam<Engine> {
 protected:
  static std::string Connection() { return ToUtf8(tests::SmallArchiveOn(GetParam())); }

  // Runs a report on the small archive, with further arguments.
  static RunResult RunReport(const std::string& report, std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"executa", report, "--conexao", Connection()});
    return RunProgram(arguments);
  }

  const tests::TemporaryFolder folder_;
};

INSTANTIATE_TEST_SUITE_P(, Executa, testing::Values(Engine::kSqlite, Engine::kMariaDb), tests::EngineName);

TEST_P(Executa, WritesCsv) {
  EXPECT_EQ(RunReport("CDeptoRpt", {"--formato", "csv"}),
            Success("DESCR_DEPTO,ENDERECO,CIDADE,ESTADO,CEP,END_EMAIL\r\n"
                    "Finanças,\"\",=Rio,RJ,,fin@acervo.br\r\n"
                    "Jurídico,\"Rua \"\"A\"\", 10\",São Paulo,SP,01000-000,\r\n"));
  EXPECT_EQ(RunReport("CDocumentoRpt.RelatorioSintetico", {"--formato", "csv", "--separador", "tab", "--bom"}),
            Success("\xEF\xBB\xBF"
                    "COD_DOCTO\tDESCR_SUPORTE\tNUM_CAIXA\tNUM_CD\tDT_ARMAZ\tDT_VENC\tFRENTE\tVERSO\r\n"
                    "0000000001\tPapel\tAB001\t\t2023-12-31T10:20:30\t2028-12-31\t1200\t3\r\n"
                    "0000000002\tPapel\tAB002\tCD1\t2024-02-29T00:00:00\t\t7\t\r\n"));
}

TEST_P(Executa, WritesJson) {
  const std::string first =
      "{\"COD_DOCTO\":\"0000000001\",\"DESCR_SUPORTE\":\"Papel\",\"NUM_CAIXA\":\"AB001\",\"NUM_CD\":null,"
      "\"DT_ARMAZ\":\"2023-12-31T10:20:30\",\"DT_VENC\":\"2028-12-31\",\"FRENTE\":1200,\"VERSO\":3}";
  const std::string second =
      "{\"COD_DOCTO\":\"0000000002\",\"DESCR_SUPORTE\":\"Papel\",\"NUM_CAIXA\":\"AB002\",\"NUM_CD\":\"CD1\","
      "\"DT_ARMAZ\":\"2024-02-29T00:00:00\",\"DT_VENC\":null,\"FRENTE\":7,\"VERSO\":null}";
  EXPECT_EQ(RunReport("CDocumentoRpt.RelatorioSintetico", {"--formato", "json"}),
            Success("[\n" + first + ",\n" + second + "\n]\n"));
  EXPECT_EQ(RunReport("CDocumentoRpt.RelatorioSintetico", {"--formato", "JSON", "--json-linhas"}),
            Success(first + "\n" + second + "\n"));
}

TEST_P(Executa, WritesATableByDefault) {
  EXPECT_EQ(RunReport("CDocumentoRpt.RelatorioSintetico", {}),
            Success("COD_DOCTO   DESCR_SUPORTE  NUM_CAIXA  NUM_CD  DT_ARMAZ             DT_VENC     FRENTE  VERSO\n"
                    "──────────  ─────────────  ─────────  ──────  ───────────────────  ──────────  ──────  ─────\n"
                    "0000000001  Papel          AB001              31/12/2023 10:20:30  31/12/2028    1200      3\n"
                    "0000000002  Papel          AB002      CD1     29/02/2024 00:00:00                   7\n"
                    "(2 linhas)\n"));
}

TEST_P(Executa, PassesParametersOn) {
  EXPECT_EQ(RunReport("CDocumentoRpt.RelatorioSintetico", {"--CodDepto", "2", "--formato", "csv"}),
            Success("COD_DOCTO,DESCR_SUPORTE,NUM_CAIXA,NUM_CD,DT_ARMAZ,DT_VENC,FRENTE,VERSO\r\n"
                    "0000000002,Papel,AB002,CD1,2024-02-29T00:00:00,,7,\r\n"));
}

TEST_P(Executa, WritesEveryRowOfARecordsetThatTheReportFilled) {
  EXPECT_EQ(
      RunReport("CContainerRpt.EtiquetaAbertura", {"--Container1", "C1", "--Container2", "C2", "--formato", "csv"}),
      Success("CONTAINER,DATA_VENCIMENTO,TIPO_GUARDA,NOME_EMPRESA\r\n"
              "C1,2030-01-31,T,Acervo & Cia\r\n"
              "C2,2031-01-31,T,Acervo & Cia\r\n"));
}

TEST_P(Executa, WritesToAFile) {
  const fs::path target = folder_ / "departamentos.json";
  EXPECT_EQ(RunReport("CDeptoRpt", {"--formato", "json", "--saida", target.string()}), Success(""));
  EXPECT_EQ(Read(target),
            "[\n"
            "{\"DESCR_DEPTO\":\"Finanças\",\"ENDERECO\":\"\",\"CIDADE\":\"=Rio\",\"ESTADO\":\"RJ\",\"CEP\":null,"
            "\"END_EMAIL\":\"fin@acervo.br\"},\n"
            "{\"DESCR_DEPTO\":\"Jurídico\",\"ENDERECO\":\"Rua \\\"A\\\", 10\",\"CIDADE\":\"São Paulo\","
            "\"ESTADO\":\"SP\",\"CEP\":\"01000-000\",\"END_EMAIL\":null}\n"
            "]\n");
}

TEST_P(Executa, WritesCsvThatExcelOpensWithoutFormulas) {
  EXPECT_EQ(RunReport("CDeptoRpt", {"--formato", "csv", "--excel"}),
            Success("\xEF\xBB\xBF"
                    "DESCR_DEPTO;ENDERECO;CIDADE;ESTADO;CEP;END_EMAIL\r\n"
                    "Finanças;\"\";'=Rio;RJ;;fin@acervo.br\r\n"
                    "Jurídico;\"Rua \"\"A\"\", 10\";São Paulo;SP;01000-000;\r\n"));
}

TEST_P(Executa, WritesTheFormatThatTheFilesNameAsksFor) {
  for (const auto& [name, start] :
       std::vector<std::pair<std::string, std::string>>{{"a.csv", "DESCR_DEPTO,ENDERECO"},
                                                        {"a.JSON", "[\n{"},
                                                        {"a.pdf", "%PDF"},
                                                        {"a.txt", "DESCR_DEPTO  ENDERECO"}}) {
    const fs::path target = folder_ / name;
    EXPECT_EQ(RunReport("CDeptoRpt", {"--saida", target.string()}), Success(""));
    EXPECT_EQ(Read(target).substr(0, start.size()), start);
  }
}

TEST_P(Executa, WritesOnlyTheChosenColumnsAndTheFirstRows) {
  EXPECT_EQ(RunReport("CDeptoRpt", {"--formato", "csv", "--colunas", "estado,DESCR_DEPTO"}),
            Success("ESTADO,DESCR_DEPTO\r\nRJ,Finanças\r\nSP,Jurídico\r\n"));
  EXPECT_EQ(RunReport("CDeptoRpt", {"--colunas", "CIDADE", "--limite", "1"}),
            Success("CIDADE\n──────\n=Rio\n(1 linha)\n"));
  EXPECT_EQ(RunReport("CDeptoRpt", {"--colunas", "CEP", "--limite", "9", "--formato", "json"}),
            Success("[\n{\"CEP\":null},\n{\"CEP\":\"01000-000\"}\n]\n"));
}

TEST_P(Executa, RefusesAnUnknownColumnAndWritesNoFile) {
  EXPECT_EQ(RunReport("CDeptoRpt", {"--colunas", "CIDAD", "--saida", (folder_ / "a.xlsx").string()}),
            UsageFailure("não há a coluna \"CIDAD\" (quis dizer \"CIDADE\"?); as colunas são DESCR_DEPTO, ENDERECO, "
                         "CIDADE, ESTADO, CEP, END_EMAIL"));
  EXPECT_TRUE(fs::is_empty(folder_.Path()));
}

TEST_P(Executa, WritesASpreadsheetToAFileOnly) {
  EXPECT_EQ(RunReport("CDeptoRpt", {"--formato", "xlsx"}), UsageFailure("o formato xlsx precisa de --saida"));
  const fs::path target = folder_ / "departamentos.xlsx";
  EXPECT_EQ(RunReport("CDeptoRpt", {"--formato", "xlsx", "--saida", target.string()}), Success(""));
  EXPECT_EQ(Read(target).substr(0, 4), "PK\x03\x04");
  EXPECT_EQ(std::distance(fs::directory_iterator(folder_.Path()), {}), 1);
}

TEST_P(Executa, KeepsThePreviousFileWhenTheReportFails) {
  const fs::path target = folder_ / "grupos.csv";
  std::ofstream(target) << "antes";
  // The small archive has no table of groups.
  const RunResult result = RunReport("CGrupoRpt", {"--formato", "csv", "--saida", target.string()});
  EXPECT_EQ(result.code, ExitCode::kReportError);
  const bool isSqlite = GetParam() == Engine::kSqlite;
  EXPECT_EQ(result.err,
            "kodrarpt: o relatório CGrupoRpt.RelatorioGrupos não pôde ser gerado: o banco não tem uma tabela ou coluna "
            "que o relatório lê, ou o usuário não a vê.\n"
            "Resposta do banco ou do driver: " +
                std::string(isSqlite ? "no such table: CLASSE (1)" : "Table 'pequeno.CLASSE' doesn't exist") +
                "\n"
                "O que fazer: confira a conexão; \"kodrarpt verifica\" mostra tudo o que falta.\n"
                "Com --detalhes, sai também a mensagem do componente.\n");
  EXPECT_EQ(Read(target), "antes");
  EXPECT_EQ(std::distance(fs::directory_iterator(folder_.Path()), {}), 1);
}

TEST_P(Executa, ReportsAnUnwritableFileBeforeItConnects) {
  const std::string target = (folder_ / "não" / "há.csv").string();
  EXPECT_EQ(RunProgram({"executa", "CDeptoRpt", "--conexao", "DSN=NaoExiste", "--saida", target}),
            (RunResult{ExitCode::kFile, "",
                       "kodrarpt: não foi possível gravar \"" + target +
                           "\": a pasta não existe; crie-a, ou confira o caminho.\n"}));
}

TEST(ExecutaUsage, RefusesWrongValuesAndSuggestsTheNearestName) {
  struct Case {
    std::string option;
    std::string value;
    std::string message;
  };
  for (const Case& wrong : std::vector<Case>{
           {"--formato", "jsno",
            "o formato \"jsno\" não existe (quis dizer \"json\"?); escolha entre tabela, csv, json, xlsx, html, pdf"},
           {"--progresso", "sempe", "--progresso deve ser sempre, nunca ou auto (quis dizer \"sempre\"?)"},
       }) {
    EXPECT_EQ(RunProgram({"executa", "CDeptoRpt", "--conexao", "DSN=D", wrong.option, wrong.value}),
              UsageFailure(wrong.message));
  }
}

TEST(ExecutaUsage, RefusesAParameterThatTheReportDoesNotRead) {
  EXPECT_EQ(RunProgram({"executa", "RelatorioDevolucaoOriginal", "--conexao", "DSN=D", "--CodSolicit", "17"}),
            UsageFailure("CSolicitacaoRpt.RelatorioDevolucaoOriginal não lê o parâmetro \"CodSolicit\"; só lê "
                         "ListarJaDevolvidos"));
  EXPECT_EQ(RunProgram({"executa", "CDeptoRpt", "--conexao", "DSN=D", "--Owner", "eu"}),
            UsageFailure("CDeptoRpt.RelatorioDeptos não lê o parâmetro \"Owner\", nem nenhum outro"));
}

TEST(ExecutaUsage, RefusesOptionsOfLabelsForAnotherReportOrFormat) {
  for (const auto& [option, value] : std::vector<std::pair<std::string, std::string>>{
           {"--folha", "a4-2x7"}, {"--primeira", "2"}, {"--copias", "2"}, {"--codigo", "qr"}}) {
    EXPECT_EQ(
        RunProgram({"executa", "CDeptoRpt", "--conexao", "DSN=D", "--formato", "html", option, value}),
        UsageFailure(option + " só vale com um relatório de etiquetas, e CDeptoRpt.RelatorioDeptos não é um deles"));
    EXPECT_EQ(
        RunProgram({"executa", "CCaixaRpt.EtiquetaDivisoria", "--conexao", "DSN=D", "--saida", "a.csv", option, value}),
        UsageFailure(option + " só vale com os formatos html e pdf"));
  }
}

TEST(ExecutaUsage, RefusesALetterheadForAFormatWithoutPages) {
  for (const std::string command : {"executa", "confere"}) {
    std::vector<std::string> arguments = {command, "--conexao", "DSN=D", "--formato", "json", "--orgao", "Arquivo"};
    if (command == "executa") arguments.insert(arguments.begin() + 1, "CDeptoRpt");
    EXPECT_EQ(RunProgram(arguments), UsageFailure("--orgao só vale com os formatos html e pdf"));
  }
  EXPECT_EQ(RunProgram({"executa", "CDeptoRpt", "--conexao", "DSN=D", "--logotipo", "a.png"}),
            UsageFailure("--logotipo só vale com os formatos html e pdf"));
}

TEST(ExecutaUsage, ShowsTheParametersAndColumnsOfAReportInTheHelpOnIt) {
  const RunResult result = RunProgram({"executa", "CTipo_CaixaRpt", "--help"});
  EXPECT_EQ(result.code, ExitCode::kOk);
  EXPECT_EQ(result.out,
            RunProgram({"descreve", "CTipo_CaixaRpt"}).out +
                "\n\"kodrarpt executa --help\" mostra as outras opções: a conexão, os formatos, as páginas e as "
                "etiquetas.\n");
  EXPECT_EQ(RunProgram({"ajuda", "executa", "CTipo_CaixaRpt"}), result);
  EXPECT_EQ(
      RunProgram({"executa", "CTipo_CaixRpt", "-h"}),
      UsageFailure("o relatório \"CTipo_CaixRpt\" não existe (quis dizer \"CTipo_CaixaRpt\"?); \"kodrarpt lista\" "
                   "mostra todos"));
  EXPECT_TRUE(RunProgram({"executa", "--help"}).out.starts_with("Executa um relatório e grava as suas linhas\n"));
}

TEST(ExecutaUsage, LimitsTheTimeToADay) {
  for (const char* const seconds : {"0", "-1", "86401"})
    EXPECT_EQ(RunProgram({"executa", "CDeptoRpt", "--conexao", "DSN=D", "--tempo-limite", seconds}),
              UsageFailure("--tempo-limite vai de 1 a 86.400 segundos, um dia"));
}

TEST(ExecutaUsage, NeedsAConnectionString) {
  EXPECT_EQ(RunProgram({"executa", "CDeptoRpt"}), UsageFailure("falta --conexao ou --perfil"));
}

// Failures of every kind, with a password that no message may show.
class ExecutaPassword : public testing::Test {
 protected:
  void TearDown() override {
    unsetenv("KODRARPT_SENHA");
    unsetenv("SENHA_DO_ACERVO");
  }

  // Runs a command that fails, and checks that its output does not contain the password.
  static RunResult RunFailing(const std::vector<std::string>& arguments) {
    RunResult result = RunProgram(arguments);
    EXPECT_NE(result.code, ExitCode::kOk);
    EXPECT_EQ((result.out + result.err).find("segredo"), std::string::npos) << result.out << result.err;
    return result;
  }
};

TEST_F(ExecutaPassword, IsHiddenWhereArgumentsAreQuoted) {
  EXPECT_EQ(
      RunFailing({"executa", "CDeptoRpt", "--conexao", "DSN=D", "Driver={X};PWD=segredo"}),
      UsageFailure("argumento a mais: \"Driver={X};PWD=***\"; tire-o, ou ponha entre aspas um valor que tem espaços"));
  EXPECT_EQ(RunFailing({"executa", "CDeptoRpt", "--conexão", "Driver={X};PWD=segredo;UID=a"}),
            UsageFailure("\"executa\" não tem a opção \"--conexão\" (quis dizer \"--conexao\"?)"));
  EXPECT_EQ(RunFailing({"Driver={X};PWD=segredo;UID=a"}),
            UsageFailure("o comando \"Driver={X};PWD=***;UID=a\" não existe"));
  EXPECT_EQ(RunFailing({"executa", "Driver={X};PWD=segredo;UID=a", "--conexao", "x"}),
            UsageFailure("o relatório \"Driver={X};PWD=***;UID=a\" não existe; \"kodrarpt lista\" mostra todos"));
  EXPECT_EQ(RunFailing({"executa", "CDeptoRpt", "--conexao", "PWD=segredo;X=1", "--formato", "PWD=segredo;X"}),
            UsageFailure("o formato \"PWD=***;X\" não existe; escolha entre tabela, csv, json, xlsx, html, pdf"));
}

TEST_F(ExecutaPassword, IsHiddenInTheNameOfAFileThatCannotBeRead) {
  EXPECT_EQ(RunFailing({"executa", "CDeptoRpt", "--logotipo", "Driver={X};PWD=segredo", "--conexao", "DSN=D",
                        "--formato", "html"}),
            FileFailure("não foi possível ler \"Driver={X};PWD=***\": o arquivo não existe"));
}

TEST_F(ExecutaPassword, IsHiddenWhereTheDatabaseCannotBeReached) {
  for (const std::string& connection : {
           std::string("Driver={NaoExiste};UID=ana;PWD=segredo"),
           std::string("Driver={SQLite3};Database=/não/existe.db;Password=\"segredo\""),
           ToUtf8(tests::MariaDb().ConnectionString(L"pequeno", L"segredo")),
       })
    EXPECT_EQ(RunFailing({"executa", "CDeptoRpt", "--conexao", connection}).code, ExitCode::kConnection);
  setenv("KODRARPT_SENHA", "segredo", 1);
  EXPECT_EQ(RunFailing({"executa", "CDeptoRpt", "--conexao", "Driver={NaoExiste};UID=ana"}).code,
            ExitCode::kConnection);
}

TEST_F(ExecutaPassword, IsHiddenWhereTheReportFails) {
  const std::string connection = ToUtf8(tests::SmallArchiveOn(Engine::kSqlite));
  EXPECT_EQ(RunFailing({"executa", "CGrupoRpt", "--conexao", connection + "PWD=segredo"}).code, ExitCode::kReportError);
  setenv("KODRARPT_SENHA", "segredo;x", 1);
  EXPECT_EQ(RunFailing({"executa", "CGrupoRpt", "--conexao", connection}).code, ExitCode::kReportError);
}

TEST_F(ExecutaPassword, ComesFromTheEnvironment) {
  const std::wstring full = tests::SmallArchiveOn(Engine::kMariaDb);
  const std::size_t at = full.find(L"Pwd=");
  ASSERT_NE(at, std::wstring::npos);
  const std::size_t end = full.find(L';', at);
  const std::string password = ToUtf8(full.substr(at + 4, end - at - 4));
  const std::string without = ToUtf8(full.substr(0, at) + full.substr(end + 1));
  ASSERT_FALSE(password.empty());
  EXPECT_EQ(RunFailing({"executa", "CDeptoRpt", "--conexao", without}).code, ExitCode::kConnection);
  setenv("KODRARPT_SENHA", password.c_str(), 1);
  EXPECT_EQ(RunProgram({"executa", "CDeptoRpt", "--conexao", without}).code, ExitCode::kOk);
  setenv("KODRARPT_SENHA", "outra", 1);
  setenv("SENHA_DO_ACERVO", password.c_str(), 1);
  EXPECT_EQ(RunProgram({"executa", "CDeptoRpt", "--conexao", without, "--senha-de", "SENHA_DO_ACERVO"}).code,
            ExitCode::kOk);
  // The password of the connection string is used, unless a variable is named.
  EXPECT_EQ(RunProgram({"executa", "CDeptoRpt", "--conexao", ToUtf8(full)}).code, ExitCode::kOk);
  EXPECT_EQ(RunProgram({"executa", "CDeptoRpt", "--conexao", ToUtf8(full), "--senha-de", "SENHA_DO_ACERVO"}),
            UsageFailure("a string de conexão já tem uma senha: remova-a ou não use --senha-de"));
  EXPECT_EQ(RunProgram({"executa", "CDeptoRpt", "--conexao", without, "--senha-de", "NAO_HA"}),
            UsageFailure("a variável de ambiente \"NAO_HA\", que deve conter a senha, não existe: defina-a antes"));
}

}  // namespace
}  // namespace kodra::console
