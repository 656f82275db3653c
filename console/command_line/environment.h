// The variables of the environment, in UTF-8 on every system.
#pragma once

#include <optional>
#include <string>

namespace kodra::console {

// The value of a variable, or nothing if it is not set.
std::optional<std::string> EnvironmentVariable(const std::string& name);

}  // namespace kodra::console
