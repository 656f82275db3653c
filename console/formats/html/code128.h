// Code 128 barcodes: the symbol that a scanner reads from a label.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kodra::console::html {

// The symbol values of a text, from the start symbol to the check symbol, without the stop: code set C for four digits
// or more at the beginning or the end of the text, set B for the rest. Empty for a text that is empty or has a
// character outside 32 to 126: such a text has no barcode here.
std::vector<int> Code128Symbols(std::string_view text);

// The widths of the bars and spaces, in modules, a bar first, with the stop symbol; empty where Code128Symbols is.
std::vector<int> Code128Widths(std::string_view text);

// How wide the barcode is, in modules, with the quiet zone of ten modules on either side; 0 where there is none.
int Code128Modules(std::string_view text);

// The barcode as an SVG drawing that fills the width and height of its box, its quiet zone included; empty where
// Code128Symbols is.
std::string Code128Svg(std::string_view text);

}  // namespace kodra::console::html
