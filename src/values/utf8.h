// Text that a driver exchanges as UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace kodra::values {

// An unpaired surrogate, which UTF-8 cannot write, becomes U+FFFD.
std::string ToUtf8(std::wstring_view text);
// The same at the end of `bytes`, for a caller that builds a longer text.
void AppendUtf8(std::wstring_view text, std::string& bytes);
// Each byte that is not part of a character becomes U+FFFD.
std::wstring FromUtf8(std::string_view bytes);

}  // namespace kodra::values
