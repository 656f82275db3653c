#include "values/utf16.h"

#include "values/surrogates.h"

namespace kodra::values {
namespace {

constexpr char32_t kLastCodePoint = 0x10FFFF;
constexpr char32_t kReplacement = 0xFFFD;

void AppendAsUtf16(char32_t point, std::u16string& out) {
  if (point > kLastCodePoint) point = kReplacement;
  if (point < kFirstBeyondOneUnit) {
    out.push_back(static_cast<char16_t>(point));
    return;
  }
  out.push_back(static_cast<char16_t>(HighSurrogateOf(point)));
  out.push_back(static_cast<char16_t>(LowSurrogateOf(point)));
}

// For a wchar_t of 32 bits.
std::wstring Utf32FromUtf16(std::u16string_view text) {
  std::wstring out(text.size(), L'\0');
  std::size_t filled = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    char32_t point = text[i];
    if (IsHighSurrogate(point) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
      point = CharacterOf(point, text[i + 1]);
      ++i;
    }
    out[filled++] = static_cast<wchar_t>(point);
  }
  out.resize(filled);
  return out;
}

}  // namespace

std::u16string ToUtf16(std::wstring_view text) {
  std::u16string out;
  out.reserve(text.size());
  if constexpr (sizeof(wchar_t) == sizeof(char16_t)) {
    for (wchar_t unit : text) out.push_back(static_cast<char16_t>(unit));
  } else {
    for (wchar_t unit : text) AppendAsUtf16(static_cast<char32_t>(unit), out);
  }
  return out;
}

std::wstring FromUtf16(std::u16string_view text) {
  if constexpr (sizeof(wchar_t) == sizeof(char16_t)) {
    return {text.begin(), text.end()};
  } else {
    return Utf32FromUtf16(text);
  }
}

}  // namespace kodra::values
