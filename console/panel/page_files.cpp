#include "console/panel/page_files.h"

#include <algorithm>
#include <iterator>

// The bytes of each file, and the list of all files, as the build generates them (console/CMakeLists.txt).
#define KODRA_PAGE_FILE(PATH, TYPE, NAME) \
  extern "C" const char NAME[];           \
  extern "C" const unsigned NAME##Size;
#include "page_files.def"
#undef KODRA_PAGE_FILE

namespace kodra::console::panel {

const PageFile* FindPageFile(std::string_view path) {
  static const PageFile files[] = {
#define KODRA_PAGE_FILE(PATH, TYPE, NAME) {PATH, TYPE, {NAME, NAME##Size}},
#include "page_files.def"
#undef KODRA_PAGE_FILE
  };
  const auto* const found = std::ranges::find(files, path, &PageFile::path);
  return found == std::end(files) ? nullptr : found;
}

}  // namespace kodra::console::panel
