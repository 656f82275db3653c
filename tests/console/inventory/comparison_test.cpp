#include "console/inventory/comparison.h"

#include <gtest/gtest.h>

namespace kodra::console::inventory {

void PrintTo(const Finding& finding, std::ostream* out) {
  const std::wstring text = finding.item.code + L" " + std::wstring(WordFor(finding.situation)) + L" " +
                            finding.item.place + L" " + finding.item.location;
  for (const wchar_t c : text) *out << static_cast<char>(c);
}

namespace {

using enum Situation;

const Item kOne = {L"1", L"AB001", L"estante 1"};
const Item kTwo = {L"2", L"AB001", L"estante 1"};
const Item kThree = {L"3", L"AB002", L""};
const Item kNine = {L"9", L"AB009", L"estante 9"};

TEST(Comparison, ListsWhatIsExpectedAndThenTheOtherCodesAsTheyWereRead) {
  const std::vector<Item> expected = {kOne, kTwo, kThree};
  const std::vector<std::wstring> scanned = {L"X", L"3", L"9", L"1"};
  const std::vector<Item> elsewhere = {kNine};
  EXPECT_EQ(
      Compare(expected, scanned, elsewhere, {{L"2", {L"Ana", L"01/02/2024", L"sem data"}}}),
      (std::vector<Finding>{
          {kOne, kPresent}, {kTwo, kLent}, {kThree, kPresent}, {{L"X", L"", L""}, kUnknown}, {kNine, kElsewhere}}));
  EXPECT_EQ(Compare(expected, scanned, elsewhere, {})[1], (Finding{kTwo, kMissing}));
}

TEST(Comparison, TakesWhatWasReadForPresentThoughItIsLent) {
  const std::vector<Item> expected = {kOne};
  const std::vector<std::wstring> scanned = {L"1"};
  EXPECT_EQ(Compare(expected, scanned, {}, {{L"1", {}}}), (std::vector<Finding>{{kOne, kPresent}}));
}

TEST(Comparison, DistinguishesLetterCase) {
  const std::vector<Item> expected = {{L"ab", L"P", L""}};
  const std::vector<std::wstring> scanned = {L"AB"};
  EXPECT_EQ(Compare(expected, scanned, {}, {}),
            (std::vector<Finding>{{{L"ab", L"P", L""}, kMissing}, {{L"AB", L"", L""}, kUnknown}}));
}

TEST(Comparison, FindsAllInPlaceIfNothingIsMissingOrMisplaced) {
  EXPECT_TRUE(AllInPlace({}));
  EXPECT_TRUE(AllInPlace(std::vector<Finding>{{kOne, kPresent}, {kTwo, kLent}}));
  for (const Situation situation : {kMissing, kElsewhere, kUnknown})
    EXPECT_FALSE(AllInPlace(std::vector<Finding>{{kOne, kPresent}, {kTwo, situation}}));
}

TEST(Comparison, CountsEachSituation) {
  EXPECT_EQ(Summary({}), L"0 presentes, 0 emprestados, 0 ausentes, 0 em outro lugar, 0 desconhecidos");
  EXPECT_EQ(Summary(std::vector<Finding>{
                {kOne, kPresent}, {kOne, kLent}, {kOne, kMissing}, {kOne, kElsewhere}, {kOne, kUnknown}}),
            L"1 presente, 1 emprestado, 1 ausente, 1 em outro lugar, 1 desconhecido");
  EXPECT_EQ(Summary(std::vector<Finding>(1234, {kOne, kMissing})),
            L"0 presentes, 0 emprestados, 1.234 ausentes, 0 em outro lugar, 0 desconhecidos");
}

}  // namespace
}  // namespace kodra::console::inventory
