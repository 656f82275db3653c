// The date formats that SQLToChar translates.
#pragma once

#include <string_view>

namespace kodra::sql {

enum class CharFormat { kDateAndHour, kDate, kHour, kOther };

// The format that a text names, in any letter case; kOther when it names none.
CharFormat CharFormatOf(std::wstring_view format) noexcept;

}  // namespace kodra::sql
