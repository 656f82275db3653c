// The name of an output file from a pattern: "{ano}/documentos-{periodo}.csv".
#pragma once

#include <map>
#include <string>
#include <string_view>

namespace kodra::console::routines {

// The pattern with each {word} replaced by its text, in which "-" replaces every character that a file name cannot have
// on some system. Raises UsageError for a word that is not in `texts`, and for a brace without the other.
std::string Filled(std::string_view pattern, const std::map<std::string, std::string>& texts);

}  // namespace kodra::console::routines
