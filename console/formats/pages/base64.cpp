#include "console/formats/pages/base64.h"

namespace kodra::console::pages {
namespace {

constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

}  // namespace

std::string Base64(std::string_view bytes) {
  const auto byte = [&](std::size_t i) { return i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0U; };
  std::string text;
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    const unsigned bits = byte(i) << 16 | byte(i + 1) << 8 | byte(i + 2);
    text += kDigits[bits >> 18];
    text += kDigits[bits >> 12 & 63];
    text += i + 1 < bytes.size() ? kDigits[bits >> 6 & 63] : '=';
    text += i + 2 < bytes.size() ? kDigits[bits & 63] : '=';
  }
  return text;
}

std::optional<std::string> FromBase64(std::string_view text) {
  if (text.size() % 4 != 0) return std::nullopt;
  for (int i = 0; i < 2 && text.ends_with('='); ++i) text.remove_suffix(1);
  std::string bytes;
  unsigned bits = 0;
  int count = 0;
  for (const char digit : text) {
    const std::size_t value = kDigits.find(digit);
    if (value == kDigits.npos) return std::nullopt;
    bits = bits << 6 | static_cast<unsigned>(value);
    count += 6;
    if (count < 8) continue;
    count -= 8;
    bytes += static_cast<char>(bits >> count & 0xFF);
  }
  return bytes;
}

}  // namespace kodra::console::pages
