// The units of SQLDateAdd.
#pragma once

#include <string_view>

namespace kodra::sql {

enum class Interval { kMinutes, kDays, kMonths, kYears, kOther };

// The unit that an interval's name denotes, in any letter case; kOther when it denotes none.
Interval IntervalOf(std::wstring_view name) noexcept;

}  // namespace kodra::sql
