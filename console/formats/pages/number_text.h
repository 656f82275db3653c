// Numbers as people read them on paper.
#pragma once

#include <string>

namespace kodra::console::pages {

// Points between thousands, a decimal comma only where there are decimals: "1.234", "-12,5".
std::wstring NumberForPeople(double number);

}  // namespace kodra::console::pages
