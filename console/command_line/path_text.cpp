#include "console/command_line/path_text.h"

namespace kodra::console {

std::filesystem::path PathOf(std::string_view utf8) { return {std::u8string(utf8.begin(), utf8.end())}; }

std::string TextOf(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

}  // namespace kodra::console
