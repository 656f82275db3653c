#include <algorithm>
#include <chrono>
#include <cmath>
#include <ctime>

#include "values/dates.h"
#include "values/erro.h"

namespace kodra::values {
namespace {

using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::year_month_day;

constexpr std::int32_t kFirstYear = 100;
constexpr std::int32_t kLastYear = 9999;
constexpr std::int32_t kSecondsPerDay = 24 * 60 * 60;

constexpr year_month_day DateOf(std::int32_t year, std::int32_t month, std::int32_t day) {
  return {std::chrono::year{year}, std::chrono::month{static_cast<unsigned>(month)},
          std::chrono::day{static_cast<unsigned>(day)}};
}

constexpr sys_days kDayZero = DateOf(1899, 12, 30);
static_assert((sys_days{DateOf(kFirstYear, 1, 1)} - kDayZero).count() == kFirstDay);
static_assert((sys_days{DateOf(kLastYear, 12, 31)} - kDayZero).count() == kLastDay);

std::tm LocalNow() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
#ifdef _WIN32
  localtime_s(&local, &now);
#else
  localtime_r(&now, &local);
#endif
  return local;
}

}  // namespace

bool IsDay(std::int32_t year, std::int32_t month, std::int32_t day) noexcept {
  if (year < kFirstYear || year > kLastYear || month < 1 || month > 12 || day < 1 || day > 31) return false;
  return IsCivilDay({year, month, day});
}

bool IsCivilDay(CivilDay day) noexcept { return DateOf(day.year, day.month, day.day).ok(); }

std::int32_t DayNumber(CivilDay day) noexcept {
  return static_cast<std::int32_t>((sys_days{DateOf(day.year, day.month, day.day)} - kDayZero).count());
}

CivilDay DayOfNumber(std::int32_t number) noexcept {
  const year_month_day date{kDayZero + days{number}};
  return {.year = static_cast<int>(date.year()),
          .month = static_cast<std::int32_t>(static_cast<unsigned>(date.month())),
          .day = static_cast<std::int32_t>(static_cast<unsigned>(date.day()))};
}

Date FromDayAndTime(std::int32_t dayNumber, double time) noexcept {
  return {dayNumber < 0 ? dayNumber - time : dayNumber + time};
}

Date FromCalendar(const Calendar& calendar) {
  const double time = (calendar.hour * 3600 + calendar.minute * 60 + calendar.second) / double{kSecondsPerDay};
  return FromDayAndTime(DayNumber({calendar.year, calendar.month, calendar.day}), time);
}

Calendar ToCalendar(Date date) {
  // Written this way so that a count that is not a number fails too.
  const bool inside = date.days > kFirstDay - 1 && date.days < kLastDay + 1;
  if (!inside) throw MakeRuntimeError(RuntimeError::kOverflow);

  auto dayNumber = static_cast<std::int32_t>(date.days);
  const double time = std::abs(date.days - dayNumber);
  auto seconds = time == 0 ? 0 : static_cast<std::int32_t>(std::floor(time * kSecondsPerDay + 0.5));
  if (seconds == kSecondsPerDay) {
    seconds = 0;
    ++dayNumber;
  }
  if (dayNumber > kLastDay) throw MakeRuntimeError(RuntimeError::kOverflow);

  const CivilDay day = DayOfNumber(dayNumber);
  return {.year = day.year,
          .month = day.month,
          .day = day.day,
          .hour = seconds / 3600,
          .minute = seconds / 60 % 60,
          .second = seconds % 60};
}

Date Today() {
  const std::tm local = LocalNow();
  return FromCalendar({.year = local.tm_year + 1900, .month = local.tm_mon + 1, .day = local.tm_mday});
}

Date Now() {
  const std::tm local = LocalNow();
  return FromCalendar({.year = local.tm_year + 1900,
                       .month = local.tm_mon + 1,
                       .day = local.tm_mday,
                       .hour = local.tm_hour,
                       .minute = local.tm_min,
                       .second = std::min(local.tm_sec, 59)});  // a leap second counts as second 59
}

}  // namespace kodra::values
