// What a command raises when a file cannot be read or written; the program ends with ExitCode::kOutput.
#pragma once

#include <stdexcept>
#include <string>

#include "platform/odbc/utf8.h"

namespace kodra::client {

class OutputError : public std::runtime_error {
 public:
  // The message is shown to the user: Brazilian Portuguese.
  explicit OutputError(const std::wstring& message) : std::runtime_error(platform::odbc::ToUtf8(message)) {}
};

}  // namespace kodra::client
