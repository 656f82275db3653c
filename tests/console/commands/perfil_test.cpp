// kodrarpt perfil, and profiles in the other commands.
#include <gtest/gtest.h>

#include <regex>

#include "tests/console/run.h"
#include "tests/console/small_archive.h"
#include "tests/console/user_settings.h"
#include "tests/db/mariadb.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

using tests::Engine;
using values::ToUtf8;

std::string Sqlite() { return ToUtf8(tests::SmallArchiveOn(Engine::kSqlite)); }

RunResult WithoutTime(RunResult result) {
  result.out = std::regex_replace(result.out, std::regex("em [0-9]+ ms"), "em N ms");
  return result;
}

TEST(PerfilTest, StoresListsAndRemovesConnections) {
  const UserSettings user;
  EXPECT_EQ(RunProgram({"perfil", "lista"}),
            Success("", "kodrarpt: não há perfis; kodrarpt perfil --help mostra como criar um\n"));
  EXPECT_EQ(RunProgram({"perfil", "novo", "acervo", "--conexao", "DSN=A;UID=ana", "--senha-comando", "pass acervo"}),
            Success("Perfil acervo gravado em " + user.File().string() +
                    "\n"
                    "Para testá-lo: kodrarpt perfil testa acervo\n"));
  EXPECT_EQ(RunProgram({"perfil", "novo", "b", "--conexao", "DSN=B", "--pergunta-senha"}).code, ExitCode::kOk);
  EXPECT_EQ(RunProgram({"perfil", "novo", "c", "--conexao", "DSN=C", "--senha-de", "C_SENHA"}).code, ExitCode::kOk);
  EXPECT_EQ(RunProgram({"perfil", "novo", "d", "--conexao", "DSN=D"}).code, ExitCode::kOk);
  EXPECT_EQ(RunProgram({"perfil", "lista"}), Success("acervo\n"
                                                     "  conexão  DSN=A;UID=ana\n"
                                                     "  senha    da saída de um comando\n"
                                                     "b\n"
                                                     "  conexão  DSN=B\n"
                                                     "  senha    perguntada no terminal\n"
                                                     "c\n"
                                                     "  conexão  DSN=C\n"
                                                     "  senha    da variável C_SENHA\n"
                                                     "d\n"
                                                     "  conexão  DSN=D\n"
                                                     "  senha    da variável KODRARPT_SENHA, se existir\n"));
  for (const char* const name : {"acervo", "b", "c", "D"})
    EXPECT_EQ(RunProgram({"perfil", "remove", name}).code, ExitCode::kOk);
  EXPECT_EQ(RunProgram({"perfil", "remove", "b"}),
            UsageFailure("o perfil \"b\" não existe; kodrarpt perfil lista mostra todos"));
  EXPECT_EQ(user.Text(), "");
}

TEST(PerfilTest, ShowsNoPasswordThatSomebodyWroteIntoTheFile) {
  const UserSettings user;
  user.Write("[a]\nconexao = DSN=A;PWD=segredo\n");
  EXPECT_EQ(RunProgram({"perfil", "lista"}),
            Success("a\n"
                    "  conexão  DSN=A;PWD=***\n"
                    "  senha    da variável KODRARPT_SENHA, se existir\n"
                    "  não pode ser usado: a conexão contém uma senha: tire-a da string de conexão e use senha-de, "
                    "senha-comando ou pergunta-senha (veja kodrarpt perfil --help)\n"));
}

TEST(PerfilTest, RefusesAPasswordInAConnectionString) {
  const UserSettings user;
  EXPECT_EQ(RunProgram({"perfil", "novo", "a", "--conexao", "DSN=A;PWD=segredo"}),
            UsageFailure("a conexão contém uma senha: tire-a da string de conexão e use senha-de, senha-comando ou "
                         "pergunta-senha (veja kodrarpt perfil --help)"));
}

TEST(PerfilTest, RefusesWhatAnActionDoesNotTake) {
  const UserSettings user;
  EXPECT_EQ(
      RunProgram({"perfil", "nova"}),
      UsageFailure("a ação \"nova\" não existe (quis dizer \"novo\"?); escolha entre novo, lista, testa, remove"));
  EXPECT_EQ(RunProgram({"perfil", "novo"}), UsageFailure("falta o nome do perfil"));
  EXPECT_EQ(RunProgram({"perfil", "novo", "a"}), UsageFailure("falta --conexao"));
  EXPECT_EQ(RunProgram({"perfil", "lista", "a"}),
            UsageFailure("argumento a mais: \"a\"; tire-o, ou ponha entre aspas um valor que tem espaços"));
  EXPECT_EQ(RunProgram({"perfil", "remove", "a", "--conexao", "DSN=A"}),
            UsageFailure("--conexao não vale com perfil remove"));
  EXPECT_EQ(RunProgram({"perfil", "remove", "a", "--detalhes"}), UsageFailure("--detalhes não vale com perfil remove"));
  EXPECT_EQ(RunProgram({"perfil", "testa", "a", "--senha-comando", "x"}),
            UsageFailure("--senha-comando não vale com perfil testa"));
  EXPECT_EQ(RunProgram({"perfil", "testa", "a", "--senha-de", "X", "--pergunta-senha"}),
            UsageFailure("--senha-de e --pergunta-senha não podem ser usados juntos"));
}

TEST(PerfilTest, SaysWhichDatabaseAnswers) {
  const UserSettings user;
  ASSERT_EQ(RunProgram({"perfil", "novo", "a", "--conexao", Sqlite()}).code, ExitCode::kOk);
  const RunResult sqlite = WithoutTime(RunProgram({"perfil", "testa", "a"}));
  EXPECT_EQ(sqlite.code, ExitCode::kOk);
  EXPECT_EQ(sqlite.err, "");
  EXPECT_TRUE(std::regex_match(sqlite.out, std::regex("O banco respondeu em N ms\n"
                                                      "  produto  SQLite [0-9.]+\n"
                                                      "(  banco    .*\n)?"
                                                      "  dialeto  SQLite\n")))
      << sqlite.out;
}

