// A finished statement as the pieces that any program which builds it at run time has to append.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kodra::bench {

// Cuts a statement before and behind each word that opens a clause, what the translator puts around an argument, and
// each of `values`, which are what the statement takes from outside. The pieces, which look into the statement, give it
// again.
std::vector<std::wstring_view> Fragments(const std::wstring& statement, const std::vector<std::wstring>& values);

}  // namespace kodra::bench
