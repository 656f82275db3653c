// Builds a text out of its pieces in one allocation.
//
//   Join({L"NVL(", expr, L", ", value, L")"})
//   Append(statement, {L" WHERE d.COD_DEPTO = '", code, L"'"})
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace kodra::text {

// A piece of a text: a literal, whose length is known when it is compiled, or the characters of a text.
class Piece : public std::wstring_view {
 public:
  template <std::size_t kSize>
  constexpr Piece(const wchar_t (&literal)[kSize]) : std::wstring_view(literal, kSize - 1) {}
  constexpr Piece(std::wstring_view text) : std::wstring_view(text) {}
  Piece(const std::wstring& text) : std::wstring_view(text) {}
};

// Pieces of a text, in order. They are read before the call that takes them returns, so they may be temporaries.
using Pieces = std::initializer_list<Piece>;

// Appends the pieces one after the other.
inline void Append(std::wstring& text, Pieces pieces) {
  for (const Piece piece : pieces) text += piece;
}

// Gives the pieces one after the other.
inline std::wstring Join(Pieces pieces) {
  std::size_t length = 0;
  for (const Piece piece : pieces) length += piece.size();
  std::wstring joined;
  joined.reserve(length);
  Append(joined, pieces);
  return joined;
}

}  // namespace kodra::text
