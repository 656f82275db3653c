// The failure of a call that writes a file, and the refusal of one that checks what the user typed.
#pragma once

#include <string>

#include "console/command_line/file_error.h"
#include "console/command_line/usage_error.h"

namespace kodra::console {

// The message of the FileError that a call raised; empty when it raised nothing.
template <class Call>
std::string FailureOf(Call&& call) {
  try {
    call();
  } catch (const FileError& error) {
    return error.what();
  }
  return {};
}

// The message of the UsageError that a call raises; empty when it raises nothing.
template <class Call>
std::string RefusalOf(Call&& call) {
  try {
    call();
  } catch (const UsageError& error) {
    return error.what();
  }
  return {};
}

}  // namespace kodra::console
