#include "console/formats/pages/picture.h"

#include <gtest/gtest.h>
#include <fstream>

#include "tests/console/failing.h"
#include "tests/db/temporary_folder.h"
#include "values/utf8.h"

namespace kodra::console::pages {
namespace {

// A signature, a header of the given size, and nothing of the picture itself.
std::string PngHeader(int width, int height) {
  const auto number = [](int value) {
    return std::string{static_cast<char>(value >> 24), static_cast<char>(value >> 16), static_cast<char>(value >> 8),
                       static_cast<char>(value)};
  };
  return std::string("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16) + number(width) + number(height) +
         std::string("\x08\x06\0\0\0CRC!", 9);
}

class PictureTest : public testing::Test {
 protected:
  void Read(const std::string& bytes) const {
    std::ofstream(path_, std::ios::binary) << bytes;
    ReadPicture(values::FromUtf8(path_));
  }

  std::string Refusal(const std::string& bytes) const {
    return RefusalOf([&] { Read(bytes); });
  }

  tests::TemporaryFolder folder_;
  std::string path_ = (folder_ / "logotipo.png").string();
};

TEST_F(PictureTest, MustBeAPng) {
  EXPECT_EQ(Refusal("GIF89a"), "a imagem \"" + path_ + "\" não serve: não é um arquivo PNG");
}

TEST_F(PictureTest, MustBeWhole) {
  EXPECT_EQ(Refusal(PngHeader(10, 10)), "a imagem \"" + path_ + "\" não serve: o arquivo PNG está danificado");
}

TEST_F(PictureTest, HasAGreatestSize) {
  EXPECT_EQ(Refusal(PngHeader(4001, 10)),
            "a imagem \"" + path_ + "\" não serve: tem 4001 x 10 pontos, e o máximo é 4000 x 4000");
  EXPECT_EQ(FailureOf([&] { Read(std::string(kMostPictureBytes + 1, 'x')); }),
            "não foi possível ler \"" + path_ + "\": passa do máximo, que é de 4 MB");
}

}  // namespace
}  // namespace kodra::console::pages
