// kodrarpt as a process on a terminal.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <array>

#include "tests/console/process/kodrarpt_process.h"
#include "values/utf8.h"

namespace kodra::tests {
namespace {

using values::ToUtf8;

// Starts a process with a terminal of that width for its output, and returns what the terminal gets.
std::string OnTerminal(unsigned short width, const std::vector<std::string>& command, int code = 0) {
  const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
  EXPECT_EQ(grantpt(terminal), 0);
  EXPECT_EQ(unlockpt(terminal), 0);
  const winsize size = {.ws_row = 24, .ws_col = width, .ws_xpixel = 0, .ws_ypixel = 0};
  EXPECT_EQ(ioctl(terminal, TIOCSWINSZ, &size), 0);
  testbed::ChildProcess child;
  child.command = command;
  child.output = ptsname(terminal);
  const pid_t process = testbed::Spawn(child);
  std::string shown;
  std::array<char, 4096> part{};
  // Reading fails when the process has ended and everything is read.
  for (ssize_t length; (length = read(terminal, part.data(), part.size())) > 0;)
    shown.append(part.data(), static_cast<std::size_t>(length));
  EXPECT_EQ(testbed::WaitFor(process), code);
  close(terminal);
  return shown;
}

TEST_F(KodrarptProcess, FitsATableToTheTerminal) {
  SqliteFile file;
  file.Run(
      L"CREATE TABLE DEPTO (COD_DEPTO, DESCR_DEPTO VARCHAR(50), ENDERECO VARCHAR(50), CIDADE VARCHAR(50), "
      L"ESTADO VARCHAR(2), CEP VARCHAR(9), END_EMAIL VARCHAR(50))");
  file.Run(L"INSERT INTO DEPTO VALUES ('1', 'Fin' || char(27) || '[2J', 'Rua A', 'Rio', 'RJ', '01000-000', 'a@b.br')");
  const std::vector<std::string> command = {KODRARPT, "executa", "CDeptoRpt", "--conexao",
                                            ToUtf8(file.ConnectionString())};
  EXPECT_EQ(OnTerminal(30, command),
            "DESCR_DEPTO  ENDERECO  CIDADE\r\n"
            "───────────  ────────  ──────\r\n"
            "Fin\uFFFD[2J      Rua A     Rio\r\n"
            "(1 linha)\r\n"
            "mais 3 colunas não cabem aqui (ESTADO, CEP, END_EMAIL): use --colunas, ou --saida ARQUIVO.csv\r\n");
  // A file is as wide as the table.
  EXPECT_EQ(CodeOf(command), 0);
  EXPECT_EQ(Said(),
            "DESCR_DEPTO  ENDERECO  CIDADE  ESTADO  CEP        END_EMAIL\n"
            "───────────  ────────  ──────  ──────  ─────────  ─────────\n"
            "Fin\uFFFD[2J      Rua A     Rio     RJ      01000-000  a@b.br\n"
            "(1 linha)\n");
}

TEST_F(KodrarptProcess, ShowsNoControlCharactersInAnyFormat) {
  SqliteFile file;
  file.Run(L"CREATE TABLE SUPORTE (COD_SUPORTE VARCHAR(10), DESCR_SUPORTE VARCHAR(50))");
  // U+009B is what a terminal may read as the two characters ESC [.
  file.Run(L"INSERT INTO SUPORTE VALUES ('1', 'Fil' || char(27) || '[2J' || char(155) || 'me é ' || char(13))");
  const auto command = [&](const std::string& format) {
    return std::vector<std::string>{KODRARPT,    "executa", "CSuporteRpt", "--conexao", ToUtf8(file.ConnectionString()),
                                    "--formato", format};
  };
  const auto sent = [&](const std::string& format) {
    std::filesystem::remove(folder_ / "saida.txt");
    EXPECT_EQ(CodeOf(command(format)), 0);
    return Said();
  };
  EXPECT_EQ(OnTerminal(80, command("csv")), "DESCR_SUPORTE\r\n\"Fil\uFFFD[2J\uFFFDme é \uFFFD\"\r\n");
  EXPECT_EQ(sent("csv"), "DESCR_SUPORTE\r\n\"Fil\x1b[2J\u009Bme é \r\"\r\n");
  EXPECT_EQ(OnTerminal(80, command("json")), "[\r\n{\"DESCR_SUPORTE\":\"Fil\\u001b[2J\\u009bme é \\r\"}\r\n]\r\n");
  EXPECT_EQ(sent("json"), "[\n{\"DESCR_SUPORTE\":\"Fil\\u001b[2J\u009Bme é \\r\"}\n]\n");
  const std::string html = OnTerminal(80, command("html"));
  EXPECT_NE(html.find("[2J\uFFFDme é"), html.npos);
  EXPECT_EQ(html.find('\x1b'), html.npos);
  EXPECT_NE(sent("html").find("[2J\u009Bme é"), html.npos);
}

TEST_F(KodrarptProcess, ShowsNoControlCharactersOfACheckInJson) {
  SqliteFile file;
  // The error of SQLite names the table that the view does not find.
  file.Run(L"CREATE VIEW DEPTO AS SELECT * FROM \"X\x9B\"");
  const std::vector<std::string> command = {KODRARPT, "verifica", "--json", "--conexao",
                                            ToUtf8(file.ConnectionString())};
  const std::string shown = OnTerminal(80, command, 4);
  EXPECT_NE(shown.find("main.X\\u009b (1)"), shown.npos) << shown;
  EXPECT_EQ(shown.find("\u009B"), shown.npos);
  EXPECT_EQ(CodeOf(command), 4);
  EXPECT_NE(Said().find("main.X\u009B (1)"), shown.npos) << Said();
}

TEST_F(KodrarptProcess, WritesNoPdfToATerminal) {
  EXPECT_EQ(OnTerminal(80, {KODRARPT, "etiquetas", "abertura", "AA001", "--conexao", "DSN=NaoExiste"}, 2),
            "kodrarpt: o PDF precisa de --saida, porque a saída é um terminal\r\n");
}

TEST_F(KodrarptProcess, RefusesToShowProgressBetweenTheRowsOfATable) {
  EXPECT_EQ(OnTerminal(80, {KODRARPT, "executa", "CSuporteRpt", "--conexao", "DSN=D", "--progresso", "sempre"}, 2),
            "kodrarpt: --progresso sempre não vale com uma tabela em um terminal, que já mostra as linhas\r\n");
}

TEST_F(KodrarptProcess, ShowsTheFirstRowsWhileTheDatabaseWorksOnTheNext) {
  SqliteFile file;
  // After three rows the database looks for a fourth for ever.
  file.Run(
      L"CREATE VIEW PARAMETRO AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) "
      L"SELECT '1' AS CODIGO, 'Acervo' AS EMPRESA FROM n WHERE i <= 3");
  EXPECT_EQ(OnTerminal(60,
                       {KODRARPT,
                        "executa",
                        "CEstatIndexRpt.RelatorioEstatisticasPorPalavrasChave",
                        "--conexao",
                        ToUtf8(file.ConnectionString()),
                        "--NumeroPC1",
                        "1",
                        "--NumeroPC2",
                        "2",
                        "--NumeroPC3",
                        "3",
                        "--NumeroPC4",
                        "4",
                        "--NumeroPC5",
                        "5",
                        "--NumeroObs",
                        "6",
                        "--colunas",
                        "OPERADOR,PC1,PC2",
                        "--tempo-limite",
                        "2"},
                       1),
            "OPERADOR  PC1  PC2\r\n"
            "────────  ───  ───\r\n"
            "            1    2\r\n"
            "            1    2\r\n"
            "            1    2\r\n"
            "kodrarpt: o relatório foi interrompido: passou do limite de 2 segundos\r\n");
}

TEST_F(KodrarptProcess, SaysOnATerminalThatItWaitsForTheDatabase) {
  const std::string shown =
      OnTerminal(80, {KODRARPT, "executa", "CSuporteRpt", "--conexao", SlowSqlite(), "--tempo-limite", "3"}, 1);
  const std::string begin = "esperando o banco de dados há 1 s\resperando o banco de dados há 2 s\r";
  EXPECT_EQ(shown.substr(0, begin.size()), begin);
  const std::string message = "\rkodrarpt: o relatório foi interrompido: passou do limite de 3 segundos\r\n";
  EXPECT_TRUE(shown.ends_with(message)) << shown;
}

}  // namespace
}  // namespace kodra::tests
