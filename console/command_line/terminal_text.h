// Text from elsewhere, as a database's message or a cell, made harmless for a terminal.
#pragma once

#include <string>
#include <string_view>

namespace kodra::console {

// Whether a terminal may take the character for a command: the control characters of ASCII and of Latin-1, and the two
// line ends of Unicode.
bool IsControl(wchar_t character);

// The text with each control character as U+FFFD, except tabs and line ends; CR LF becomes one line end. UTF-8 in,
// UTF-8 out.
std::string ForTerminal(std::string_view utf8);

// JSON with each control character but line ends escaped: "\u009b". It has them in its strings only, so it stays the
// same JSON.
std::string JsonForTerminal(std::string_view utf8);

}  // namespace kodra::console
