// The part of docs/dialects.md that is made from the run.
#pragma once

#include <string>

namespace kodra::engines {

// The page with its generated part made anew; the rest stays as it is given.
// REQUIRES: it has the two lines between which that part stands.
std::string Page(const std::string& current);

// Where the page is.
std::string PagePath();
std::string ReadPage();
void WritePage();

}  // namespace kodra::engines
