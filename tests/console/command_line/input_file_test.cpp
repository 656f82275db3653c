#include "console/command_line/input_file.h"

#include <gtest/gtest.h>

#include <fstream>

#include "tests/console/failing.h"
#include "tests/console/typed_input.h"
#include "tests/db/temporary_folder.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

TEST(InputFile, IsReadWhole) {
  const tests::TemporaryFolder folder;
  const std::filesystem::path path = folder / "ação.txt";
  std::ofstream(path, std::ios::binary) << "a\r\nb" << '\0' << "c";
  EXPECT_EQ(ReadInputFile(values::FromUtf8(path.string()), 6), std::string("a\r\nb\0c", 6));
}

TEST(InputFile, IsRefusedWithItsNameAndTheReason) {
  const tests::TemporaryFolder folder;
  const std::filesystem::path path = folder / "lista.txt";
  EXPECT_EQ(FailureOf([&] { ReadInputFile(values::FromUtf8(path.string()), 6); }),
            "não foi possível ler \"" + path.string() + "\": o arquivo não existe");
  std::ofstream(path) << "1234567";
  EXPECT_EQ(FailureOf([&] { ReadInputFile(values::FromUtf8(path.string()), 6); }),
            "não foi possível ler \"" + path.string() + "\": passa do máximo, que é de 6 bytes");
  EXPECT_EQ(FailureOf([&] { ReadInputFile(L"/tmp", 6); }),
            "não foi possível ler \"/tmp\": é uma pasta; informe um arquivo");
}

TEST(StandardInput, IsReadWholeOrRefused) {
  {
    const TypedInput typed("123456");
    EXPECT_EQ(ReadStandardInput(6), "123456");
  }
  const TypedInput typed("1234567");
  EXPECT_EQ(FailureOf([] { ReadStandardInput(6); }),
            "não foi possível ler a entrada padrão: passa do máximo, que é de 6 bytes");
}

}  // namespace
}  // namespace kodra::console
