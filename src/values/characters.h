// Kinds of characters. They are the same on every machine: nothing here depends on the host's locale.
#pragma once

namespace kodra::values {

// A digit from 0 to 9.
constexpr bool IsDigit(wchar_t character) noexcept { return character >= L'0' && character <= L'9'; }

// A blank, or one of the controls from the tab to the carriage return.
constexpr bool IsBlank(wchar_t character) noexcept {
  return character == L' ' || (character >= L'\t' && character <= L'\r');
}

}  // namespace kodra::values
