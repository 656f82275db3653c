#include "odbc/engine/dates.h"

#include <chrono>
#include <cmath>
#include <cwchar>

#include "values/characters.h"

namespace kodra::odbc {
namespace {

using std::chrono::day;
using std::chrono::days;
using std::chrono::month;
using std::chrono::sys_days;
using std::chrono::year;
using std::chrono::year_month_day;

constexpr sys_days kDayZero{year{1899} / 12 / 30};
constexpr double kMillisecondsADay = 86400000.0;

bool Exists(const CivilTime& t) {
  const year_month_day date{year{t.year}, month{static_cast<unsigned>(t.month)}, day{static_cast<unsigned>(t.day)}};
  return date.ok() && t.hour < 24 && t.minute < 60 && t.second < 60;
}

// Takes parts of a date off the front of a text.
class Parts {
 public:
  explicit Parts(std::wstring_view text) : rest_(text) {}

  bool Number(std::size_t digits, std::int32_t& out) {
    if (rest_.size() < digits) return false;
    out = 0;
    for (wchar_t c : rest_.substr(0, digits)) {
      if (!values::IsDigit(c)) return false;
      out = out * 10 + (c - L'0');
    }
    rest_.remove_prefix(digits);
    return true;
  }

  bool Take(wchar_t c) {
    if (rest_.empty() || rest_.front() != c) return false;
    rest_.remove_prefix(1);
    return true;
  }

  // Digits after the point, read as thousandths; the ones beyond are dropped.
  bool Fraction(std::int32_t& milliseconds) {
    std::int32_t scale = 100;
    const std::size_t before = rest_.size();
    for (; !rest_.empty() && values::IsDigit(rest_.front()); rest_.remove_prefix(1)) {
      milliseconds += (rest_.front() - L'0') * scale;
      scale /= 10;
    }
    return rest_.size() < before;
  }

  bool Done() const { return rest_.empty(); }
  bool StartsWithTime() const { return rest_.size() > 2 && rest_[2] == L':'; }

 private:
  std::wstring_view rest_;
};

bool ReadTime(Parts& parts, CivilTime& t) {
  if (!parts.Number(2, t.hour) || !parts.Take(L':') || !parts.Number(2, t.minute)) return false;
  if (!parts.Take(L':')) return true;
  if (!parts.Number(2, t.second)) return false;
  return !parts.Take(L'.') || parts.Fraction(t.millisecond);
}

bool ReadDate(Parts& parts, CivilTime& t) {
  return parts.Number(4, t.year) && parts.Take(L'-') && parts.Number(2, t.month) && parts.Take(L'-') &&
         parts.Number(2, t.day);
}

}  // namespace

Date DateOf(const CivilTime& t) {
  const year_month_day date{year{t.year}, month{static_cast<unsigned>(t.month)}, day{static_cast<unsigned>(t.day)}};
  const auto whole = static_cast<double>((sys_days{date} - kDayZero).count());
  const double part = (((t.hour * 60.0 + t.minute) * 60.0 + t.second) * 1000.0 + t.millisecond) / kMillisecondsADay;
  // The time of day counts away from zero: -1.25 is six in the morning of 29 December 1899.
  return {whole < 0 ? whole - part : whole + part};
}

CivilTime CivilOf(Date date) {
  double whole = std::trunc(date.days);
  double milliseconds = std::round(std::abs(date.days - whole) * kMillisecondsADay);
  if (milliseconds >= kMillisecondsADay) {
    whole += 1;
    milliseconds = 0;
  }
  const year_month_day civil{kDayZero + days{static_cast<int>(whole)}};
  auto rest = static_cast<std::int32_t>(milliseconds);
  CivilTime t;
  t.year = static_cast<int>(civil.year());
  t.month = static_cast<std::int32_t>(static_cast<unsigned>(civil.month()));
  t.day = static_cast<std::int32_t>(static_cast<unsigned>(civil.day()));
  t.millisecond = rest % 1000;
  rest /= 1000;
  t.second = rest % 60;
  rest /= 60;
  t.minute = rest % 60;
  t.hour = rest / 60;
  return t;
}

std::optional<Date> ParseIsoDate(std::wstring_view text) {
  Parts parts(text);
  CivilTime t;
  if (parts.StartsWithTime()) {
    if (!ReadTime(parts, t)) return std::nullopt;
  } else {
    if (!ReadDate(parts, t)) return std::nullopt;
    if ((parts.Take(L' ') || parts.Take(L'T')) && !ReadTime(parts, t)) return std::nullopt;
  }
  if (!parts.Done() || !Exists(t)) return std::nullopt;
  return DateOf(t);
}

std::wstring IsoDate(Date date) {
  const CivilTime t = CivilOf(date);
  wchar_t text[64];
  const bool midnight = t.hour == 0 && t.minute == 0 && t.second == 0 && t.millisecond == 0;
  if (midnight) {
    std::swprintf(text, std::size(text), L"%04d-%02d-%02d", t.year, t.month, t.day);
  } else if (t.millisecond == 0) {
    std::swprintf(text, std::size(text), L"%04d-%02d-%02d %02d:%02d:%02d", t.year, t.month, t.day, t.hour, t.minute,
                  t.second);
  } else {
    std::swprintf(text, std::size(text), L"%04d-%02d-%02d %02d:%02d:%02d.%03d", t.year, t.month, t.day, t.hour,
                  t.minute, t.second, t.millisecond);
  }
  return text;
}

}  // namespace kodra::odbc
