#include "text/join.h"

#include <gtest/gtest.h>

namespace kodra::text {
namespace {

TEST(Join, PutsThePiecesOneAfterTheOther) {
  const std::wstring middle = L"b";
  EXPECT_EQ(Join({L"a", middle, L"", L"c"}), L"abc");
}
TEST(Join, OfNothingIsEmpty) { EXPECT_EQ(Join({}), L""); }

}  // namespace
}  // namespace kodra::text
