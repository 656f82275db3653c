#include "console/formats/pages/length.h"

#include <fmt/format.h>
#include <cstdlib>

namespace kodra::console::pages {

std::string Millimetres(Length length) {
  const std::string_view sign = length < 0 ? "-" : "";
  const int absolute = std::abs(length);
  return fmt::format("{}{}.{:03}", sign, absolute / 1000, absolute % 1000);
}

}  // namespace kodra::console::pages
