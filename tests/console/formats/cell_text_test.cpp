#include "console/formats/cell_text.h"

#include <gtest/gtest.h>

#include <limits>

namespace kodra::console {
namespace {

TEST(NumberIn, IsTheNumberThatTheDigitsOfASingleShow) {
  EXPECT_EQ(NumberIn(0.1F), 0.1);
  EXPECT_EQ(NumberIn(-16777216.0F), -16777216.0);
  EXPECT_EQ(NumberIn(1.5e-7F), 1.5e-7);
  EXPECT_EQ(NumberIn(1e30F), 1e30);
  EXPECT_EQ(NumberIn(std::numeric_limits<float>::infinity()), std::numeric_limits<double>::infinity());
}

TEST(NumberIn, IsNothingForAValueThatIsNotANumber) {
  EXPECT_EQ(NumberIn(L"1"), std::nullopt);
  EXPECT_EQ(NumberIn(true), std::nullopt);
  EXPECT_EQ(NumberIn(Null{}), std::nullopt);
  EXPECT_EQ(NumberIn(Date{1}), std::nullopt);
}

}  // namespace
}  // namespace kodra::console
