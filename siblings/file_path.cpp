#include "siblings/file_path.h"

#include "values/utf8.h"

namespace kodra::siblings {

std::filesystem::path ToPath(const std::wstring& path) {
#ifdef _WIN32
  return path;
#else
  return values::ToUtf8(path);
#endif
}

}  // namespace kodra::siblings
