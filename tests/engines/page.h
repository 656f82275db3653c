// The part of docs/dialects.md that is generated from the run.
#pragma once

#include <string>

namespace kodra::engines {

// Returns the page with its part between the two enclosing lines generated again and the rest unchanged. A page without
// these lines raises std::runtime_error.
std::string Page(const std::string& current);

// Where the page is.
std::string PagePath();
std::string ReadPage();
void WritePage();

}  // namespace kodra::engines
