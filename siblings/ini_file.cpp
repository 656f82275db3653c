#include "siblings/ini_file.h"

#include <fstream>
#include <iterator>

#include "siblings/file_path.h"
#include "values/upper.h"
#include "values/utf8.h"

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
  std::wstring text = values::FromUtf8(bytes);
  // Bytes that are not UTF-8 are read as other characters, which are not written back as the same bytes.
  return values::ToUtf8(text) == bytes ? text : FromWindows1252(bytes);
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
