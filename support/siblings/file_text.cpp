#include "siblings/file_text.h"

#include <cstdint>

namespace kodra::support {
namespace {

constexpr std::uint32_t kReplacement = 0xfffd;

bool IsHighHalf(std::uint32_t unit) { return unit >= 0xd800 && unit < 0xdc00; }
bool IsLowHalf(std::uint32_t unit) { return unit >= 0xdc00 && unit < 0xe000; }

// Takes the first character off a text that is not empty.
std::uint32_t TakeCharacter(std::wstring_view& text) {
  const std::uint32_t first = static_cast<char32_t>(text.front());
  text.remove_prefix(1);
  const std::uint32_t second = text.empty() ? 0 : static_cast<char32_t>(text.front());
  if (IsHighHalf(first) && IsLowHalf(second)) {
    text.remove_prefix(1);
    return 0x10000 + ((first - 0xd800) << 10) + (second - 0xdc00);
  }
  return IsHighHalf(first) || IsLowHalf(first) || first > 0x10ffff ? kReplacement : first;
}

}  // namespace

std::filesystem::path ToPath(const std::wstring& path) {
#ifdef _WIN32
  return path;
#else
  return std::u32string(path.begin(), path.end());
#endif
}

std::string EncodeUtf8(std::wstring_view text) {
  std::string bytes;
  while (!text.empty()) {
    const std::uint32_t point = TakeCharacter(text);
    const auto rest = [&](int shift) { bytes += static_cast<char>(0x80 | ((point >> shift) & 0x3f)); };
    if (point < 0x80) {
      bytes += static_cast<char>(point);
    } else if (point < 0x800) {
      bytes += static_cast<char>(0xc0 | (point >> 6));
      rest(0);
    } else if (point < 0x10000) {
      bytes += static_cast<char>(0xe0 | (point >> 12));
      rest(6), rest(0);
    } else {
      bytes += static_cast<char>(0xf0 | (point >> 18));
      rest(12), rest(6), rest(0);
    }
  }
  return bytes;
}

}  // namespace kodra::support
