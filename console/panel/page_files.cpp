#include "console/panel/page_files.h"

#include <algorithm>

// The bytes of each file, and the list of all files, as the build generates them (console/CMakeLists.txt).
// A name that is declared cannot be in parentheses.
// NOLINTBEGIN(bugprone-macro-parentheses)
#define KODRA_PAGE_FILE(PATH, TYPE, NAME) \
  extern "C" const char NAME[];           \
  extern "C" const unsigned NAME##Size;
// NOLINTEND(bugprone-macro-parentheses)
#include "page_files.def"
#undef KODRA_PAGE_FILE

namespace kodra::console::panel {

std::span<const PageFile> PageFiles() {
  static const PageFile files[] = {
#define KODRA_PAGE_FILE(PATH, TYPE, NAME) {PATH, TYPE, {NAME, NAME##Size}},
#include "page_files.def"
#undef KODRA_PAGE_FILE
  };
  return files;
}

const PageFile* FindPageFile(std::string_view path) {
  const auto files = PageFiles();
  const auto found = std::ranges::find(files, path, &PageFile::path);
  return found == files.end() ? nullptr : &*found;
}

}  // namespace kodra::console::panel
