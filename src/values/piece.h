// The characters of a literal or of a text, handed on without a copy.
#pragma once

#include <string>
#include <string_view>

namespace kodra::values {

// Unlike a std::wstring_view it knows the length of a literal when it is compiled.
class Piece : public std::wstring_view {
 public:
  constexpr Piece() = default;
  template <std::size_t kSize>
  constexpr Piece(const wchar_t (&literal)[kSize]) : std::wstring_view(literal, kSize - 1) {}
  constexpr Piece(std::wstring_view text) : std::wstring_view(text) {}
  Piece(const std::wstring& text) : std::wstring_view(text) {}
};

}  // namespace kodra::values
