// How many columns of a terminal a text takes.
#pragma once

#include <cstddef>
#include <string_view>

namespace kodra::console {

// An accent that follows its letter as a character of its own takes none, an East Asian letter or a pictogram two, any
// other character one. REQUIRES: no control characters.
std::size_t DisplayWidth(std::wstring_view text);

}  // namespace kodra::console
