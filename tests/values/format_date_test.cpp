#include <gtest/gtest.h>

#include "values/erro.h"
#include "values/format_date.h"

namespace kodra::values {
namespace {

constexpr Calendar kMoment{2023, 2, 1, 4, 5, 6};

TEST(FormatDate, WritesThePatternsOfTheReports) {
  EXPECT_EQ(FormatDate(kMoment, L"dd/mm/yyyy"), L"01/02/2023");
  EXPECT_EQ(FormatDate(kMoment, L"DD/MM/YYYY"), L"01/02/2023");
  EXPECT_EQ(FormatDate(kMoment, L"hh:mm:ss"), L"04:05:06");
  EXPECT_EQ(FormatDate(kMoment, L"'yyyy-mm-dd'"), L"'2023-02-01'");
  EXPECT_EQ(FormatDate(kMoment, L"'dd/mm/yyyy'"), L"'01/02/2023'");
  EXPECT_EQ(FormatDate(kMoment, L"'yyyy/mm/dd'"), L"'2023/02/01'");
  EXPECT_EQ(FormatDate(kMoment, L"'yyyy/mm/dd hh:nn:ss'"), L"'2023/02/01 04:05:06'");
  EXPECT_EQ(FormatDate(kMoment, L"'yyyy-mm-dd\\Thh:nn:ss'"), L"'2023-02-01T04:05:06'");
  EXPECT_EQ(FormatDate(kMoment, L"'yyyymmdd'"), L"'20230201'");
}
TEST(FormatDate, DigitsOfAPatternAreLiteral) {
  EXPECT_EQ(FormatDate(kMoment, L"yyyy-mm-dd 00:00:00"), L"2023-02-01 00:00:00");
  EXPECT_EQ(FormatDate(kMoment, L"yyyy-mm-dd 23:59:59"), L"2023-02-01 23:59:59");
  EXPECT_EQ(FormatDate(Calendar{1899, 12, 30}, L"yyyy-mm-dd 00:00:00"), L"1899-12-30 00:00:00");
}
TEST(FormatDate, OneLetterWritesNoLeadingZero) {
  EXPECT_EQ(FormatDate(kMoment, L"d/m/yy h:n:s"), L"1/2/23 4:5:6");
  EXPECT_EQ(FormatDate(Calendar{1905, 12, 30, 23, 59, 58}, L"d/m/yy h:n:s"), L"30/12/05 23:59:58");
}
TEST(FormatDate, MonthsAreMinutesOnlyDirectlyAfterTheHour) {
  EXPECT_EQ(FormatDate(kMoment, L"hh mm"), L"04 05");
  EXPECT_EQ(FormatDate(kMoment, L"h:m"), L"4:5");
  EXPECT_EQ(FormatDate(kMoment, L"mm/hh/mm"), L"02/04/05");
  EXPECT_EQ(FormatDate(kMoment, L"hh-dd-mm"), L"04-01-02");
  EXPECT_EQ(FormatDate(kMoment, L"hh:nn mm"), L"04:05 02");
}
TEST(FormatDate, ABackslashMakesTheNextCharacterLiteral) {
  EXPECT_EQ(FormatDate(kMoment, L"\\d\\dd"), L"dd1");
  EXPECT_EQ(FormatDate(kMoment, L"\\\\"), L"\\");
  EXPECT_EQ(FormatDate(kMoment, L"dd\\"), L"01");
}
TEST(FormatDate, OtherCharactersStandForThemselves) {
  EXPECT_EQ(FormatDate(kMoment, L"até 0 hh.nn, x"), L"até 0 04.05, x");
  EXPECT_EQ(FormatDate(kMoment, L""), L"");
}
TEST(FormatDate, TheYear100HasThreeDigits) {
  EXPECT_EQ(FormatDate(Calendar{100, 1, 1}, L"dd/mm/yyyy"), L"01/01/100");
  EXPECT_EQ(FormatDate(Calendar{100, 1, 1}, L"yy"), L"00");
}
TEST(FormatDate, BeforeDayZeroTheTimeIsTheTimeOfDay) {
  EXPECT_EQ(FormatDate(Date{-1.25}, L"d/m/yyyy h:nn"), L"29/12/1899 6:00");
}
TEST(FormatDate, RaisesAnOverflowOutsideTheCalendar) {
  try {
    FormatDate(Date{1e9}, L"yyyy");
    ADD_FAILURE() << "nothing raised";
  } catch (const Erro& erro) {
    EXPECT_EQ(erro.Number(), 6);
  }
}

TEST(DateToText, ADayWithoutTimeIsOnlyTheDay) { EXPECT_EQ(DateToText({45291}), L"31/12/2023"); }
TEST(DateToText, ADayWithTimeHasBoth) {
  EXPECT_EQ(DateToText(FromCalendar(kMoment)), L"01/02/2023 04:05:06");
  EXPECT_EQ(DateToText({-1.25}), L"29/12/1899 06:00:00");
}
TEST(DateToText, DayZeroIsOnlyItsTime) {
  EXPECT_EQ(DateToText({0}), L"00:00:00");
  EXPECT_EQ(DateToText({0.5}), L"12:00:00");
  EXPECT_EQ(DateToText({1}), L"31/12/1899");
}

}  // namespace
}  // namespace kodra::values
