#include <gtest/gtest.h>

#include "values/format_date.h"

namespace kodra::values {
namespace {

constexpr std::int32_t kCurrentYear = 2026;

// The date that a text is read as, as year-month-day hour:minute:second; "none" when it is not a date.
std::wstring Read(std::wstring_view text) {
  const auto date = ParseDate(text, kCurrentYear);
  return date ? FormatDate(*date, L"yyyy-mm-dd hh:nn:ss") : L"none";
}

// Texts and what they are read as.
void ExpectRead(std::initializer_list<std::pair<const wchar_t*, const wchar_t*>> cases) {
  for (const auto& [text, date] : cases) EXPECT_EQ(Read(text), date) << text;
}

TEST(ParseDate, ReadsDayMonthYearWithAnySeparator) {
  for (const auto* text : {L"31/12/2023", L"31-12-2023", L"31 12 2023", L"31,12,2023", L"31/12-2023", L"31, 12, 2023",
                           L"31 / 12 / 2023", L"  31/12/2023  ", L"31\t12\t2023", L"31 ,/ 12 2023", L",31/12/2023"}) {
    EXPECT_EQ(Read(text), L"2023-12-31 00:00:00") << text;
  }
  EXPECT_EQ(Read(L"1/2/2023"), L"2023-02-01 00:00:00");
}
TEST(ParseDate, AFullStopSeparatesTimesNotDates) {
  ExpectRead({{L"31.12.2023", L"none"},
              {L"10.5", L"1899-12-30 10:05:00"},
              {L"1.2.3", L"1899-12-30 01:02:03"},
              {L"12.99", L"none"}});
}
TEST(ParseDate, ACommaSeparatesDates) {
  ExpectRead({{L"10,5", L"2026-05-10 00:00:00"}, {L"1,2,3", L"2003-02-01 00:00:00"}});
}
TEST(ParseDate, ACommaAfterASeparatorDoesNotTakeItsPlace) {
  ExpectRead({{L"31/, 12/2023", L"2023-12-31 00:00:00"},
              {L"31/12/2023, 10:00", L"2023-12-31 10:00:00"},
              {L"31/12/2023/, 10:00", L"none"}});
}
TEST(ParseDate, TriesOtherOrdersWhenDayMonthYearIsNoDay) {
  ExpectRead({{L"12/31/2023", L"2023-12-31 00:00:00"},
              {L"2023/12/31", L"2023-12-31 00:00:00"},
              {L"2023-12-31", L"2023-12-31 00:00:00"},
              {L"2023/31/12", L"2023-12-31 00:00:00"},
              {L"99/12/31", L"1999-12-31 00:00:00"},
              {L"29/2/23", L"2029-02-23 00:00:00"},
              {L"31/4/01", L"1931-04-01 00:00:00"}});
}
TEST(ParseDate, ADayThatExistsInNoOrderIsNoDate) {
  for (const auto* text :
       {L"29/2/2023", L"31/4/2023", L"31/31/2023", L"32/13/31", L"0/1/2023", L"1/0/2023", L"13/2023"}) {
    EXPECT_EQ(Read(text), L"none") << text;
  }
  EXPECT_EQ(Read(L"29/2/2024"), L"2024-02-29 00:00:00");
}
TEST(ParseDate, TwoDigitYearsTurnAt30) {
  ExpectRead({{L"1/2/00", L"2000-02-01 00:00:00"},
              {L"1/2/3", L"2003-02-01 00:00:00"},
              {L"1/2/29", L"2029-02-01 00:00:00"},
              {L"1/2/30", L"1930-02-01 00:00:00"},
              {L"1/2/99", L"1999-02-01 00:00:00"}});
}
TEST(ParseDate, YearsReachFrom100To9999) {
  ExpectRead({{L"1/2/100", L"100-02-01 00:00:00"},
              {L"31/12/9999", L"9999-12-31 00:00:00"},
              {L"1/2/10000", L"none"},
              {L"1/2/4294967297", L"none"}});
}
TEST(ParseDate, LeadingZerosAreIgnored) { EXPECT_EQ(Read(L"0000001/02/002003"), L"2003-02-01 00:00:00"); }

TEST(ParseDate, TwoNumbersAreADayOfTheCurrentYear) {
  ExpectRead(
      {{L"31/12", L"2026-12-31 00:00:00"}, {L"12/31", L"2026-12-31 00:00:00"}, {L"1/2", L"2026-02-01 00:00:00"}});
  EXPECT_EQ(ParseDate(L"29/2", 2024), FromCalendar({2024, 2, 29}));
}
TEST(ParseDate, TwoNumbersThatAreNoDayAreAMonth) {
  ExpectRead({{L"12/2023", L"2023-12-01 00:00:00"},
              {L"2023/12", L"2023-12-01 00:00:00"},
              {L"32/1", L"1932-01-01 00:00:00"},
              {L"29/2", L"2029-02-01 00:00:00"}});
}
TEST(ParseDate, WithoutAYearArgumentTheCurrentYearIsUsed) {
  const auto year = ToCalendar(Today()).year;
  const auto read = ParseDate(L"1/2");
  EXPECT_TRUE(read == FromCalendar({year, 2, 1}) || read == FromCalendar({year + 1, 2, 1}));
}

TEST(ParseDate, OneNumberIsNoDate) {
  for (const auto* text : {L"10", L"2023", L"20231231", L"45291", L"0", L"-1", L"+10", L"1e5"}) {
    EXPECT_EQ(Read(text), L"none") << text;
  }
}

TEST(ParseDate, ReadsTimes) {
  ExpectRead({{L"10:20", L"1899-12-30 10:20:00"},
              {L"10:20:30", L"1899-12-30 10:20:30"},
              {L"1:2:3", L"1899-12-30 01:02:03"},
              {L"10 : 20", L"1899-12-30 10:20:00"},
              {L"00:00", L"1899-12-30 00:00:00"},
              {L"23:59:59", L"1899-12-30 23:59:59"}});
}
TEST(ParseDate, RefusesTimesThatDoNotExist) {
  for (const auto* text : {L"24:00", L"24:00:00", L"10:60", L"23:59:60", L"10:20:30:40", L"10:", L":10", L"10:20:"}) {
    EXPECT_EQ(Read(text), L"none") << text;
  }
}
TEST(ParseDate, ReadsMorningAndAfternoon) {
  ExpectRead({{L"10:20 am", L"1899-12-30 10:20:00"},
              {L"10:20PM", L"1899-12-30 22:20:00"},
              {L"12:20 am", L"1899-12-30 00:20:00"},
              {L"12:20 pm", L"1899-12-30 12:20:00"},
              {L"13:20 am", L"1899-12-30 13:20:00"},
              {L"10am", L"1899-12-30 10:00:00"},
              {L"10 p", L"1899-12-30 22:00:00"}});
  for (const auto* text : {L"am", L"am 10:20", L"10:20 amx", L"10:20 a.m.", L"1/1/2023 am", L"1:2 pm pm", L"24 pm"}) {
    EXPECT_EQ(Read(text), L"none") << text;
  }
}

TEST(ParseDate, ReadsADateAndATimeInEitherOrder) {
  for (const auto* text : {L"31/12/2023 10:20:30", L"10:20:30 31/12/2023", L"2023-12-31 10:20:30",
                           L"31/12/2023,10:20:30", L"10.20.30 31/12/2023", L"31 12 2023 10:20:30"}) {
    EXPECT_EQ(Read(text), L"2023-12-31 10:20:30") << text;
  }
  ExpectRead({{L"2/3/4 1 pm", L"2004-03-02 13:00:00"}, {L"29/12/1899 06:00", L"1899-12-29 06:00:00"}});
  EXPECT_EQ(ParseDate(L"29/12/1899 06:00"), Date{-1.25});
}
TEST(ParseDate, RefusesADateAndATimeThatAreNotSeparated) {
  for (const auto* text : {L"1/2/2023/10:20", L"1/2/2023-10:20", L"10:20/1/2/2023", L"31/12/2023T10:20",
                           L"31/12/2023 10", L"2023-12-31 10:20:30.5", L"1/2 10:20 2023", L"10:20 11:30", L"10:20 3"}) {
    EXPECT_EQ(Read(text), L"none") << text;
  }
}

TEST(ParseDate, ReadsPortugueseMonthNames) {
  ExpectRead({{L"1 janeiro 2023", L"2023-01-01 00:00:00"},
              {L"2 fevereiro 2023", L"2023-02-02 00:00:00"},
              {L"3 março 2023", L"2023-03-03 00:00:00"},
              {L"3 MARÇO 2023", L"2023-03-03 00:00:00"},
              {L"4 abril 2023", L"2023-04-04 00:00:00"},
              {L"5 maio 2023", L"2023-05-05 00:00:00"},
              {L"6 junho 2023", L"2023-06-06 00:00:00"},
              {L"7 julho 2023", L"2023-07-07 00:00:00"},
              {L"8 agosto 2023", L"2023-08-08 00:00:00"},
              {L"9 setembro 2023", L"2023-09-09 00:00:00"},
              {L"10 outubro 2023", L"2023-10-10 00:00:00"},
              {L"11 novembro 2023", L"2023-11-11 00:00:00"},
              {L"12 dezembro 2023", L"2023-12-12 00:00:00"}});
}
TEST(ParseDate, ReadsAbbreviatedMonthNamesWithAndWithoutAFullStop) {
  constexpr std::wstring_view kNames[] = {L"jan", L"fev", L"mar", L"abr", L"mai", L"jun",
                                          L"jul", L"ago", L"set", L"out", L"nov", L"dez"};
  std::int32_t month = 0;
  for (const auto name : kNames) {
    ++month;
    EXPECT_EQ(ParseDate(L"1 " + std::wstring(name) + L" 2023", kCurrentYear), FromCalendar({2023, month, 1}));
    EXPECT_EQ(ParseDate(L"1-" + std::wstring(name) + L"-2023", kCurrentYear), FromCalendar({2023, month, 1}));
    EXPECT_EQ(ParseDate(L"1/" + std::wstring(name) + L"./2023", kCurrentYear), FromCalendar({2023, month, 1}));
  }
}
TEST(ParseDate, ThePositionOfTheMonthNameDecidesWhatTheNumbersAre) {
  ExpectRead({{L"1 abril 2", L"2002-04-01 00:00:00"},
              {L"31 abril 2", L"1931-04-02 00:00:00"},
              {L"abril 1 2", L"2002-04-01 00:00:00"},
              {L"abril 1, 2023", L"2023-04-01 00:00:00"},
              {L"abril 2023 1", L"none"},
              {L"1 2 abril", L"2001-04-02 00:00:00"},
              {L"2 2023 abril", L"none"}});
}
TEST(ParseDate, AMonthNameAndOneNumberAreADayOrElseAYear) {
  ExpectRead({{L"1 abril", L"2026-04-01 00:00:00"},
              {L"abril 30", L"2026-04-30 00:00:00"},
              {L"abril 31", L"1931-04-01 00:00:00"},
              {L"abril 2023", L"2023-04-01 00:00:00"},
              {L"abril/2023", L"2023-04-01 00:00:00"},
              {L"1abril2023", L"2023-04-01 00:00:00"}});
}
TEST(ParseDate, NamesOtherThanWholePortugueseOnesAreNoDate) {
  for (const auto* text : {L"abril", L"1 abrilx", L"1 abri 2023", L"1 february 2023", L"1 feb 2023", L"1 april 2023",
                           L"1 de abril de 2023", L"1 marco 2023", L"abril maio 1", L"1 abril 2 3"}) {
    EXPECT_EQ(Read(text), L"none") << text;
  }
}
TEST(ParseDate, DayNamesAreReadAndIgnored) {
  ExpectRead({{L"segunda-feira 1/2/2023", L"2023-02-01 00:00:00"},
              {L"terça-feira, 1 fevereiro 2023", L"2023-02-01 00:00:00"},
              {L"SÁBADO 1/2/2023", L"2023-02-01 00:00:00"},
              {L"dom 1/2/2023", L"2023-02-01 00:00:00"},
              {L"seg. 1/2/2023", L"2023-02-01 00:00:00"},
              {L"1/2 domingo", L"2026-02-01 00:00:00"},
              {L"domingo", L"none"},
              {L"segunda 1/2/2023", L"none"},
              {L"domingo/1/2/2023", L"none"},
              {L"sunday 1/2/2023", L"none"}});
}

TEST(ParseDate, SqlExpressionsAreNoDates) {
  for (const auto* text :
       {L"c.DATA", L"SYSDATE", L"'31/12/2023'", L"\"31/12/2023\"", L"#31/12/2023#", L"d.DT_ARMAZ + 1", L"a.X", L"m.MAI",
        L"NVL(d, 1)", L"DATE '2023-12-31'", L"{d '2023-12-31'}", L"?"}) {
    EXPECT_EQ(Read(text), L"none") << text;
  }
}
TEST(ParseDate, MalformedTextsAreNoDates) {
  for (const auto* text :
       {L"", L" ", L"/", L"31//12/2023", L"/31/12/2023", L"31/12/2023/", L"31/12/2023,", L"31/12/2023.",
        L"31--12--2023", L"1/2/3/4", L"1 2 3 4", L"-1/2/2023", L"1/-2/2023", L"31\\12\\2023", L"31_12_2023",
        L"(31/12/2023)", L"31/12/abc", L"31/12/2023 abc", L"10 . jan. 2023"}) {
    EXPECT_EQ(Read(text), L"none") << text;
  }
  EXPECT_EQ(Read(std::wstring_view(L"1/2/2023\0", 9)), L"none");
}

}  // namespace
}  // namespace kodra::values
