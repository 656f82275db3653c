// The streams and files of kodrarpt as a process, when they fail.
#include <gtest/gtest.h>
#include <signal.h>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <thread>

#include "tests/console/process/kodrarpt_process.h"

namespace kodra::tests {
namespace {

namespace fs = std::filesystem;

TEST_F(KodrarptProcess, RefusesAFileThatIsMountedOnItsOwnBeforeItAsksTheDatabase) {
  if (!MayMount()) GTEST_SKIP() << "this machine does not permit private mounts";
  const fs::path target = folder_ / "destino.csv";
  std::ofstream(target) << "antes";
  EXPECT_EQ(
      CodeOf({"unshare", "--map-root-user", "--mount", "sh", "-c",
              "mount --bind \"$1\" \"$1\" && exec \"$0\" executa CDeptoRpt --conexao DSN=NaoExiste --saida \"$1\"",
              KODRARPT, target.string()}),
      5);
  EXPECT_EQ(Said(), "kodrarpt: não foi possível gravar \"" + target.string() +
                        "\": o arquivo é um ponto de montagem e não pode ser substituído; monte a pasta dele.\n");
  EXPECT_EQ(Names(), (std::vector<std::string>{"destino.csv", "saida.txt"}));
  EXPECT_EQ(Read(target), "antes");
}

TEST_F(KodrarptProcess, FailsWhenASpreadsheetsTemporaryFileFillsTheDisk) {
  if (!MayMount()) GTEST_SKIP() << "this machine does not permit private mounts";
  EXPECT_EQ(CodeOf({"unshare", "--map-root-user", "--mount", "sh", "-c",
                    "mkdir \"$1/tmp\" && mount -t tmpfs -o size=1m tmpfs \"$1/tmp\" && export TMPDIR=\"$1/tmp\" && "
                    "exec \"$0\" executa CSuporteRpt --conexao \"$2\" --formato xlsx --saida \"$1/destino.xlsx\"",
                    KODRARPT, folder_.Path().string(), ManySupports().Connection()}),
            5);
  EXPECT_EQ(Said(),
            "kodrarpt: não foi possível gravar o arquivo temporário da planilha: o disco está cheio; libere espaço ou "
            "use outro.\n");
  EXPECT_EQ(Names(), (std::vector<std::string>{"saida.txt", "tmp"}));
}

TEST_F(KodrarptProcess, SaysWhyASpreadsheetsTemporaryFileIsNotWritten) {
  // With the signal of the limit ignored, the program receives an error instead.
  EXPECT_EQ(CodeOf({"sh", "-c",
                    "trap '' XFSZ && ulimit -f 64 && exec \"$0\" executa CSuporteRpt --conexao \"$2\" --formato xlsx "
                    "--saida \"$1/destino.xlsx\"",
                    KODRARPT, folder_.Path().string(), ManySupports().Connection()}),
            5);
  // A program that counts its coverage then says that it cannot write its counts either.
  EXPECT_EQ(Said().substr(0, Said().find('\n')),
            "kodrarpt: não foi possível gravar o arquivo temporário da planilha: o arquivo é grande demais para o "
            "disco; escolha outro.");
  EXPECT_EQ(Names(), (std::vector<std::string>{"saida.txt"}));
}

TEST_F(KodrarptProcess, KeepsMessagesOutOfItsFileWhenItsErrorStreamIsClosed) {
  const pid_t process = StartEndlessCsv({"sh", "-c", "exec \"$@\" 2>&-", "sh"});
  EXPECT_TRUE(HasBegun(process));
  const fs::path errors = "/proc/" + std::to_string(process) + "/fd/2";
  EXPECT_EQ(fs::read_symlink(errors), "/dev/null");
  kill(process, SIGTERM);
  EXPECT_EQ(ExitCodeOf(process), 143);
}

TEST_F(KodrarptProcess, SaysThatTheStandardOutputIsFull) {
  testbed::ChildProcess child;
  child.command = {"sh", "-c", "exec \"$0\" lista 2>\"$1\" >/dev/full", KODRARPT, (folder_ / "saida.txt").string()};
  child.output = (folder_ / "resto.txt").string();
  EXPECT_EQ(testbed::WaitFor(testbed::Spawn(child)), 5);
  EXPECT_EQ(Said(), "kodrarpt: não foi possível gravar a saída: o disco está cheio; libere espaço ou use outro.\n");
}

TEST_F(KodrarptProcess, WritesItsWholeFileWhenItsErrorStreamIsFull) {
  EXPECT_EQ(CodeOf({"sh", "-c",
                    "exec \"$0\" executa CSuporteRpt --conexao \"$1\" --saida \"$2\" --progresso sempre 2>/dev/full",
                    KODRARPT, ManySupports().Connection(), (folder_ / "destino.csv").string()}),
            0);
  EXPECT_EQ(Said(), "");
  const std::string text = Read(folder_ / "destino.csv");
  EXPECT_EQ(std::ranges::count(text, '\n'), 100001);
  EXPECT_TRUE(text.ends_with("Microfilme de dezesseis milímetros 00100000\r\n"));
}

// A program that starts this one may make it ignore the signal of a closed pipe.
TEST_F(KodrarptProcess, SaysThatTheReaderOfItsOutputHasEnded) {
  EXPECT_EQ(
      CodeOf({"sh", "-c",
              "trap '' PIPE; { \"$0\" executa CSuporteRpt --conexao \"$1\" --formato csv 2>\"$2\"; echo $? >\"$3\"; } "
              "| head -n 1",
              KODRARPT, ManySupports().Connection(), (folder_ / "erros.txt").string(),
              (folder_ / "código.txt").string()}),
      0);
  EXPECT_EQ(Said(), "DESCR_SUPORTE\r\n");
  EXPECT_EQ(Read(folder_ / "erros.txt"), "kodrarpt: não foi possível gravar a saída: quem lia a saída já terminou.\n");
  EXPECT_EQ(Read(folder_ / "código.txt"), "5\n");
}

// The panel works without a browser, too: the address is for any of this computer.
TEST_F(KodrarptProcess, SaysThatItFindsNoBrowserForThePanel) {
  testbed::ChildProcess child;
  child.command = {"env", "PATH=/nao/existe", KODRARPT, "painel", "--conexao", ManySupports().Connection()};
  child.output = (folder_ / "saida.txt").string();
  const pid_t process = testbed::Spawn(child);
  const std::string message = "kodrarpt: não foi possível abrir o navegador; abra nele o endereço acima\n";
  for (int i = 0; i < 1000 && !Said().ends_with(message); ++i)
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  EXPECT_TRUE(Said().starts_with("http://127.0.0.1:"));
  EXPECT_TRUE(Said().ends_with(message)) << Said();
  kill(process, SIGINT);
  EXPECT_EQ(ExitCodeOf(process), 0);
}

TEST_F(KodrarptProcess, FailsWhenItsOutputIsClosed) {
  EXPECT_EQ(CodeOf({"sh", "-c", "exec \"$0\" executa CSuporteRpt --conexao \"$1\" --formato csv >&-", KODRARPT,
                    ManySupports().Connection()}),
            5);
  EXPECT_EQ(Said(),
            "kodrarpt: não foi possível gravar a saída: a saída está fechada; redirecione-a para um arquivo.\n");
}

TEST_F(KodrarptProcess, FailsWhenItsOutputIsFull) {
  testbed::ChildProcess child;
  child.command = {KODRARPT, "executa", "CSuporteRpt", "--conexao", ManySupports().Connection(), "--formato", "csv"};
  child.output = "/dev/full";
  EXPECT_EQ(testbed::WaitFor(testbed::Spawn(child)), 5);
}

}  // namespace
}  // namespace kodra::tests
