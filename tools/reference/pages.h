// The reference pages: one for each public class, one for the errors and one that lists them, in Markdown.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "tools/reference/idl.h"

namespace kodra::console::reference {

// The pages' texts by the names of their files.
std::map<std::string, std::string> Pages(const std::vector<Class>& classes);

// The guide with its table of errors written anew, between two comments. Raises std::runtime_error for a text without
// them.
std::string WithErrorTable(const std::string& guide);

}  // namespace kodra::console::reference
