// The text of ODBC's wide functions, which is UTF-16, while wchar_t has 32 bits on Linux and 16 on Windows.
//
// Nothing is rejected: an unpaired surrogate is converted to the same single unit, in both directions, and an embedded
// zero is a character like any other.
#pragma once

#include <string>
#include <string_view>

namespace kodra::values {

// A code point beyond 10FFFF, which UTF-16 cannot write, becomes U+FFFD.
std::u16string ToUtf16(std::wstring_view text);
std::wstring FromUtf16(std::u16string_view text);

}  // namespace kodra::values
