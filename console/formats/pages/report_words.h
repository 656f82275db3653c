// What the pages of a report say about it in words.
#pragma once

#include <cstdint>
#include <string>

#include "console/formats/row_writer.h"

namespace kodra::console::pages {

// The parameters of the report on one line; empty without any.
std::wstring FilterText(const Heading& heading);

// "Nenhum registro", "1 registro", "1.234 registros".
std::wstring RowCountText(std::uint64_t rows);

}  // namespace kodra::console::pages
