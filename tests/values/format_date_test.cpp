#include <gtest/gtest.h>

#include "tests/recorder/raised.h"
#include "values/format_date.h"

namespace kodra::values {
namespace {

constexpr Calendar kMoment{2023, 2, 1, 4, 5, 6};

// Patterns and the texts of that moment.
void ExpectPatterns(std::initializer_list<std::pair<const wchar_t*, const wchar_t*>> cases) {
  for (const auto& [pattern, text] : cases) EXPECT_EQ(FormatDate(kMoment, pattern), text) << pattern;
}

TEST(FormatDate, WritesThePatternsOfTheReports) {
  ExpectPatterns({{L"dd/mm/yyyy", L"01/02/2023"},
                  {L"DD/MM/YYYY", L"01/02/2023"},
                  {L"hh:mm:ss", L"04:05:06"},
                  {L"'yyyy-mm-dd'", L"'2023-02-01'"},
                  {L"'dd/mm/yyyy'", L"'01/02/2023'"},
                  {L"'yyyy/mm/dd'", L"'2023/02/01'"},
                  {L"'yyyy/mm/dd hh:nn:ss'", L"'2023/02/01 04:05:06'"},
                  {L"'yyyy-mm-dd\\Thh:nn:ss'", L"'2023-02-01T04:05:06'"},
                  {L"'yyyymmdd'", L"'20230201'"}});
}
TEST(FormatDate, DigitsOfAPatternAreLiteral) {
  ExpectPatterns({{L"yyyy-mm-dd 00:00:00", L"2023-02-01 00:00:00"}, {L"yyyy-mm-dd 23:59:59", L"2023-02-01 23:59:59"}});
  EXPECT_EQ(FormatDate(Calendar{1899, 12, 30}, L"yyyy-mm-dd 00:00:00"), L"1899-12-30 00:00:00");
}
TEST(FormatDate, OneLetterWritesNoLeadingZero) {
  EXPECT_EQ(FormatDate(kMoment, L"d/m/yy h:n:s"), L"1/2/23 4:5:6");
  EXPECT_EQ(FormatDate(Calendar{1905, 12, 30, 23, 59, 58}, L"d/m/yy h:n:s"), L"30/12/05 23:59:58");
}
TEST(FormatDate, MonthsAreMinutesOnlyDirectlyAfterTheHour) {
  ExpectPatterns({{L"hh mm", L"04 05"},
                  {L"h:m", L"4:5"},
                  {L"mm/hh/mm", L"02/04/05"},
                  {L"hh-dd-mm", L"04-01-02"},
                  {L"hh:nn mm", L"04:05 02"}});
}
TEST(FormatDate, ABackslashMakesTheNextCharacterLiteral) {
  ExpectPatterns({{L"\\d\\dd", L"dd1"}, {L"\\\\", L"\\"}, {L"dd\\", L"01"}});
}
TEST(FormatDate, OtherCharactersAreThemselves) { ExpectPatterns({{L"até 0 hh.nn, x", L"até 0 04.05, x"}, {L"", L""}}); }
TEST(FormatDate, TheYear100HasThreeDigits) {
  EXPECT_EQ(FormatDate(Calendar{100, 1, 1}, L"dd/mm/yyyy"), L"01/01/100");
  EXPECT_EQ(FormatDate(Calendar{100, 1, 1}, L"yy"), L"00");
}
TEST(FormatDate, BeforeDayZeroTheTimeIsTheTimeOfDay) {
  EXPECT_EQ(FormatDate(Date{-1.25}, L"d/m/yyyy h:nn"), L"29/12/1899 6:00");
}
TEST(FormatDate, RaisesAnOverflowOutsideTheCalendar) {
  EXPECT_EQ(recorder::RaisedBy([] { FormatDate(Date{1e9}, L"yyyy"); }), recorder::kOverflow);
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
