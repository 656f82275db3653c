#include "console/inventory/comparison.h"

#include <algorithm>
#include <set>

#include "console/formats/cell_text.h"

namespace kodra::console::inventory {
namespace {

struct Words {
  Situation situation;
  std::wstring_view one;
  std::wstring_view several;
};
constexpr Words kWords[] = {
    {Situation::kPresent, L"presente", L"presentes"},
    {Situation::kLent, L"emprestado", L"emprestados"},
    {Situation::kMissing, L"ausente", L"ausentes"},
    {Situation::kElsewhere, L"em outro lugar", L"em outro lugar"},
    {Situation::kUnknown, L"desconhecido", L"desconhecidos"},
};

}  // namespace

std::wstring_view WordFor(Situation situation) { return std::ranges::find(kWords, situation, &Words::situation)->one; }

std::vector<Finding> Compare(std::span<const Item> expected, std::span<const std::wstring> scanned,
                             std::span<const Item> elsewhere, const Loans& loans) {
  const std::set<std::wstring_view> read(scanned.begin(), scanned.end());
  std::set<std::wstring_view> here;
  std::vector<Finding> findings;
  for (const Item& item : expected) {
    here.insert(item.code);
    if (read.contains(item.code))
      findings.push_back({item, Situation::kPresent});
    else
      findings.push_back({item, loans.contains(item.code) ? Situation::kLent : Situation::kMissing});
  }
  std::map<std::wstring_view, const Item*> others;
  for (const Item& item : elsewhere) others.emplace(item.code, &item);
  for (const std::wstring& code : scanned) {
    if (here.contains(code)) continue;
    const auto other = others.find(code);
    if (other == others.end())
      findings.push_back({{.code = code, .place = {}, .location = {}}, Situation::kUnknown});
    else
      findings.push_back({*other->second, Situation::kElsewhere});
  }
  return findings;
}

bool AllInPlace(std::span<const Finding> findings) {
  return std::ranges::all_of(findings, [](const Finding& finding) {
    return finding.situation == Situation::kPresent || finding.situation == Situation::kLent;
  });
}

std::wstring Summary(std::span<const Finding> findings) {
  std::wstring text;
  for (const Words& words : kWords) {
    const auto count = std::ranges::count(findings, words.situation, &Finding::situation);
    text.append(text.empty() ? L"" : L", ").append(CountText(static_cast<std::uint64_t>(count))).append(L" ");
    text += count == 1 ? words.one : words.several;
  }
  return text;
}

}  // namespace kodra::console::inventory
