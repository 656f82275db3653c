#include "odbc/engine/dates.h"

#include <cmath>
#include <cwchar>

#include "values/characters.h"
#include "values/dates.h"

namespace kodra::odbc {
namespace {

constexpr double kMillisecondsADay = 86400000.0;

bool Exists(const CivilTime& t) { return IsDay(t) && t.hour < 24 && t.minute < 60 && t.second < 60; }

// Reads the parts of a date from the front of a text.
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

  // Digits after the point, read as thousandths; further digits are ignored.
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
  const double time = (((t.hour * 60.0 + t.minute) * 60.0 + t.second) * 1000.0 + t.millisecond) / kMillisecondsADay;
  return values::FromDayAndTime(values::DayNumber({t.year, t.month, t.day}), time);
}

CivilTime CivilOf(Date date) {
  double whole = std::trunc(date.days);
  double milliseconds = std::round(std::abs(date.days - whole) * kMillisecondsADay);
  if (milliseconds >= kMillisecondsADay) {
    whole += 1;
    milliseconds = 0;
  }
  const values::CivilDay day = values::DayOfNumber(static_cast<std::int32_t>(whole));
  auto rest = static_cast<std::int32_t>(milliseconds);
  CivilTime t;
  t.year = day.year;
  t.month = day.month;
  t.day = day.day;
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

bool IsDay(const CivilTime& t) { return values::IsCivilDay({t.year, t.month, t.day}); }

std::wstring IsoDate(Date date) { return IsoText(CivilOf(date)); }

std::wstring IsoText(const CivilTime& t) {
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
