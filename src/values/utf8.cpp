#include "values/utf8.h"

#include <algorithm>
#include <cstdint>

#include "values/surrogates.h"

namespace kodra::values {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsScalar(char32_t point) { return point < 0xD800 || (point >= 0xE000 && point <= 0x10FFFF); }

void Append(char32_t point, std::string& bytes) {
  const auto next = [&](int shift) { bytes.push_back(static_cast<char>(0x80U | ((point >> shift) & 0x3FU))); };
  if (point < 0x80) {
    bytes.push_back(static_cast<char>(point));
  } else if (point < 0x800) {
    bytes.push_back(static_cast<char>(0xC0U | (point >> 6)));
    next(0);
  } else if (point < 0x10000) {
    bytes.push_back(static_cast<char>(0xE0U | (point >> 12)));
    next(6);
    next(0);
  } else {
    bytes.push_back(static_cast<char>(0xF0U | (point >> 18)));
    next(12);
    next(6);
    next(0);
  }
}

// The room that a text needs. A pair of 16-bit surrogates needs two bytes less.
std::size_t MostBytes(std::wstring_view text) {
  std::size_t bytes = 0;
  for (const wchar_t c : text) {
    const auto point = static_cast<char32_t>(c);
    bytes += point < 0x80 ? 1 : point < 0x800 ? 2 : point < kFirstBeyondOneUnit ? 3 : 4;
  }
  return bytes;
}

void Append(char32_t point, std::wstring& text) {
  if (sizeof(wchar_t) == sizeof(char32_t) || point < kFirstBeyondOneUnit) {
    text.push_back(static_cast<wchar_t>(point));
    return;
  }
  text.push_back(static_cast<wchar_t>(HighSurrogateOf(point)));
  text.push_back(static_cast<wchar_t>(LowSurrogateOf(point)));
}

struct Decoded {
  char32_t point;
  std::size_t bytes;
};

// The character that the bytes begin with. REQUIRES: there is a byte.
Decoded First(std::string_view bytes) {
  const auto at = [&](std::size_t i) { return static_cast<std::uint8_t>(bytes[i]); };
  const std::uint8_t lead = at(0);
  if (lead < 0x80) return {lead, 1};
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  constexpr char32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
  if (lead < 0xC0 || lead > 0xF7 || bytes.size() < length) return {kReplacement, 1};
  char32_t point = lead & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    if ((at(i) & 0xC0U) != 0x80) return {kReplacement, 1};
    point = (point << 6) | (at(i) & 0x3FU);
  }
  return IsScalar(point) && point >= kLeast[length] ? Decoded{point, length} : Decoded{kReplacement, 1};
}

}  // namespace

std::string ToUtf8(std::wstring_view text) {
  std::string bytes;
  AppendUtf8(text, bytes);
  return bytes;
}

void AppendUtf8(std::wstring_view text, std::string& bytes) {
  const std::size_t most = MostBytes(text);
  const std::size_t start = bytes.size();
  if (most == text.size()) {
    // Nearly every text is ASCII.
    bytes.resize(start + most);
    std::ranges::transform(text, bytes.begin() + static_cast<std::ptrdiff_t>(start),
                           [](wchar_t c) { return static_cast<char>(c); });
    return;
  }
  bytes.reserve(start + most);
  for (std::size_t i = 0; i < text.size(); ++i) {
    auto point = static_cast<char32_t>(text[i]);
    if (IsHighSurrogate(point) && i + 1 < text.size() && IsLowSurrogate(static_cast<char32_t>(text[i + 1])))
      point = CharacterOf(point, static_cast<char32_t>(text[++i]));
    Append(IsScalar(point) ? point : kReplacement, bytes);
  }
}

std::wstring FromUtf8(std::string_view bytes) {
  const auto isAscii = [](char c) { return static_cast<std::uint8_t>(c) < 0x80; };
  // Nearly every text is ASCII.
  if (std::ranges::all_of(bytes, isAscii)) return {bytes.begin(), bytes.end()};
  std::wstring text;
  text.reserve(bytes.size());
  while (!bytes.empty()) {
    const auto [point, length] = First(bytes);
    Append(point, text);
    bytes.remove_prefix(length);
  }
  return text;
}

}  // namespace kodra::values
