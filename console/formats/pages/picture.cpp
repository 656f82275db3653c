#include "console/formats/pages/picture.h"

#include <fmt/format.h>
#include <memory>

#include "console/command_line/input_file.h"
#include "console/command_line/usage_error.h"
#include "values/utf8.h"

#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_STATIC
#define STBI_ONLY_PNG
#define STBI_NO_STDIO
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wunused-function"
#pragma GCC diagnostic ignored "-Wunused-parameter"
#include <stb/stb_image.h>
#pragma GCC diagnostic pop

namespace kodra::console::pages {
namespace {

constexpr int kWhite = 255;

UsageError Unsuitable(const std::string& name, const std::string& reason) {
  return UsageError(fmt::format("a imagem \"{}\" não serve: {}", name, reason));
}

}  // namespace

Picture PictureOf(std::string png, const std::string& name) {
  Picture picture = {0, 0, {}, std::move(png)};
  const auto* const bytes = reinterpret_cast<const stbi_uc*>(picture.png.data());
  const int size = static_cast<int>(picture.png.size());
  int channels = 0;
  if (stbi_info_from_memory(bytes, size, &picture.width, &picture.height, &channels) == 0)
    throw Unsuitable(name, "não é um arquivo PNG");
  if (picture.width > kMostDots || picture.height > kMostDots) {
    throw Unsuitable(name, fmt::format("tem {} x {} pontos, e o máximo é {} x {}", picture.width, picture.height,
                                       kMostDots, kMostDots));
  }
  constexpr int kRgba = 4;
  const std::unique_ptr<stbi_uc, decltype(&stbi_image_free)> dots(
      stbi_load_from_memory(bytes, size, &picture.width, &picture.height, &channels, kRgba), stbi_image_free);
  if (!dots) throw Unsuitable(name, "o arquivo PNG está danificado");
  const auto count = static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height);
  picture.rgb.reserve(count * 3);
  for (std::size_t dot = 0; dot < count; ++dot) {
    const stbi_uc* const rgba = dots.get() + dot * kRgba;
    const int opacity = rgba[3];
    for (int part = 0; part < 3; ++part) {
      const int shown = (rgba[part] * opacity + kWhite * (kWhite - opacity) + kWhite / 2) / kWhite;
      picture.rgb.push_back(static_cast<unsigned char>(shown));
    }
  }
  return picture;
}

Picture ReadPicture(const std::wstring& path) {
  return PictureOf(ReadInputFile(path, kMostPictureBytes), values::ToUtf8(path));
}

}  // namespace kodra::console::pages
