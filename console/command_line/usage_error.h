// Raised when the command line is wrong; the program ends with ExitCode::kUsage.
#pragma once

#include <stdexcept>
#include <string>

namespace kodra::console {

class UsageError : public std::runtime_error {
 public:
  // The message is shown to the user, in Brazilian Portuguese (UTF-8).
  explicit UsageError(const std::string& message) : std::runtime_error(message) {}
};

// About an argument that a command does not take.
inline UsageError ExtraArgument(const std::string& argument) {
  return UsageError("argumento a mais: \"" + argument + "\"; tire-o, ou ponha entre aspas um valor que tem espaços");
}

}  // namespace kodra::console