TEST(PerfilTest, TestsWithThePasswordOfEachSource) {
  const UserSettings user;
  const std::string server = user.WithoutPassword(ToUtf8(tests::SmallArchiveOn(Engine::kMariaDb)), "ACERVO_SENHA");
  ASSERT_EQ(RunProgram({"perfil", "novo", "a", "--conexao", server, "--senha-de", "ACERVO_SENHA"}).code, ExitCode::kOk);
  ASSERT_EQ(RunProgram({"perfil", "novo", "b", "--conexao", server, "--senha-comando", "printenv ACERVO_SENHA"}).code,
            ExitCode::kOk);
  ASSERT_EQ(RunProgram({"perfil", "novo", "c", "--conexao", server}).code, ExitCode::kOk);
  for (const char* const name : {"a", "b"}) {
    const RunResult result = WithoutTime(RunProgram({"perfil", "testa", name}));
    EXPECT_EQ(result.code, ExitCode::kOk) << result.err;
    EXPECT_TRUE(std::regex_match(result.out, std::regex("O banco respondeu em N ms\n"
                                                        "  produto  MariaDB [0-9.]+\n"
                                                        "  banco    pequeno\n"
                                                        "  dialeto  MySQL\n")))
        << result.out;
  }
  EXPECT_EQ(RunProgram({"perfil", "testa", "c"}).code, ExitCode::kConnection);
  EXPECT_EQ(RunProgram({"perfil", "testa", "c", "--senha-de", "ACERVO_SENHA"}).code, ExitCode::kOk);
  setenv("KODRARPT_SENHA", getenv("ACERVO_SENHA"), 1);
  EXPECT_EQ(RunProgram({"perfil", "testa", "c"}).code, ExitCode::kOk);
}

TEST(PerfilTest, SaysThatAFileIsNoDatabase) {
  const UserSettings user;
  const std::string file = (user.Folder() / "bytes.db").string();
  std::ofstream(file) << std::string(5000, 'x');
  ASSERT_EQ(RunProgram({"perfil", "novo", "a", "--conexao", "Driver={SQLite3};Database=" + file}).code, ExitCode::kOk);
  const RunResult result = RunProgram({"perfil", "testa", "a"});
  EXPECT_EQ(result.code, ExitCode::kConnection);
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(
      result.err,
      "kodrarpt: não foi possível conectar ao banco de dados: o arquivo não é um banco SQLite, ou está danificado.\n"
      "Resposta do banco ou do driver: file is not a database (26)\n"
      "O que fazer: confira o caminho em Database, na string de conexão, ou restaure uma cópia de segurança.\n"
      "Com --detalhes, sai também a mensagem do componente.\n");
  EXPECT_NE(RunProgram({"perfil", "testa", "a", "--detalhes"}).err.find("\nA mensagem do componente: erro "),
            std::string::npos);
}

TEST(PerfilOption, ConnectsEveryCommand) {
  const UserSettings user;
  ASSERT_EQ(RunProgram({"perfil", "novo", "a", "--conexao", Sqlite()}).code, ExitCode::kOk);
  const RunResult expected = RunProgram({"executa", "CDeptoRpt", "--conexao", Sqlite()});
  EXPECT_EQ(expected.code, ExitCode::kOk);
  EXPECT_EQ(RunProgram({"executa", "CDeptoRpt", "--perfil", "a"}), expected);
  setenv("KODRARPT_PERFIL", "a", 1);
  EXPECT_EQ(RunProgram({"executa", "CDeptoRpt"}), expected);
  EXPECT_EQ(RunProgram({"verifica"}), RunProgram({"verifica", "--conexao", Sqlite()}));
}

TEST(PerfilOption, IsRefusedBesideAConnectionString) {
  const UserSettings user;
  EXPECT_EQ(RunProgram({"executa", "CDeptoRpt", "--perfil", "a", "--conexao", "DSN=A"}),
            UsageFailure("--conexao e --perfil não podem ser usados juntos"));
  EXPECT_EQ(RunProgram({"executa", "CDeptoRpt", "--perfil", "a"}),
            UsageFailure("o perfil \"a\" não existe; kodrarpt perfil lista mostra todos"));
}

TEST(PerfilOption, OfTheEnvironmentGivesWayToAConnectionString) {
  const UserSettings user;
  setenv("KODRARPT_PERFIL", "falta", 1);
  EXPECT_EQ(RunProgram({"executa", "CDeptoRpt", "--conexao", Sqlite()}).code, ExitCode::kOk);
  EXPECT_EQ(RunProgram({"executa", "CDeptoRpt"}),
            UsageFailure("o perfil \"falta\" não existe; kodrarpt perfil lista mostra todos"));
}

TEST(PasswordOptions, AreRefusedBesideEachOtherAndBesideAPasswordInTheString) {
  const UserSettings user;
  EXPECT_EQ(RunProgram({"executa", "CDeptoRpt", "--conexao", "DSN=A", "--senha-de", "X", "--pergunta-senha"}),
            UsageFailure("--senha-de e --pergunta-senha não podem ser usados juntos"));
  EXPECT_EQ(RunProgram({"executa", "CDeptoRpt", "--conexao", "DSN=A;PWD=x", "--pergunta-senha"}),
            UsageFailure("a string de conexão já tem uma senha: remova-a ou não use --pergunta-senha"));
}

}  // namespace
}  // namespace kodra::console
