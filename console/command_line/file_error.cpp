#include "console/command_line/file_error.h"

#include <cerrno>

#include "console/command_line/system_reason.h"

namespace kodra::console {

FileError StandardOutputError() {
  const std::wstring message = L"não foi possível gravar a saída";
  if (errno == 0) return FileError(message + L".");
  return FileError(message + L": " + SystemReason({errno, std::generic_category()}) + L".");
}

}  // namespace kodra::console
