// kodrarpt as a process on a terminal.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
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
  EXPECT_EQ(testbed::WaitFor(testbed::Spawn(child)), code);
  std::array<char, 4096> shown{};
  const ssize_t length = read(terminal, shown.data(), shown.size());
  close(terminal);
  return {shown.data(), static_cast<std::size_t>(std::max<ssize_t>(length, 0))};
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
