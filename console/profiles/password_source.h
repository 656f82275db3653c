// Where the password of a connection comes from, so that it is neither on a command line nor in a file.
#pragma once

#include <optional>
#include <string>

namespace kodra::console {

struct PasswordSource {
  // At most one of them.
  std::string variable = {};  // of the environment
  std::string command = {};   // whose first line of output is the password
  bool asks = false;          // the user, on the terminal

  bool IsNone() const { return variable.empty() && command.empty() && !asks; }
};

// The password. `whose` ends the question: "Senha do perfil acervo: ". Raises UsageError for a variable that is not
// set, a command that fails or writes nothing, and a question without a terminal; no message contains what the command
// is or writes. REQUIRES: there is a source.
std::wstring PasswordFrom(const PasswordSource& source, const std::string& whose);

}  // namespace kodra::console
