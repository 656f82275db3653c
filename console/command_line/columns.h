// The width of UTF-8 texts in columns of the console.
#pragma once

#include <string>
#include <string_view>

namespace kodra::console {

// The number of characters in a UTF-8 text.
std::size_t Width(std::string_view text);
// The text followed by blanks up to `width` characters; a wider text is returned as it is.
std::string Padded(std::string_view text, std::size_t width);

}  // namespace kodra::console
