// The code of a storage module: 5 characters, or 7 for a subordinate module, its parent's 5 and its 2-digit number.
#pragma once

#include <string>
#include <string_view>

namespace kodra::reports {

// How many characters the code of a main module has.
inline constexpr std::size_t kModuleCodeSize = 5;

// The module that a code names, the parent for a subordinate's: its first 5 characters.
std::wstring MainModule(std::wstring_view code);

// The number of a subordinate within its parent: the value of the last 2 characters as a decimal number without
// padding; 0 when they are not a number.
std::wstring SubordinateNumber(std::wstring_view code);

// Whether a code has the length of a main module's.
bool NamesMainModule(std::wstring_view code);

}  // namespace kodra::reports
