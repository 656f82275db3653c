// The label of a container, computed from its modules.
#include <gtest/gtest.h>

#include <vector>

#include "reports/modules/container_label.h"

namespace kodra::reports {
namespace {

constexpr Date kNone = {};
constexpr Date kEarlier = {45000};
constexpr Date kLater = {45000.5};
constexpr double kOneSecond = 1.0 / 86400;

struct Module {
  Date date;
  const wchar_t* kind;
  const wchar_t* company = L"";
};

ContainerLabel LabelOf(const std::vector<Module>& modules) {
  ContainerLabel label;
  for (const Module& module : modules) label.Add(module.date, module.kind, module.company);
  return label;
}

TEST(ContainerLabelTest, StartsWithNothing) {
  const ContainerLabel label = LabelOf({});
  EXPECT_EQ(label.latest, kNone);
  EXPECT_EQ(label.kind, L"");
  EXPECT_EQ(label.company, L"");
}

TEST(ContainerLabelTest, TakesTheLastModulesKindWithoutAnyDate) {
  EXPECT_EQ(LabelOf({{kNone, L"D"}, {kNone, L"E"}}).kind, L"E");
  EXPECT_EQ(LabelOf({{kNone, L"E"}, {kNone, L"P"}}).kind, L"P");
  EXPECT_EQ(LabelOf({{kNone, L"E"}, {kNone, L""}}).kind, L"");
  EXPECT_EQ(LabelOf({{kNone, L"E"}, {kNone, L"P"}}).latest, kNone);
}

TEST(ContainerLabelTest, IsKeptForATermAsSoonAsOneModuleHasADate) {
  EXPECT_EQ(LabelOf({{kEarlier, L"E"}}).kind, L"T");
  EXPECT_EQ(LabelOf({{kNone, L"E"}, {kEarlier, L"T"}}).kind, L"T");
  EXPECT_EQ(LabelOf({{kEarlier, L"T"}, {kNone, L"E"}}).kind, L"T");
  EXPECT_EQ(LabelOf({{kEarlier, L"P"}, {kNone, L"E"}}).kind, L"T");
}

TEST(ContainerLabelTest, StaysKeptForATermAfterAModuleOfThatKindWithoutDate) {
  EXPECT_EQ(LabelOf({{kNone, L"T"}, {kNone, L"E"}}).kind, L"T");
  EXPECT_EQ(LabelOf({{kNone, L"t"}, {kNone, L"E"}}).kind, L"E");
}

TEST(ContainerLabelTest, TakesTheLatestDateInAnyOrder) {
  EXPECT_EQ(LabelOf({{kEarlier, L"T"}, {kLater, L"T"}}).latest, kLater);
  EXPECT_EQ(LabelOf({{kLater, L"T"}, {kEarlier, L"T"}}).latest, kLater);
  EXPECT_EQ(LabelOf({{kLater, L"T"}, {kNone, L"E"}}).latest, kLater);
  EXPECT_EQ(LabelOf({{kNone, L"E"}, {kLater, L"T"}, {kEarlier, L"T"}}).latest, kLater);
}

TEST(ContainerLabelTest, ComparesDatesBySeconds) {
  const Date aSecondLater = {kEarlier.days + kOneSecond};
  const Date lessThanHalfASecondLater = {kEarlier.days + kOneSecond / 4};
  EXPECT_EQ(LabelOf({{kEarlier, L"T"}, {aSecondLater, L"T"}}).latest, aSecondLater);
  EXPECT_EQ(LabelOf({{kEarlier, L"T"}, {lessThanHalfASecondLater, L"T"}}).latest, kEarlier);
}

TEST(ContainerLabelTest, TakesADateFromWellBefore1968AndAfter2038) {
  EXPECT_EQ(LabelOf({{{2}, L"T"}}).latest, Date{2});
  EXPECT_EQ(LabelOf({{{2}, L"T"}, {{2958465}, L"T"}}).latest, Date{2958465});
}

TEST(ContainerLabelTest, TakesADateBeforeTheZeroDateForNone) {
  EXPECT_EQ(LabelOf({{{-1000}, L"E"}}).latest, kNone);
  EXPECT_EQ(LabelOf({{{-1000}, L"E"}}).kind, L"E");
}

TEST(ContainerLabelTest, TakesTheLastModulesCompany) {
  EXPECT_EQ(LabelOf({{kNone, L"E", L"Arquivo Geral"}, {kNone, L"E", L"Arquivo Morto"}}).company, L"Arquivo Morto");
  EXPECT_EQ(LabelOf({{kNone, L"E", L"Arquivo Geral"}, {kNone, L"E", L""}}).company, L"");
}

}  // namespace
}  // namespace kodra::reports
