#include "console/command_line/environment.h"

#include <cstdlib>

#include "values/utf8.h"

namespace kodra::console {

#ifdef _WIN32

std::optional<std::string> EnvironmentVariable(const std::string& name) {
  const wchar_t* const value = _wgetenv(values::FromUtf8(name).c_str());
  return value == nullptr ? std::nullopt : std::optional(values::ToUtf8(value));
}

#else

std::optional<std::string> EnvironmentVariable(const std::string& name) {
  const char* const value = std::getenv(name.c_str());
  return value == nullptr ? std::nullopt : std::optional<std::string>(value);
}

#endif

}  // namespace kodra::console
