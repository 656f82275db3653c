#include "console/command_line/columns.h"

#include <algorithm>

namespace kodra::console {

std::size_t Width(std::string_view text) {
  return static_cast<std::size_t>(std::ranges::count_if(text, [](char byte) { return (byte & 0xC0) != 0x80; }));
}

std::string Padded(std::string_view text, std::size_t width) {
  const std::size_t textWidth = Width(text);
  return std::string(text) + std::string(textWidth < width ? width - textWidth : 0, ' ');
}

}  // namespace kodra::console
