// What a command raises when the user asked for something that does not exist; the program ends with ExitCode::kUsage.
#pragma once

#include <stdexcept>
#include <string>

namespace kodra::console {

class UsageError : public std::runtime_error {
 public:
  // The message is shown to the user: Brazilian Portuguese, in UTF-8.
  explicit UsageError(const std::string& message) : std::runtime_error(message) {}
};

}  // namespace kodra::console
