#include <gtest/gtest.h>

#include "console/panel/server.h"
#include "tests/console/run.h"
#include "tests/console/user_settings.h"

namespace kodra::console {
namespace {

RunResult Painel(const std::vector<std::string>& options) {
  std::vector<std::string> arguments = {"painel", "--sem-navegador", "--conexao", "Driver={Nenhum}"};
  arguments.insert(arguments.end(), options.begin(), options.end());
  return RunProgram(arguments);
}

TEST(Painel, RefusesAPortThatDoesNotExist) {
  for (const char* const port : {"-1", "65536"})
    EXPECT_EQ(Painel({"--porta", port}), UsageFailure("--porta vai de 1 a 65535"));
}

TEST(Painel, RefusesAPortThatAnotherProgramUses) {
  panel::Server other({}, {});
  const std::string port = std::to_string(other.Bind(0));
  EXPECT_EQ(Painel({"--porta", port}), UsageFailure("outro programa já usa a porta " + port + "; escolha outra"));
}

TEST(Painel, RefusesATimeWithoutUseOfLessThanAMinuteOrMoreThanADay) {
  for (const char* const minutes : {"0", "1441"})
    EXPECT_EQ(Painel({"--ocioso", minutes}), UsageFailure("--ocioso vai de 1 a 1.440 minutos, um dia"));
}

// The panel of these options would begin: the port, which is taken, is looked at last.
RunResult Begun(const std::vector<std::string>& options) {
  panel::Server other({}, {});
  const std::string port = std::to_string(other.Bind(0));
  std::vector<std::string> arguments = {"painel", "--sem-navegador", "--porta", port};
  arguments.insert(arguments.end(), options.begin(), options.end());
  RunResult result = RunProgram(arguments);
  result.err = result.err.replace(result.err.find(port), port.size(), "N");
  return result;
}

const RunResult kBegins = UsageFailure("outro programa já usa a porta N; escolha outra");

TEST(Painel, NeedsNoConnectionIfThereAreProfiles) {
  const UserSettings user;
  EXPECT_EQ(RunProgram({"painel", "--sem-navegador"}), UsageFailure("falta --conexao ou --perfil"));
  user.Write("[acervo]\nconexao = DSN=Acervo\n");
  EXPECT_EQ(Begun({}), kBegins);
  EXPECT_EQ(Begun({"--perfil", "ACERVO"}), kBegins);
}

TEST(Painel, RefusesAPasswordForNoConnection) {
  const UserSettings user;
  user.Write("[acervo]\nconexao = DSN=Acervo\n");
  for (const std::vector<std::string>& options :
       {std::vector<std::string>{"--senha-de", "ACERVO_SENHA"}, {"--pergunta-senha"}}) {
    std::vector<std::string> arguments = {"painel", "--sem-navegador"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    EXPECT_EQ(RunProgram(arguments), UsageFailure("--senha-de e --pergunta-senha precisam de --conexao ou --perfil"));
  }
}

TEST(Painel, RefusesAnUnknownProfileAndAnEmptyConnection) {
  const UserSettings user;
  user.Write("[acervo]\nconexao = DSN=Acervo\n");
  EXPECT_EQ(RunProgram({"painel", "--sem-navegador", "--perfil", "acerv"}),
            UsageFailure("o perfil \"acerv\" não existe (quis dizer \"acervo\"?); kodrarpt perfil lista mostra todos"));
  EXPECT_EQ(RunProgram({"painel", "--sem-navegador", "--conexao", ""}),
            UsageFailure("a string de conexão está vazia: informe-a em --conexao"));
}

}  // namespace
}  // namespace kodra::console
