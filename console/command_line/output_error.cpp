#include "console/command_line/output_error.h"

#include <cerrno>

#include "console/command_line/system_reason.h"

namespace kodra::console {

OutputError StandardOutputError() {
  const std::wstring message = L"não foi possível gravar a saída";
  if (errno == 0) return OutputError(message + L".");
  return OutputError(message + L": " + SystemReason({errno, std::generic_category()}) + L".");
}

}  // namespace kodra::console
