// Texts that people write for the program, by lines.
#pragma once

#include <string_view>
#include <vector>

namespace kodra::console {

// The text without the blanks and tabs around it.
std::string_view Trimmed(std::string_view text);

// The text without the byte order mark that it may begin with.
std::string_view WithoutByteOrderMark(std::string_view text);

// The lines of a text, empty ones included, each trimmed and as a part of `text`; a byte order mark is left out. Lines
// end with CR, LF or both.
std::vector<std::string_view> TrimmedLines(std::string_view text);

}  // namespace kodra::console
