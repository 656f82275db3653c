#include <windows.h>

#include "console/command_line/file_error.h"
#include "console/formats/xlsx_path.h"

namespace kodra::console {

std::string XlsxPath(const std::wstring& path) {
  const int length = static_cast<int>(path.size());
  std::string narrow(path.size() * 2, '\0');
  BOOL lost = FALSE;
  const int size = WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, path.data(), length, narrow.data(),
                                       static_cast<int>(narrow.size()), nullptr, &lost);
  if (lost || (size == 0 && length != 0)) {
    throw FileError(L"o nome \"" + path +
                    L"\" tem caracteres que não podem ser usados no nome de uma planilha nesta máquina: use outro "
                    L"nome em --saida.");
  }
  narrow.resize(static_cast<std::size_t>(size));
  return narrow;
}

}  // namespace kodra::console
