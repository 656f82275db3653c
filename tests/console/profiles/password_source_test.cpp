#include "console/profiles/password_source.h"

#include <gtest/gtest.h>

#include "tests/console/failing.h"
#include "tests/console/user_settings.h"

namespace kodra::console {
namespace {

std::wstring OfCommand(const std::string& command) { return PasswordFrom({.command = command}, "do perfil a"); }

TEST(PasswordSourceTest, IsAVariable) {
  const UserSettings user;
  setenv("ACERVO_SENHA", "ção", 1);
  EXPECT_EQ(PasswordFrom({.variable = "ACERVO_SENHA"}, ""), L"ção");
  EXPECT_EQ(RefusalOf([] { PasswordFrom({.variable = "NAO_HA"}, ""); }),
            "a variável de ambiente \"NAO_HA\", que deve conter a senha, não existe: defina-a antes");
}

TEST(PasswordSourceTest, IsTheFirstLineOfACommandsOutput) {
  EXPECT_EQ(OfCommand("echo 'a  b;ç'; echo outra"), L"a  b;ç");
  EXPECT_EQ(OfCommand("printf 'abc\\r\\n'"), L"abc");
  EXPECT_EQ(OfCommand("printf abc"), L"abc");
  // More than a pipe keeps.
  EXPECT_EQ(OfCommand("echo abc && yes | head -c 200000"), L"abc");
}

TEST(PasswordSourceTest, OfACommandThatFailsIsNoneAndNoMessageShowsIt) {
  EXPECT_EQ(RefusalOf([] { OfCommand("echo segredo; exit 3"); }),
            "o comando de senha-comando terminou com erro, e não há senha: execute-o no terminal para ver por quê");
  EXPECT_EQ(RefusalOf([] { OfCommand("true"); }),
            "o comando de senha-comando não escreveu nenhuma senha, que deve ser a primeira linha da sua saída");
  EXPECT_EQ(RefusalOf([] { OfCommand("echo; echo segredo"); }),
            "o comando de senha-comando não escreveu nenhuma senha, que deve ser a primeira linha da sua saída");
  EXPECT_EQ(RefusalOf([] { OfCommand("head -c 2000 /dev/zero | tr '\\0' x"); }),
            "a primeira linha que o comando de senha-comando escreveu passa de 1.024 bytes, e é longa demais para ser "
            "a senha");
}

}  // namespace
}  // namespace kodra::console
