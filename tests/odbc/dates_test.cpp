#include "odbc/engine/dates.h"

#include <gtest/gtest.h>

namespace kodra::odbc {
namespace {

TEST(Dates, DayZeroIsThe30thOfDecember1899) { EXPECT_EQ(DateOf({1899, 12, 30, 0, 0, 0, 0}), Date{0}); }

TEST(Dates, TheTimeOfDayIsTheFraction) { EXPECT_EQ(DateOf({2020, 1, 2, 6, 0, 0, 0}), Date{43832.25}); }

TEST(Dates, BeforeDayZeroTheTimeOfDayCountsAwayFromZero) {
  EXPECT_EQ(DateOf({1899, 12, 29, 6, 0, 0, 0}), Date{-1.25});
  EXPECT_EQ(CivilOf(Date{-1.25}), (CivilTime{1899, 12, 29, 6, 0, 0, 0}));
}

TEST(Dates, EveryMillisecondIsConvertedBothWays) {
  const CivilTime times[] = {{2020, 2, 29, 23, 59, 59, 999}, {2026, 11, 20, 13, 7, 5, 1}, {1950, 6, 1, 0, 0, 0, 1}};
  for (const CivilTime& time : times) EXPECT_EQ(CivilOf(DateOf(time)), time);
}

TEST(Dates, AMomentThatRoundsToMidnightIsTheNextDay) {
  EXPECT_EQ(CivilOf(Date{43831.9999999999}), (CivilTime{2020, 1, 2, 0, 0, 0, 0}));
}

TEST(Dates, IsoTextIsReadWithOrWithoutTimeAndSeconds) {
  EXPECT_EQ(ParseIsoDate(L"2020-01-02"), Date{43832});
  EXPECT_EQ(ParseIsoDate(L"2020-01-02 06:00"), Date{43832.25});
  EXPECT_EQ(ParseIsoDate(L"2020-01-02T06:00:00"), Date{43832.25});
  EXPECT_EQ(ParseIsoDate(L"2020-01-02 06:00:00.000"), Date{43832.25});
  EXPECT_EQ(ParseIsoDate(L"12:00:00"), Date{0.5});
}

TEST(Dates, OtherTextIsNoDate) {
  const wchar_t* const texts[] = {L"",
                                  L"02/01/2020",
                                  L"2020-1-2",
                                  L"2020-02-30",
                                  L"2020-13-01",
                                  L"2020-01-02x",
                                  L"2020-01-02 25:00",
                                  L"2020-01-02 06:61",
                                  L"amanhã",
                                  L"2020-01",
                                  L"2020-01-02 06:00:00."};
  for (const wchar_t* text : texts) EXPECT_EQ(ParseIsoDate(text), std::nullopt) << text;
}

TEST(Dates, ADateIsWrittenWithoutTrailingZeroParts) {
  EXPECT_EQ(IsoDate(Date{43832}), L"2020-01-02");
  EXPECT_EQ(IsoDate(Date{43832.25}), L"2020-01-02 06:00:00");
  EXPECT_EQ(IsoDate(DateOf({2020, 1, 2, 6, 0, 0, 7})), L"2020-01-02 06:00:00.007");
}

}  // namespace
}  // namespace kodra::odbc
