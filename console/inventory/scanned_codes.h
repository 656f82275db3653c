// The codes that a scanner read into a list, one on each line.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kodra::console::inventory {

// The longest list that is accepted, in bytes.
inline constexpr std::size_t kLongestList = 8'000'000;

// The codes of a list in UTF-8, each once, in the order in which they were read. Lines end with CR, LF or both; blanks
// and tabs around a code, empty lines and a byte order mark are left out.
//
// `name` is the list in messages: "\"lidos.txt\"" or "a entrada padrão". Raises UsageError for a list without a code,
// and for bytes that are no such list: a control character, or a line of more than 100 characters.
std::vector<std::wstring> ScannedCodes(std::string_view bytes, const std::string& name);

}  // namespace kodra::console::inventory
