// Sheets of labels: every label on the paper, none over another.
#include "console/formats/labels/label_sheet.h"

#include <gtest/gtest.h>

namespace kodra::console::labels {
namespace {

constexpr double kHundredth = 0.01;

TEST(LabelSheet, IsFoundByItsName) {
  ASSERT_NE(FindLabelSheet("a4-2x7"), nullptr);
  EXPECT_EQ(FindLabelSheet("a4-2x7")->Labels(), 14);
  EXPECT_EQ(FindLabelSheet("A4-2X7"), nullptr);
  EXPECT_EQ(FindLabelSheet(""), nullptr);
}

TEST(LabelSheet, IsNamedAfterItsPaperItsColumnsAndItsRows) {
  for (const LabelSheet& sheet : LabelSheets()) {
    const std::string paper = sheet.pageWidth == 210 && sheet.pageHeight == 297 ? "a4" : "carta";
    EXPECT_EQ(sheet.name, paper + "-" + std::to_string(sheet.columns) + "x" + std::to_string(sheet.rows));
  }
}

TEST(LabelSheet, KeepsEveryLabelOnThePaperAndApartFromTheOthers) {
  for (const LabelSheet& sheet : LabelSheets()) {
    EXPECT_GE(sheet.columnPitch, sheet.labelWidth) << sheet.name;
    EXPECT_GE(sheet.rowPitch, sheet.labelHeight) << sheet.name;
    const LabelPlace last = PlaceOf(sheet, sheet.Labels() - 1);
    EXPECT_EQ(last.page, 0) << sheet.name;
    EXPECT_GE(sheet.left, 0) << sheet.name;
    EXPECT_GE(sheet.top, 0) << sheet.name;
    EXPECT_LE(last.left + sheet.labelWidth, sheet.pageWidth + kHundredth) << sheet.name;
    EXPECT_LE(last.top + sheet.labelHeight, sheet.pageHeight + kHundredth) << sheet.name;
  }
}

// Two columns of 99.1 mm, 2.5 mm apart, and seven rows of 38.1 mm, in the middle of A4.
TEST(LabelSheet, FillsRowByRowAndThenTheNextSheet) {
  const LabelSheet& sheet = *FindLabelSheet("a4-2x7");
  const auto at = [&](int index) { return PlaceOf(sheet, index); };
  EXPECT_NEAR(at(0).left, 4.65, kHundredth);
  EXPECT_NEAR(at(0).top, 15.15, kHundredth);
  EXPECT_NEAR(at(1).left, 106.25, kHundredth);
  EXPECT_NEAR(at(1).top, 15.15, kHundredth);
  EXPECT_NEAR(at(2).left, 4.65, kHundredth);
  EXPECT_NEAR(at(2).top, 53.25, kHundredth);
  EXPECT_EQ(at(13).page, 0);
  EXPECT_EQ(at(14).page, 1);
  EXPECT_NEAR(at(14).top, 15.15, kHundredth);
}

}  // namespace
}  // namespace kodra::console::labels
