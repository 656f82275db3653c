#include "console/formats/pages/letters.h"

#include <hpdf.h>
#include <array>
#include <vector>

namespace kodra::console::pages {
namespace {

constexpr std::array kCodePages = {"WinAnsiEncoding", "CP1250", "CP1251", "CP1253", "CP1254", "CP1257"};

std::vector<Letter> AllLetters() {
  std::vector<Letter> letters(0x10000);
  const HPDF_Doc document = HPDF_New(nullptr, nullptr);
  for (std::size_t codePage = 0; codePage < kCodePages.size(); ++codePage) {
    const HPDF_Encoder encoder = HPDF_GetEncoder(document, kCodePages[codePage]);
    for (unsigned byte = ' '; byte < 256; ++byte) {
      Letter& letter = letters[HPDF_Encoder_ToUnicode(encoder, static_cast<HPDF_UINT16>(byte))];
      if (letter.byte == 0) letter = {static_cast<unsigned char>(codePage), static_cast<unsigned char>(byte)};
    }
  }
  HPDF_Free(document);
  letters[0] = {};
  return letters;
}

}  // namespace

std::span<const char* const> CodePages() { return kCodePages; }

Letter LetterOf(wchar_t character) {
  static const std::vector<Letter> letters = AllLetters();
  const auto index = static_cast<char32_t>(character);
  return index < letters.size() ? letters[index] : Letter{};
}

}  // namespace kodra::console::pages
