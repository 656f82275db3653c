#include <gtest/gtest.h>

#include <cmath>
#include <ctime>
#include <limits>
#include <ostream>

#include "values/dates.h"
#include "values/erro.h"

namespace kodra::values {

void PrintTo(const Calendar& c, std::ostream* out) {
  *out << c.year << '-' << c.month << '-' << c.day << ' ' << c.hour << ':' << c.minute << ':' << c.second;
}

namespace {

std::int32_t ErrorOf(double days) {
  try {
    ToCalendar({days});
  } catch (const Erro& erro) {
    return erro.Number();
  }
  return 0;
}

TEST(Calendar, DayZeroIsThe30thOfDecember1899) {
  EXPECT_EQ(ToCalendar({0}), (Calendar{1899, 12, 30}));
  EXPECT_EQ(FromCalendar({1899, 12, 30}), Date{0});
}
TEST(Calendar, DaysAndTimesOfDayGoBothWays) {
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
  EXPECT_EQ(ErrorOf(-657435), 6);
  EXPECT_EQ(ErrorOf(2958466), 6);
  EXPECT_EQ(ErrorOf(2958465.999999), 6);  // rounds into the year 10000
  EXPECT_EQ(ErrorOf(1e300), 6);
  EXPECT_EQ(ErrorOf(-1e300), 6);
  EXPECT_EQ(ErrorOf(std::numeric_limits<double>::infinity()), 6);
  EXPECT_EQ(ErrorOf(std::nan("")), 6);
}
TEST(Calendar, RoundsToTheSecondAndIntoTheNextDay) {
  EXPECT_EQ(ToCalendar({1 + 0.4 / 86400}), (Calendar{1899, 12, 31, 0, 0, 0}));
  EXPECT_EQ(ToCalendar({1 + 0.6 / 86400}), (Calendar{1899, 12, 31, 0, 0, 1}));
  EXPECT_EQ(ToCalendar({45290.9999999}), (Calendar{2023, 12, 31}));
  EXPECT_EQ(ToCalendar({-1.9999999}), (Calendar{1899, 12, 30}));
}
TEST(Calendar, EverySecondOfADayComesBack) {
  for (const std::int32_t year : {1899, 1850, 2024}) {
    for (std::int32_t second = 0; second < 86400; second += 7) {
      const Calendar calendar{year, 2, 3, second / 3600, second / 60 % 60, second % 60};
      ASSERT_EQ(ToCalendar(FromCalendar(calendar)), calendar);
    }
  }
}

TEST(Calendar, KnowsWhichDaysExist) {
  EXPECT_TRUE(IsDay(2024, 2, 29));
  EXPECT_TRUE(IsDay(2000, 2, 29));
  EXPECT_FALSE(IsDay(1900, 2, 29));
  EXPECT_FALSE(IsDay(2023, 2, 29));
  EXPECT_FALSE(IsDay(2023, 4, 31));
  EXPECT_FALSE(IsDay(2023, 0, 1));
  EXPECT_FALSE(IsDay(2023, 13, 1));
  EXPECT_FALSE(IsDay(2023, 1, 0));
  EXPECT_FALSE(IsDay(2023, 1, 257));
  EXPECT_TRUE(IsDay(100, 1, 1));
  EXPECT_FALSE(IsDay(99, 12, 31));
  EXPECT_TRUE(IsDay(9999, 12, 31));
  EXPECT_FALSE(IsDay(10000, 1, 1));
}

TEST(Today, IsTheLocalClocksDayWithoutTime) {
  std::time_t before = 0;
  Date today;
  std::tm local{};
  do {  // once more, should midnight pass in between
    before = std::time(nullptr);
    local = *std::localtime(&before);
    today = Today();
    before = std::time(nullptr);
  } while (std::localtime(&before)->tm_mday != local.tm_mday);
  EXPECT_EQ(ToCalendar(today), (Calendar{local.tm_year + 1900, local.tm_mon + 1, local.tm_mday}));
}

}  // namespace
}  // namespace kodra::values
