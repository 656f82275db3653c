#include "bench/native/fragments.h"

#include <set>

namespace kodra::bench {
namespace {

// What opens a clause.
constexpr std::wstring_view kClauses[] = {L"SELECT ", L" FROM ",     L" INNER JOIN ", L" LEFT JOIN ", L" ON ",
                                          L" WHERE ", L" GROUP BY ", L" ORDER BY ",   L" UNION "};
// What the translator puts around its arguments, and what names the result.
constexpr std::wstring_view kAround[] = {
    L"NVL(",
    L"ISNULL(",
    L"IFNULL(",
    L"COALESCE(",
    L", '')",
    L"TO_NUMBER(",
    L"CAST(",
    L" AS INT)",
    L" AS UNSIGNED)",
    L"TO_DATE(",
    L",'DD/MM/YYYY')",
    L",'YYYY/MM/DD')",
    L"STR_TO_DATE(",
    L",'%d/%m/%Y')",
    L",'%Y/%m/%d')",
    L"strftime('%d-%m-%Y',",
    L"strftime('%Y-%m-%d',",
    L"TO_CHAR(",
    L"CONVERT(CHAR(10),",
    L",103)",
    L"DATE_FORMAT(",
};

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
  for (const std::wstring_view piece : kAround) Mark(text, piece, cuts);
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
