// Oracle's forms, for the dialects that say they use them.
#pragma once

#include <cstdint>

#include "text/dates.h"
#include "text/piece.h"
#include "text/writer.h"

namespace kodra::sql::oracle_forms {

void DateAdd(text::Writer& out, text::Piece interval, text::Piece number, text::Piece date);
void ToDate(text::Writer& out, text::Piece text, std::int32_t layout);
void DateLiteral(text::Writer& out, const text::Calendar& date, std::int32_t layout);
void ToChar(text::Writer& out, text::Piece expr, text::Piece format);

}  // namespace kodra::sql::oracle_forms
