// What a call could not write.
#pragma once

#include <string>

#include "client/output_error.h"

namespace kodra::client {

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

}  // namespace kodra::client
