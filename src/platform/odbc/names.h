// Names compared as ADO compares them: without regard to the letter case of the Latin alphabet.
#pragma once

#include <string>
#include <string_view>

namespace kodra::platform::odbc {

// The name in upper case: A to Z and the accented letters of Latin-1, whatever the process's locale.
std::wstring FoldName(std::wstring_view name);
bool SameName(std::wstring_view a, std::wstring_view b);

}  // namespace kodra::platform::odbc
