// The files of the page, which are part of the program: console/panel/page.
#pragma once

#include <span>
#include <string_view>

namespace kodra::console::panel {

struct PageFile {
  std::string_view path;  // "/app.js"; the page itself is "/"
  std::string_view type;
  std::string_view bytes;
};

// All of them.
std::span<const PageFile> PageFiles();
// Null if there is no such file.
const PageFile* FindPageFile(std::string_view path);

}  // namespace kodra::console::panel
