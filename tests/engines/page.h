// The part of docs/dialects.md that is made from the run.
#pragma once

#include <string>

namespace kodra::engines {

// The page with its generated part made again; the rest is unchanged.
// REQUIRES: it has the two lines that enclose that part.
std::string Page(const std::string& current);

// Where the page is.
std::string PagePath();
std::string ReadPage();
void WritePage();

}  // namespace kodra::engines
