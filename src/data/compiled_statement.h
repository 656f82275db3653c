// A statement that never differs, put together by a SELECT builder when the program is compiled.
//
//   constexpr void SelectContainers(data::SelectBuilder& builder) {
//     builder.SetColumns(L"NUM_CONTAINER, DESC_CONTAINER");
//     builder.SetFrom(L"CONTAINER");
//   }
//   Open(data::kCompiledStatement<SelectContainers>);
#pragma once

#include <algorithm>
#include <array>

#include "data/select_builder.h"

namespace kodra::data {

using FillBuilder = void (*)(SelectBuilder&);

template <FillBuilder kFill>
inline constexpr auto kStatementCharacters = [] {
  constexpr auto length = [] {
    SelectBuilder builder;
    kFill(builder);
    return builder.SQL().size();
  }();
  SelectBuilder builder;
  kFill(builder);
  std::array<wchar_t, length> characters;
  std::copy_n(builder.SQL().data(), length, characters.begin());
  return characters;
}();

template <FillBuilder kFill>
inline constexpr std::wstring_view kCompiledStatement{kStatementCharacters<kFill>.data(),
                                                      kStatementCharacters<kFill>.size()};

}  // namespace kodra::data
