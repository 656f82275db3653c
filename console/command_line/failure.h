// What the program says and how it ends when something was raised.
#pragma once

#include <string>

#include "console/command_line/exit_codes.h"

namespace kodra::console {

struct Failure {
  ExitCode code;
  std::string message;  // for the user, in Brazilian Portuguese (UTF-8)
};

// About the exception being handled; with details, the component's own message comes with it. REQUIRES: called inside a
// catch clause.
Failure CurrentFailure(bool withDetails);

}  // namespace kodra::console
