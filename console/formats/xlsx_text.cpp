#include "console/formats/xlsx_text.h"

#include <fmt/format.h>
#include <algorithm>

#include "values/utf8.h"

namespace kodra::console {
namespace {

// Whether XML can contain the character. ToUtf8 replaces unpaired surrogates.
bool IsXmlCharacter(wchar_t c) { return (c >= 0x20 || c == L'\t' || c == L'\n') && c != 0xFFFE && c != 0xFFFF; }

// Whether the text has "_xHHHH_" at that place, which a spreadsheet reads as the character of that number. Its last "_"
// may be the one with which the next character is written.
bool IsEscape(std::wstring_view text, std::size_t at) {
  if (text[at] != L'_') return false;
  const auto isHexadecimal = [](wchar_t c) {
    return (c >= L'0' && c <= L'9') || (c >= L'A' && c <= L'F') || (c >= L'a' && c <= L'f');
  };
  const std::wstring_view piece = text.substr(at, 7);
  return piece.size() == 7 && piece.starts_with(L"_x") && std::ranges::all_of(piece.substr(2, 4), isHexadecimal) &&
         (piece.back() == L'_' || !IsXmlCharacter(piece.back()));
}

}  // namespace

std::string CellText(std::wstring_view text) {
  std::string cell;
  std::size_t copied = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (IsXmlCharacter(text[i]) && !IsEscape(text, i)) continue;
    values::AppendUtf8(text.substr(copied, i - copied), cell);
    cell += fmt::format("_x{:04X}_", static_cast<unsigned>(text[i]));
    copied = i + 1;
  }
  values::AppendUtf8(text.substr(copied), cell);
  return cell;
}

std::string PropertyText(std::wstring text) {
  std::ranges::replace_if(
      text, [](wchar_t c) { return !IsXmlCharacter(c); }, L' ');
  return values::ToUtf8(text);
}

std::string PageText(std::wstring_view text) {
  std::wstring doubled;
  for (const wchar_t c : text) doubled.append(c == L'&' ? 2 : 1, c);
  return PropertyText(doubled);
}

}  // namespace kodra::console
