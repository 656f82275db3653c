// Why the system refuses a file, in words that say what to do.
#include "console/command_line/system_reason.h"

#include <gtest/gtest.h>

#include <cerrno>

#include "values/utf8.h"

namespace kodra::console {
namespace {

TEST(SystemReason, SaysWhatHappenedAndWhatToDo) {
  const struct {
    int error;
    const char* reason;
  } kReasons[] = {
      {ENOENT, "a pasta não existe; crie-a, ou confira o caminho"},
      {ENOTDIR, "o caminho passa por um arquivo como se fosse uma pasta; confira-o"},
      {EACCES, "não há permissão; peça-a a quem administra a máquina, ou use outra pasta"},
      {EPERM, "não há permissão; peça-a a quem administra a máquina, ou use outra pasta"},
      {EROFS, "o disco é só de leitura; escolha outro"},
      {ENOSPC, "o disco está cheio; libere espaço ou use outro"},
      {EFBIG, "o arquivo é grande demais para o disco; escolha outro"},
      {EIO, "o disco deu erro; avise quem cuida da máquina"},
      {EISDIR, "é uma pasta; informe um arquivo"},
      {ENAMETOOLONG, "o nome é longo demais; escolha um mais curto"},
      {EEXIST, "já existe um arquivo com esse nome; escolha outro"},
      {EBUSY, "o arquivo está em uso; feche o programa que o usa"},
      {EMFILE, "há arquivos demais abertos; feche outros programas"},
      {EBADF, "a saída está fechada; redirecione-a para um arquivo"},
      {EPIPE, "quem lia a saída já terminou"},
      {ENODEV, "o sistema deu o erro 19; mostre-o a quem cuida da máquina"},
  };
  for (const auto& [error, reason] : kReasons)
    EXPECT_EQ(values::ToUtf8(SystemReason({error, std::generic_category()})), reason);
}

}  // namespace
}  // namespace kodra::console
