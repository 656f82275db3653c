// The number of terminal columns that a text takes.
#pragma once

#include <cstddef>
#include <string_view>

namespace kodra::console {

// A combining accent takes none, an East Asian letter or a pictogram two, every other character one. REQUIRES: no
// control characters.
std::size_t DisplayWidth(std::wstring_view text);

}  // namespace kodra::console
