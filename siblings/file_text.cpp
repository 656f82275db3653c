#include "siblings/file_text.h"

namespace kodra::siblings {

std::filesystem::path ToPath(const std::wstring& path) {
#ifdef _WIN32
  return path;
#else
  return std::u32string(path.begin(), path.end());
#endif
}

}  // namespace kodra::siblings
