// Text on its way to a file.
#pragma once

#include <string>
#include <string_view>

namespace kodra::support::demo {

// Appends a text as UTF-8.
void AppendUtf8(std::wstring_view text, std::string& out);
std::string ToUtf8(std::wstring_view text);

}  // namespace kodra::support::demo
