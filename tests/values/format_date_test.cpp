#include <gtest/gtest.h>

#include "values/erro.h"
#include "values/format_date.h"

namespace kodra::values {
namespace {

template <DatePattern kPattern>
std::wstring Format(const Calendar& calendar) {
  return FormatDate<kPattern>(FromCalendar(calendar));
}

constexpr Calendar kMoment{2023, 2, 1, 4, 5, 6};

TEST(FormatDate, WritesThePatternsOfTheReports) {
  EXPECT_EQ(Format<L"dd/mm/yyyy">(kMoment), L"01/02/2023");
  EXPECT_EQ(Format<L"DD/MM/YYYY">(kMoment), L"01/02/2023");
  EXPECT_EQ(Format<L"hh:mm:ss">(kMoment), L"04:05:06");
  EXPECT_EQ(Format<L"'yyyy-mm-dd'">(kMoment), L"'2023-02-01'");
  EXPECT_EQ(Format<L"'dd/mm/yyyy'">(kMoment), L"'01/02/2023'");
  EXPECT_EQ(Format<L"'yyyy/mm/dd'">(kMoment), L"'2023/02/01'");
  EXPECT_EQ(Format<L"'yyyy/mm/dd hh:nn:ss'">(kMoment), L"'2023/02/01 04:05:06'");
  EXPECT_EQ(Format<L"'yyyy-mm-dd\\Thh:nn:ss'">(kMoment), L"'2023-02-01T04:05:06'");
  EXPECT_EQ(Format<L"'yyyymmdd'">(kMoment), L"'20230201'");
}
TEST(FormatDate, DigitsOfAPatternAreLiteral) {
  EXPECT_EQ(Format<L"yyyy-mm-dd 00:00:00">(kMoment), L"2023-02-01 00:00:00");
  EXPECT_EQ(Format<L"yyyy-mm-dd 23:59:59">(kMoment), L"2023-02-01 23:59:59");
  EXPECT_EQ(Format<L"yyyy-mm-dd 00:00:00">({1899, 12, 30}), L"1899-12-30 00:00:00");
}
TEST(FormatDate, OneLetterWritesNoLeadingZero) {
  EXPECT_EQ(Format<L"d/m/yy h:n:s">(kMoment), L"1/2/23 4:5:6");
  EXPECT_EQ(Format<L"d/m/yy h:n:s">({1905, 12, 30, 23, 59, 58}), L"30/12/05 23:59:58");
}
TEST(FormatDate, MonthsAreMinutesOnlyDirectlyAfterTheHour) {
  EXPECT_EQ(Format<L"hh mm">(kMoment), L"04 05");
  EXPECT_EQ(Format<L"h:m">(kMoment), L"4:5");
  EXPECT_EQ(Format<L"mm/hh/mm">(kMoment), L"02/04/05");
  EXPECT_EQ(Format<L"hh-dd-mm">(kMoment), L"04-01-02");
  EXPECT_EQ(Format<L"hh:nn mm">(kMoment), L"04:05 02");
}
TEST(FormatDate, ABackslashMakesTheNextCharacterLiteral) {
  EXPECT_EQ(Format<L"\\d\\dd">(kMoment), L"dd1");
  EXPECT_EQ(Format<L"\\\\">(kMoment), L"\\");
  EXPECT_EQ(Format<L"dd\\">(kMoment), L"01");
}
TEST(FormatDate, OtherCharactersStandForThemselves) {
  EXPECT_EQ(Format<L"até 0 hh.nn, x">(kMoment), L"até 0 04.05, x");
  EXPECT_EQ(Format<L"">(kMoment), L"");
}
TEST(FormatDate, TheYear100HasThreeDigits) {
  EXPECT_EQ(Format<L"dd/mm/yyyy">({100, 1, 1}), L"01/01/100");
  EXPECT_EQ(Format<L"yy">({100, 1, 1}), L"00");
}
TEST(FormatDate, BeforeDayZeroTheTimeIsTheTimeOfDay) {
  EXPECT_EQ(FormatDate<L"d/m/yyyy h:nn">({-1.25}), L"29/12/1899 6:00");
}
TEST(FormatDate, RaisesAnOverflowOutsideTheCalendar) {
  try {
    FormatDate<L"yyyy">({1e9});
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
