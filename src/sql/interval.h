// The units in which SQLDateAdd counts.
#pragma once

#include <string_view>

namespace kodra::sql {

enum class Interval { kMinutes, kDays, kMonths, kYears, kOther };

// The unit that an interval's name means, in any letter case; kOther for a name that means none.
Interval IntervalOf(std::wstring_view name) noexcept;

}  // namespace kodra::sql
