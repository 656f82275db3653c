#include "bench/wine/benchmarks.h"

#include <stdexcept>

namespace kodra::bench {

std::wstring ConnectionTo(const std::filesystem::path& archive) {
  // The driver runs outside Windows, so it needs the path in the machine's own form.
  std::wstring path = archive.wstring();
  if (path.starts_with(L"Z:")) path.erase(0, 2);
  for (wchar_t& c : path)
    if (c == L'\\') c = L'/';
  return L"Driver={SQLite3};Database=" + path;
}

void SameRows(const Read& component, const Read& bare, long rows, const char* name) {
  if (component == bare && component.rows == rows) return;
  throw std::runtime_error(std::string(name) + ": os dois lados não leram as mesmas linhas (" +
                           std::to_string(component.rows) + ", " + std::to_string(bare.rows) + ", esperadas " +
                           std::to_string(rows) + ")");
}

}  // namespace kodra::bench
