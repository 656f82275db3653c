// The characters that a page can show: those of the Windows code pages for the European alphabets. A PDF file names a
// letter by a code page and a byte.
#pragma once

#include <span>

namespace kodra::console::pages {

struct Letter {
  unsigned char codePage;  // an index of CodePages
  unsigned char byte;      // zero: there is no such letter
};

// Their names in the PDF library. The first, Western European, has all letters of Portuguese.
std::span<const char* const> CodePages();

// Where a character is; the first code page that has it.
Letter LetterOf(wchar_t character);

}  // namespace kodra::console::pages
