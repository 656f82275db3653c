// Asks the user for a password on the terminal, which does not show what is typed.
#pragma once

#include <string>

namespace kodra::console {

// Writes the question to the terminal of the process, whatever its standard streams are, and returns the line that the
// user types there. Raises UsageError without a terminal, and when the user types the end of the input. A signal, such
// as Ctrl-C, restores the terminal before it has its usual effect.
std::wstring AskPassword(const std::string& question);

}  // namespace kodra::console
