// Pieces of an HTML page: escaped texts, and the frame of the page.
#pragma once

#include <string>
#include <string_view>

#include "console/formats/pages/canvas.h"

namespace kodra::console::html {

// A text escaped for use between tags or in a quoted attribute, in UTF-8.
std::string Escaped(std::wstring_view text);
// The same at the end of `html`.
void AppendEscaped(std::wstring_view text, std::string& html);

// A text as a quoted string of a style sheet, in UTF-8.
std::string StyleText(std::wstring_view text);

// A colour in a style sheet or an attribute: "#1b1f24".
std::string ColourText(pages::Colour colour);

// The page up to its body: self-contained, in Portuguese, with a title and its style.
std::string PageOpening(std::wstring_view title, std::string_view style);
std::string PageClosing();

}  // namespace kodra::console::html
