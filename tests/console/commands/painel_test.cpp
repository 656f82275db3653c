#include <gtest/gtest.h>

#include "console/panel/server.h"
#include "tests/console/run.h"

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

}  // namespace
}  // namespace kodra::console
