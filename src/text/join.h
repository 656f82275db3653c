// Builds a text out of its pieces in one allocation.
//
//   Join({L"NVL(", expr, L", ", value, L")"})
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace kodra::text {

// Gives the pieces one after the other.
inline std::wstring Join(std::initializer_list<std::wstring_view> pieces) {
  std::size_t length = 0;
  for (const std::wstring_view piece : pieces) length += piece.size();
  std::wstring joined;
  joined.reserve(length);
  for (const std::wstring_view piece : pieces) joined += piece;
  return joined;
}

}  // namespace kodra::text
