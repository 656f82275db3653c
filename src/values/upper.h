// Upper case and blanks. They are the same on every machine: nothing here depends on the host's locale.
#pragma once

#include <string>
#include <string_view>

namespace kodra::values {

// As UpperCase, for the letters A to Z only.
constexpr wchar_t UpperCaseAscii(wchar_t character) noexcept {
  return character >= L'a' && character <= L'z' ? static_cast<wchar_t>(character - L'a' + L'A') : character;
}

// As UpperCase, for characters from U+0080 on.
wchar_t UpperCaseBeyondAscii(wchar_t character) noexcept;

// The upper-case form of one character of the Latin (with its accents), Greek and Cyrillic alphabets. Every other
// character is returned unchanged, and so is one without a single upper-case character (ß).
inline wchar_t UpperCase(wchar_t character) noexcept {
  return character < 0x80 ? UpperCaseAscii(character) : UpperCaseBeyondAscii(character);
}

// The text in upper case, character by character.
std::wstring UpperCase(std::wstring_view text);

// Whether two texts are equal when both are in upper case.
bool EqualIgnoringCase(std::wstring_view one, std::wstring_view other) noexcept;

// The first character in upper case; the empty text for the empty text.
std::wstring FirstUpper(std::wstring_view text);

// The text without its leading and trailing blanks. Only the blank itself (U+0020) is removed, not tabs and line ends.
std::wstring_view Trim(std::wstring_view text) noexcept;

}  // namespace kodra::values
