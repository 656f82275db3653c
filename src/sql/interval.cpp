#include "sql/interval.h"

#include "values/upper.h"

namespace kodra::sql {
namespace {

struct Name {
  std::wstring_view text;
  Interval interval;
};

constexpr Name kNames[] = {
    {L"MINUTE", Interval::kMinutes}, {L"MIN", Interval::kMinutes}, {L"NN", Interval::kMinutes},
    {L"DAY", Interval::kDays},       {L"DD", Interval::kDays},     {L"D", Interval::kDays},
    {L"MONTH", Interval::kMonths},   {L"MM", Interval::kMonths},   {L"M", Interval::kMonths},
    {L"YEAR", Interval::kYears},     {L"YYYY", Interval::kYears},  {L"Y", Interval::kYears},
    {L"A", Interval::kYears},        {L"AA", Interval::kYears},    {L"AAAA", Interval::kYears},
};

}  // namespace

Interval IntervalOf(std::wstring_view name) noexcept {
  for (const Name& known : kNames) {
    if (values::EqualIgnoringCase(name, known.text)) return known.interval;
  }
  return Interval::kOther;
}

}  // namespace kodra::sql
