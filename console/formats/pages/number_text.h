// Numbers as people read them on paper.
#pragma once

#include <string>

namespace kodra::console::pages {

// A number as text, "-1234,5", with points between thousands. A text with an exponent is returned as it is.
std::wstring WithThousands(std::wstring text);

// Points between thousands, a decimal comma only where there are decimals: "1.234", "-12,5".
std::wstring NumberForPeople(double number);

}  // namespace kodra::console::pages
