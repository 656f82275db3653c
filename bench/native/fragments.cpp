#include "bench/native/fragments.h"

#include <algorithm>
#include <array>
#include <set>

namespace kodra::bench {
namespace {

constexpr std::array<std::wstring_view, 10> kClauses = {L"SELECT ", L" FROM ",     L" INNER JOIN ", L" LEFT JOIN ",
                                                        L" ON ",    L" WHERE ",    L" GROUP BY ",   L" ORDER BY ",
                                                        L" UNION ", L" UNION ALL "};

void Mark(std::wstring_view statement, std::wstring_view piece, std::set<std::size_t>& cuts) {
  for (std::size_t at = statement.find(piece); at != statement.npos; at = statement.find(piece, at + piece.size())) {
    cuts.insert(at);
    cuts.insert(at + piece.size());
  }
}

}  // namespace

std::vector<std::wstring_view> Fragments(const std::wstring& statement, const std::vector<std::wstring>& values) {
  const std::wstring_view text = statement;
  std::set<std::size_t> cuts = {text.size()};
  for (const std::wstring_view clause : kClauses) Mark(text, clause, cuts);
  for (const std::wstring& value : values) Mark(text, value, cuts);
  std::vector<std::wstring_view> pieces;
  std::size_t start = 0;
  for (const std::size_t cut : cuts) {
    if (cut > start) pieces.push_back(text.substr(start, cut - start));
    start = cut;
  }
  return pieces;
}

}  // namespace kodra::bench
