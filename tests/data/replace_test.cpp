// Replacing all occurrences of a text.
#include <gtest/gtest.h>

#include "data/connection_string.h"

namespace kodra::data {
namespace {

TEST(ReplaceTest, ReplacesEveryMatch) { EXPECT_EQ(Replace(L"a-b-c", L"-", L"+"), L"a+b+c"); }

TEST(ReplaceTest, GivesTheExpressionBackWithoutAMatch) { EXPECT_EQ(Replace(L"abc", L"-", L"+"), L"abc"); }

TEST(ReplaceTest, GivesTheExpressionBackForNothingToFind) { EXPECT_EQ(Replace(L"abc", L"", L"+"), L"abc"); }

TEST(ReplaceTest, GivesTheExpressionBackForAnEqualReplacement) { EXPECT_EQ(Replace(L"abc", L"b", L"b"), L"abc"); }

TEST(ReplaceTest, GivesTheEmptyExpressionBack) { EXPECT_EQ(Replace(L"", L"b", L"c"), L""); }

TEST(ReplaceTest, ResumesAfterTheInsertedText) {
  EXPECT_EQ(Replace(L";;;", L";;", L";"), L";;");
  EXPECT_EQ(Replace(L";;;;", L";;", L";"), L";;");
  EXPECT_EQ(Replace(L"aa", L"a", L"aa"), L"aaaa");
}

TEST(ReplaceTest, RemovesMatchesForAnEmptyReplacement) { EXPECT_EQ(Replace(L"a-b-", L"-", L""), L"ab"); }

TEST(ReplaceTest, KeepsWhatStandsBeforeTheStartPosition) {
  EXPECT_EQ(Replace(L"---", L"-", L"+", 1), L"+++");
  EXPECT_EQ(Replace(L"---", L"-", L"+", 2), L"-++");
  EXPECT_EQ(Replace(L"---", L"-", L"+", 3), L"--+");
  EXPECT_EQ(Replace(L"---", L"-", L"+", 4), L"---");
  EXPECT_EQ(Replace(L"---", L"-", L"+", 99), L"---");
}

TEST(ReplaceTest, StopsAtTheMaximumCount) {
  EXPECT_EQ(Replace(L"---", L"-", L"+", 1, 1), L"+--");
  EXPECT_EQ(Replace(L"---", L"-", L"+", 1, 2), L"++-");
  EXPECT_EQ(Replace(L"---", L"-", L"+", 1, 9), L"+++");
  EXPECT_EQ(Replace(L"---", L"-", L"+", 2, 1), L"-+-");
}

TEST(ReplaceTest, HeedsLetterCaseUnlessAskedToCompareAsText) {
  EXPECT_EQ(Replace(L"aAÁá", L"a", L"x"), L"xAÁá");
  EXPECT_EQ(Replace(L"aAÁá", L"a", L"x", 1, -1, Comparison::kText), L"xxÁá");
  EXPECT_EQ(Replace(L"aAÁá", L"á", L"x", 1, -1, Comparison::kText), L"aAxx");
}

}  // namespace
}  // namespace kodra::data
