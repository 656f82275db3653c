// A value as text: in ISO form for machines, in Brazilian form for people. Null and Empty have no text.
#pragma once

#include <optional>
#include <string>

#include "console/formats/row_writer.h"

namespace kodra::console {

// Whether the value is none: null, or a variant never assigned.
bool IsNothing(const Value& value);

// Whether the date, rounded to the second, is in the years 100 to 9999. One outside has its ISO form in both kinds of
// text, with the fraction of a second.
bool IsInCalendar(Date date);

// The number that a value of any numeric type is; nothing for every other value. A single is the number that its digits
// show: 0.1, not 0.100000001490116.
std::optional<double> NumberIn(const Value& value);

// For machines, UTF-8: the text itself, 1234.5, true or false, 2023-12-31 or 2023-12-31T10:20:30. A date has its time
// of day in a column of moments, and elsewhere when it is not midnight.
std::string IsoText(const Value& value, ColumnKind kind);

// For people: the text itself, 1234,5, Sim or Não, 31/12/2023 or 31/12/2023 10:20:30.
std::wstring BrazilianText(const Value& value);

// A count with points between its thousands: 1.234.567.
std::wstring CountText(std::uint64_t count);

}  // namespace kodra::console
