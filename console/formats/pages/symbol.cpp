#include "console/formats/pages/symbol.h"

#include <fmt/format.h>
#include <zint.h>
#include <algorithm>
#include <memory>
#include <string>

#include "console/command_line/usage_error.h"
#include "values/utf8.h"

namespace kodra::console::pages {
namespace {

using values::ToUtf8;

constexpr std::size_t kLongestCode = 48;

struct Delete {
  void operator()(zint_symbol* symbol) const { ZBarcode_Delete(symbol); }
};

bool IsDark(const zint_symbol& symbol, int row, int column) {
  return (symbol.encoded_data[row][column / 8] >> (column % 8) & 1) != 0;
}

Symbol Encoded(std::wstring_view text, int symbology, int quietZone, const char* name) {
  const std::unique_ptr<zint_symbol, Delete> symbol(ZBarcode_Create());
  if (!symbol) throw std::bad_alloc();
  symbol->symbology = symbology;
  symbol->input_mode = UNICODE_MODE;
  constexpr int kLevelM = 2;
  if (symbology == BARCODE_QRCODE) symbol->option_1 = kLevelM;
  const std::string utf8 = ToUtf8(text);
  const int outcome =
      ZBarcode_Encode(symbol.get(), reinterpret_cast<const unsigned char*>(utf8.data()), static_cast<int>(utf8.size()));
  if (utf8.empty() || outcome >= ZINT_ERROR) throw UsageError(fmt::format("{} não comporta \"{}\"", name, utf8));
  Symbol made = {symbol->width, symbol->rows, quietZone, {}};
  for (int row = 0; row < made.rows; ++row) {
    for (int column = 0; column < made.columns; ++column) {
      if (!IsDark(*symbol, row, column)) continue;
      const int first = column;
      while (column < made.columns && IsDark(*symbol, row, column)) ++column;
      made.dark.push_back({first, row, column - first, 1});
    }
  }
  return made;
}

}  // namespace

Symbol Code128(std::wstring_view text) {
  const bool isPlain = std::ranges::all_of(text, [](wchar_t c) { return c >= L' ' && c <= L'~'; });
  if (text.empty() || text.size() > kLongestCode || !isPlain) {
    throw UsageError(fmt::format(
        "um código de barras Code 128 não comporta \"{}\": são de 1 a {} letras sem acento, algarismos e sinais; "
        "escolha o código qr, ou nenhum",
        ToUtf8(text), kLongestCode));
  }
  return Encoded(text, BARCODE_CODE128, 10, "um código de barras Code 128");
}

Symbol QrCode(std::wstring_view text) { return Encoded(text, BARCODE_QRCODE, 4, "um código QR"); }

std::vector<Rectangle> Drawn(const Symbol& symbol, Point corner, Length module, Length barHeight) {
  const Length height = symbol.rows == 1 ? barHeight : module;
  std::vector<Rectangle> drawn;
  for (const Rectangle& part : symbol.dark) {
    drawn.push_back({corner.x + part.left * module, corner.y + part.top * height, part.width * module, height});
  }
  return drawn;
}

}  // namespace kodra::console::pages
