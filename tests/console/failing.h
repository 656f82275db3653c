// The failure of a call that writes a file.
#pragma once

#include <string>

#include "console/command_line/output_error.h"

namespace kodra::console {

// The message of the OutputError that a call raised; empty when it raised nothing.
template <class Call>
std::string FailureOf(Call&& call) {
  try {
    call();
  } catch (const OutputError& error) {
    return error.what();
  }
  return {};
}

}  // namespace kodra::console
