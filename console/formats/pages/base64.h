// Bytes as text, for a picture within a page or a file within JSON.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kodra::console::pages {

// The base64 encoding with its padding.
std::string Base64(std::string_view bytes);
// The bytes of such a text; nothing if it is no such text.
std::optional<std::string> FromBase64(std::string_view text);

}  // namespace kodra::console::pages
