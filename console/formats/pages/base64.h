// Bytes as text, for a picture within a page.
#pragma once

#include <string>
#include <string_view>

namespace kodra::console::pages {

// The base64 encoding with its padding.
std::string Base64(std::string_view bytes);

}  // namespace kodra::console::pages
