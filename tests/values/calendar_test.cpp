#include <gtest/gtest.h>

#include <cmath>
#include <ctime>
#include <limits>
#include <ostream>

#include "tests/recorder/raised.h"
#include "values/dates.h"

namespace kodra::values {

void PrintTo(const Calendar& c, std::ostream* out) {
  *out << c.year << '-' << c.month << '-' << c.day << ' ' << c.hour << ':' << c.minute << ':' << c.second;
}

namespace {

TEST(Calendar, DayZeroIsThe30thOfDecember1899) {
  EXPECT_EQ(ToCalendar({0}), (Calendar{1899, 12, 30}));
  EXPECT_EQ(FromCalendar({1899, 12, 30}), Date{0});
}
TEST(Calendar, DaysAndTimesOfDayAreConvertedBothWays) {
  EXPECT_EQ(FromCalendar({2023, 12, 31}), Date{45291});
  EXPECT_EQ(FromCalendar({1899, 12, 31, 12}), Date{1.5});
  EXPECT_EQ(ToCalendar({1.5}), (Calendar{1899, 12, 31, 12}));
  EXPECT_EQ(ToCalendar({45291.25}), (Calendar{2023, 12, 31, 6}));
  EXPECT_EQ(ToCalendar({45291.430902777778}), (Calendar{2023, 12, 31, 10, 20, 30}));
}
TEST(Calendar, BeforeDayZeroTheTimeOfDayStillRunsForward) {
  EXPECT_EQ(ToCalendar({-1}), (Calendar{1899, 12, 29}));
  EXPECT_EQ(ToCalendar({-1.25}), (Calendar{1899, 12, 29, 6}));
  EXPECT_EQ(FromCalendar({1899, 12, 29, 6}), Date{-1.25});
  EXPECT_EQ(ToCalendar({-0.25}), (Calendar{1899, 12, 30, 6}));
}
TEST(Calendar, ReachesFromTheYear100To9999) {
  EXPECT_EQ(FromCalendar({100, 1, 1}), Date{-657434});
  EXPECT_EQ(ToCalendar({-657434}), (Calendar{100, 1, 1}));
  EXPECT_EQ(ToCalendar({-657434.5}), (Calendar{100, 1, 1, 12}));
  EXPECT_EQ(FromCalendar({9999, 12, 31}), Date{2958465});
  EXPECT_EQ(ToCalendar({2958465.5}), (Calendar{9999, 12, 31, 12}));
}
TEST(Calendar, RaisesAnOverflowOutsideItsYears) {
  const double roundsIntoTheYear10000 = 2958465.999999;
  for (const double days : {-657435.0, 2958466.0, roundsIntoTheYear10000, 1e300, -1e300,
                            std::numeric_limits<double>::infinity(), std::nan("")})
    EXPECT_EQ(recorder::RaisedBy([&] { ToCalendar({days}); }), recorder::kOverflow) << days;
}
TEST(Calendar, RoundsToTheSecondAndIntoTheNextDay) {
  EXPECT_EQ(ToCalendar({1 + 0.4 / 86400}), (Calendar{1899, 12, 31, 0, 0, 0}));
  EXPECT_EQ(ToCalendar({1 + 0.6 / 86400}), (Calendar{1899, 12, 31, 0, 0, 1}));
  EXPECT_EQ(ToCalendar({45290.9999999}), (Calendar{2023, 12, 31}));
  EXPECT_EQ(ToCalendar({-1.9999999}), (Calendar{1899, 12, 30}));
}
TEST(Calendar, EverySecondOfADayIsConvertedBothWays) {
  for (const std::int32_t year : {1899, 1850, 2024}) {
    for (std::int32_t second = 0; second < 86400; second += 7) {
      const Calendar calendar{year, 2, 3, second / 3600, second / 60 % 60, second % 60};
      ASSERT_EQ(ToCalendar(FromCalendar(calendar)), calendar);
    }
  }
}

TEST(Calendar, TellsWhichDaysExist) {
  struct Day {
    std::int32_t year, month, day;
    bool exists;
  };
  const Day kDays[] = {
      {2024, 2, 29, true}, {2000, 2, 29, true},  {1900, 2, 29, false}, {2023, 2, 29, false},  {2023, 4, 31, false},
      {2023, 0, 1, false}, {2023, 13, 1, false}, {2023, 1, 0, false},  {2023, 1, 257, false}, {100, 1, 1, true},
      {99, 12, 31, false}, {9999, 12, 31, true}, {10000, 1, 1, false},
  };
  for (const auto& [year, month, day, exists] : kDays)
    EXPECT_EQ(IsDay(year, month, day), exists) << year << "-" << month << "-" << day;
}

TEST(Today, IsTheLocalClocksDayWithoutTime) {
  std::time_t before = 0;
  Date today;
  std::tm local{};
  do {  // again if midnight passed in between
    before = std::time(nullptr);
    local = *std::localtime(&before);
    today = Today();
    before = std::time(nullptr);
  } while (std::localtime(&before)->tm_mday != local.tm_mday);
  EXPECT_EQ(ToCalendar(today), (Calendar{local.tm_year + 1900, local.tm_mon + 1, local.tm_mday}));
}

}  // namespace
}  // namespace kodra::values
