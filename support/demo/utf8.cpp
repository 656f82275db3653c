#include "demo/utf8.h"

#include <cstdint>

namespace kodra::support::demo {

void AppendUtf8(std::wstring_view text, std::string& out) {
  const auto continuation = [&out](std::uint32_t bits) { out += static_cast<char>(0x80 | (bits & 0x3f)); };
  for (const wchar_t c : text) {
    const auto point = static_cast<char32_t>(c);
    if (point < 0x80) {
      out += static_cast<char>(point);
    } else if (point < 0x800) {
      out += static_cast<char>(0xc0 | (point >> 6));
      continuation(point);
    } else if (point < 0x10000) {
      out += static_cast<char>(0xe0 | (point >> 12));
      continuation(point >> 6);
      continuation(point);
    } else {
      out += static_cast<char>(0xf0 | (point >> 18));
      continuation(point >> 12);
      continuation(point >> 6);
      continuation(point);
    }
  }
}

std::string ToUtf8(std::wstring_view text) {
  std::string bytes;
  AppendUtf8(text, bytes);
  return bytes;
}

}  // namespace kodra::support::demo
