// Lengths in millimetres as people write them: "38,1" or "38.1".
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "console/formats/pages/length.h"

namespace kodra::console::labels {

// Reads a number of millimetres with at most three decimals and at most four digits before them; "-" may come first.
// Returns nothing for any other text.
std::optional<pages::Length> ParseMillimetres(std::string_view text);

// "38,1", without zeros at the end.
std::string MillimetresText(pages::Length length);
// "99,1 x 38,1".
std::string MillimetresText(pages::Size size);

}  // namespace kodra::console::labels
