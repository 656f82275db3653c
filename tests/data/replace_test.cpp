// Replacing all occurrences of a text.
#include <gtest/gtest.h>

#include "data/connection_string.h"

namespace kodra::data {
namespace {

TEST(ReplaceAll, ReplacesEveryMatch) { EXPECT_EQ(ReplaceAll(L"a-b-c", L"-", L"+"), L"a+b+c"); }

TEST(ReplaceAll, ReturnsTheTextWithoutAMatch) { EXPECT_EQ(ReplaceAll(L"abc", L"-", L"+"), L"abc"); }

TEST(ReplaceAll, ReturnsTheTextForAnEqualReplacement) { EXPECT_EQ(ReplaceAll(L"abc", L"b", L"b"), L"abc"); }

TEST(ReplaceAll, ReturnsTheEmptyText) { EXPECT_EQ(ReplaceAll(L"", L"b", L"c"), L""); }

TEST(ReplaceAll, ResumesAfterTheInsertedText) {
  EXPECT_EQ(ReplaceAll(L";;;", L";;", L";"), L";;");
  EXPECT_EQ(ReplaceAll(L";;;;", L";;", L";"), L";;");
  EXPECT_EQ(ReplaceAll(L"aa", L"a", L"aa"), L"aaaa");
}

TEST(ReplaceAll, RemovesMatchesForAnEmptyReplacement) { EXPECT_EQ(ReplaceAll(L"a-b-", L"-", L""), L"ab"); }

}  // namespace
}  // namespace kodra::data
