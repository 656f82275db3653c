// Raised when a file cannot be read or written; the program ends with ExitCode::kFile.
#pragma once

#include <stdexcept>
#include <string>

#include "values/utf8.h"

namespace kodra::console {

class FileError : public std::runtime_error {
 public:
  // The message is shown to the user, in Brazilian Portuguese.
  explicit FileError(const std::wstring& message) : std::runtime_error(values::ToUtf8(message)) {}
};

// The error of a write to the standard output that failed last, with the reason that errno has, if any.
FileError StandardOutputError();

}  // namespace kodra::console
