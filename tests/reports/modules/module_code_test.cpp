// The codes of storage modules.
#include "reports/modules/module_code.h"

#include <gtest/gtest.h>

namespace kodra::reports {
namespace {

TEST(ModuleCodeTest, TakesTheFirstFiveCharactersForTheMainModule) {
  EXPECT_EQ(MainModule(L"AB00107"), L"AB001");
  EXPECT_EQ(MainModule(L"AB001"), L"AB001");
  EXPECT_EQ(MainModule(L"AB00107X"), L"AB001");
  EXPECT_EQ(MainModule(L" AB001"), L" AB00");
}

TEST(ModuleCodeTest, TakesAShorterCodeWholeForTheMainModule) {
  EXPECT_EQ(MainModule(L"AB0"), L"AB0");
  EXPECT_EQ(MainModule(L""), L"");
}

TEST(ModuleCodeTest, ReturnsTheNumberOfASubordinateWithoutPadding) {
  EXPECT_EQ(SubordinateNumber(L"AB00107"), L"7");
  EXPECT_EQ(SubordinateNumber(L"AB00112"), L"12");
  EXPECT_EQ(SubordinateNumber(L"AB00100"), L"0");
  EXPECT_EQ(SubordinateNumber(L"AB00199"), L"99");
}

TEST(ModuleCodeTest, TakesTheLastTwoCharactersOfACodeOfAnyLength) {
  EXPECT_EQ(SubordinateNumber(L"AB012"), L"12");
  EXPECT_EQ(SubordinateNumber(L"AB001234"), L"34");
  EXPECT_EQ(SubordinateNumber(L"12"), L"12");
  EXPECT_EQ(SubordinateNumber(L"7"), L"7");
}

TEST(ModuleCodeTest, CountsAnEndThatIsNotANumberAsZero) {
  EXPECT_EQ(SubordinateNumber(L""), L"0");
  EXPECT_EQ(SubordinateNumber(L"AB001XY"), L"0");
  EXPECT_EQ(SubordinateNumber(L"AB001X7"), L"0");
  EXPECT_EQ(SubordinateNumber(L"AB001  "), L"0");
}

TEST(ModuleCodeTest, ReadsTheNumberThatTheEndBeginsWith) {
  EXPECT_EQ(SubordinateNumber(L"AB0017X"), L"7");
  EXPECT_EQ(SubordinateNumber(L"AB001 7"), L"7");
  EXPECT_EQ(SubordinateNumber(L"AB0017 "), L"7");
  EXPECT_EQ(SubordinateNumber(L"AB001-1"), L"-1");
}

TEST(ModuleCodeTest, RecognisesAMainModuleByItsLengthAlone) {
  EXPECT_TRUE(NamesMainModule(L"AB001"));
  EXPECT_TRUE(NamesMainModule(L"     "));
  EXPECT_FALSE(NamesMainModule(L""));
  EXPECT_FALSE(NamesMainModule(L"AB00"));
  EXPECT_FALSE(NamesMainModule(L"AB0010"));
  EXPECT_FALSE(NamesMainModule(L"AB00107"));
}

}  // namespace
}  // namespace kodra::reports
