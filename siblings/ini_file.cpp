#include "siblings/ini_file.h"

#include <cstdint>
#include <fstream>
#include <iterator>

#include "siblings/file_path.h"
#include "values/upper.h"

namespace kodra::siblings {
namespace {

// The characters of Windows-1252 where ISO 8859-1 has control characters (80 to 9F); the five unused codes are
// unchanged.
constexpr wchar_t kWindows1252[] = {0x20ac, 0x81,   0x201a, 0x192,  0x201e, 0x2026, 0x2020, 0x2021,
                                    0x2c6,  0x2030, 0x160,  0x2039, 0x152,  0x8d,   0x17d,  0x8f,
                                    0x90,   0x2018, 0x2019, 0x201c, 0x201d, 0x2022, 0x2013, 0x2014,
                                    0x2dc,  0x2122, 0x161,  0x203a, 0x153,  0x9d,   0x17e,  0x178};

std::wstring FromWindows1252(std::string_view bytes) {
  std::wstring text;
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    text += byte >= 0x80 && byte <= 0x9f ? kWindows1252[byte - 0x80] : static_cast<wchar_t>(byte);
  }
  return text;
}

void Append(std::uint32_t point, std::wstring& text) {
  if (sizeof(wchar_t) == 2 && point >= 0x10000) {
    text += static_cast<wchar_t>(0xd800 + ((point - 0x10000) >> 10));
    text += static_cast<wchar_t>(0xdc00 + ((point - 0x10000) & 0x3ff));
  } else {
    text += static_cast<wchar_t>(point);
  }
}

// The number of bytes of a character, by its first byte; 0 for a byte that begins none.
std::size_t Length(unsigned char first) {
  if (first < 0x80) return 1;
  if (first >= 0xc2 && first <= 0xdf) return 2;
  if (first >= 0xe0 && first <= 0xef) return 3;
  if (first >= 0xf0 && first <= 0xf4) return 4;
  return 0;
}

bool IsCharacter(std::uint32_t point, std::size_t length) {
  constexpr std::uint32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
  const bool surrogate = point >= 0xd800 && point <= 0xdfff;
  return point >= kSmallest[length] && point <= 0x10ffff && !surrogate;
}

std::optional<std::wstring> FromUtf8(std::string_view bytes) {
  std::wstring text;
  while (!bytes.empty()) {
    const auto first = static_cast<unsigned char>(bytes.front());
    const std::size_t length = Length(first);
    if (length == 0 || length > bytes.size()) return {};
    std::uint32_t point = length == 1 ? first : first & (0xffU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
      const auto next = static_cast<unsigned char>(bytes[i]);
      if ((next & 0xc0) != 0x80) return {};
      point = (point << 6) | (next & 0x3fU);
    }
    if (!IsCharacter(point, length)) return {};
    Append(point, text);
    bytes.remove_prefix(length);
  }
  return text;
}

std::wstring_view WithoutBlanks(std::wstring_view text) {
  constexpr std::wstring_view kBlanks = L" \t\r";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::wstring_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::wstring_view WithoutQuotes(std::wstring_view text) {
  const bool quoted =
      text.size() >= 2 && (text.front() == L'"' || text.front() == L'\'') && text.back() == text.front();
  return quoted ? text.substr(1, text.size() - 2) : text;
}

}  // namespace

std::wstring DecodeText(std::string_view bytes) {
  constexpr std::string_view kMark = "\xef\xbb\xbf";
  if (bytes.starts_with(kMark)) bytes.remove_prefix(kMark.size());
  if (auto text = FromUtf8(bytes)) return *std::move(text);
  return FromWindows1252(bytes);
}

IniFile::IniFile(std::wstring_view text) {
  std::wstring section;
  while (!text.empty()) {
    const std::size_t end = text.find(L'\n');
    const std::wstring_view line = WithoutBlanks(text.substr(0, end));
    text = end == std::wstring_view::npos ? std::wstring_view() : text.substr(end + 1);
    if (line.empty() || line.front() == L';' || line.front() == L'#') continue;
    if (line.front() == L'[' && line.back() == L']') {
      section = WithoutBlanks(line.substr(1, line.size() - 2));
      continue;
    }
    const std::size_t equals = line.find(L'=');
    if (equals == std::wstring_view::npos) continue;
    entries_.push_back({section, std::wstring(WithoutBlanks(line.substr(0, equals))),
                        std::wstring(WithoutQuotes(WithoutBlanks(line.substr(equals + 1))))});
  }
}

std::optional<IniFile> IniFile::Read(const std::wstring& path) {
  std::ifstream file(ToPath(path), std::ios::binary);
  if (!file) return {};
  const std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  if (file.bad()) return {};
  return IniFile(DecodeText(bytes));
}

std::optional<std::wstring> IniFile::Find(std::wstring_view section, std::wstring_view key) const {
  for (const Entry& entry : entries_) {
    if (values::EqualIgnoringCase(entry.section, section) && values::EqualIgnoringCase(entry.key, key))
      return entry.value;
  }
  return {};
}

}  // namespace kodra::siblings
