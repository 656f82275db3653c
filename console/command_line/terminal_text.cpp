#include "console/command_line/terminal_text.h"

#include <fmt/format.h>

#include "values/utf8.h"

namespace kodra::console {

bool IsControl(wchar_t c) { return c < 0x20 || (c >= 0x7F && c < 0xA0) || c == 0x2028 || c == 0x2029; }

std::string ForTerminal(std::string_view utf8) {
  const std::wstring text = values::FromUtf8(utf8);
  std::wstring shown;
  shown.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool startsLineEnd = text[i] == L'\r' && i + 1 < text.size() && text[i + 1] == L'\n';
    if (startsLineEnd) continue;
    const bool harmless = text[i] == L'\n' || text[i] == L'\t' || !IsControl(text[i]);
    shown += harmless ? text[i] : L'\xFFFD';
  }
  return values::ToUtf8(shown);
}

std::string JsonForTerminal(std::string_view utf8) {
  std::wstring shown;
  for (const wchar_t c : values::FromUtf8(utf8)) {
    if (c == L'\n' || !IsControl(c))
      shown += c;
    else
      shown += values::FromUtf8(fmt::format("\\u{:04x}", static_cast<unsigned>(c)));
  }
  return values::ToUtf8(shown);
}

}  // namespace kodra::console
