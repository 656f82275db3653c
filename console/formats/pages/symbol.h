// Barcodes: Code 128 and QR, as the squares or bars of which they consist.
#pragma once

#include <string_view>
#include <vector>

#include "console/formats/pages/length.h"

namespace kodra::console::pages {

// Lengths are in modules, the width of the narrowest bar.
struct Symbol {
  int columns, rows;  // one row for bars
  int quietZone;      // the white space that a scanner needs on each side
  // The dark parts, row by row: each is as wide as it can be, and one row high.
  std::vector<Rectangle> dark;
};

// The bars of a code. Raises UsageError, which names the text, if it is empty, longer than 48 characters or has a
// character outside ASCII 32 to 126: scanners read others differently.
Symbol Code128(std::wstring_view text);

// A QR code at error correction level M. Raises UsageError, which names the text, if it is empty or too long.
Symbol QrCode(std::wstring_view text);

// The dark parts of a symbol that fills a box of that module width, whose left upper corner is at `corner`; bars have
// the given height, the squares of a QR code their own.
std::vector<Rectangle> Drawn(const Symbol& symbol, Point corner, Length module, Length barHeight);

}  // namespace kodra::console::pages
