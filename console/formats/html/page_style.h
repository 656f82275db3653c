// What listings and statistics share on paper: the A4 sheet with its running foot, and the head of the first page.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "console/formats/row_writer.h"

namespace kodra::console::html {

// A4, portrait or landscape, with the title and the time of issue at the left of the foot and "Página 1 de 2" at its
// right.
std::string SheetStyle(bool landscape, std::wstring_view title, std::wstring_view issued);

// The markup around the content of the page's body.
inline constexpr std::string_view kPageTop = "<main>\n";
inline constexpr std::string_view kPageBottom = "</main>\n";

// The parameters of the report as one paragraph; empty without any.
std::string ParametersHtml(const Heading& heading);

// "Nenhum registro", "1 registro", "1.234 registros".
std::wstring RowCountText(std::uint64_t rows);

}  // namespace kodra::console::html
