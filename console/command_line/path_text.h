// Paths as UTF-8, on every system.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace kodra::console {

std::filesystem::path PathOf(std::string_view utf8);
std::string TextOf(const std::filesystem::path& path);

}  // namespace kodra::console
