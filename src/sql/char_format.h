// The date formats that SQLToChar translates.
#pragma once

#include "values/piece.h"

namespace kodra::sql {

enum class CharFormat { kDateAndHour, kDate, kHour, kOther };

// The format that a text names, in any letter case; kOther for any other text.
CharFormat CharFormatOf(values::Piece format) noexcept;

}  // namespace kodra::sql
