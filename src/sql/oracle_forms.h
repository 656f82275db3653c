// Oracle's forms, for the dialects that say they use them.
#pragma once

#include <cstdint>

#include "values/dates.h"
#include "values/piece.h"
#include "values/writer.h"

namespace kodra::sql::oracle_forms {

void DateAdd(values::Writer& out, values::Piece interval, values::Piece number, values::Piece date);
void ToDate(values::Writer& out, values::Piece text, std::int32_t layout);
void DateLiteral(values::Writer& out, const values::Calendar& date, std::int32_t layout);
void ToChar(values::Writer& out, values::Piece expr, values::Piece format);

}  // namespace kodra::sql::oracle_forms
