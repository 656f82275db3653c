#include "tests/fuzz/target.h"

#include <stdexcept>

#include "siblings/ini_file.h"
#include "values/utf8.h"

namespace kodra::fuzz {

std::wstring TextOf(const std::uint8_t* data, std::size_t size) {
  return siblings::DecodeText({reinterpret_cast<const char*>(data), size});
}

std::vector<std::wstring> Fields(std::wstring_view text, std::size_t count) {
  std::vector<std::wstring> fields;
  while (fields.size() + 1 < count) {
    const std::size_t end = text.find(L'\n');
    fields.emplace_back(text.substr(0, end));
    text = end == text.npos ? std::wstring_view() : text.substr(end + 1);
  }
  fields.emplace_back(text);
  return fields;
}

void Require(bool holds, std::string_view property) {
  if (!holds) throw std::logic_error("does not hold: " + std::string(property));
}

void RequireEqual(std::wstring_view actual, std::wstring_view expected, std::string_view property) {
  if (actual == expected) return;
  throw std::logic_error("does not hold: " + std::string(property) + "\n  actual:   " + values::ToUtf8(actual) +
                         "\n  expected: " + values::ToUtf8(expected));
}

std::wstring FilledIn(std::wstring_view text, wchar_t placeholder, std::wstring_view value) {
  std::wstring filled;
  for (const wchar_t c : text) {
    if (c == placeholder) {
      filled += value;
    } else {
      filled += c;
    }
  }
  return filled;
}

}  // namespace kodra::fuzz
