// A value as text: in ISO form for machines, in Brazilian form for people. Null and Empty have no text.
#pragma once

#include <optional>
#include <string>

#include "console/formats/row_writer.h"

namespace kodra::console {

// Whether there is no value: Null, or a variant that was never assigned.
bool IsNothing(const Value& value);

// Whether the date, rounded to the second, is in the years 100 to 9999. A date outside is written in ISO form for
// people too, with the fraction of its second.
bool IsInCalendar(Date date);

// The value of any numeric type as a double; nothing for a value of another type. A single becomes the number that its
// digits show: 0.1, not 0.100000001490116.
std::optional<double> NumberIn(const Value& value);

// For machines, in UTF-8: the text itself, 1234.5, true or false, 2023-12-31 or 2023-12-31T10:20:30. The time of day is
// written in a column of moments, and in other columns unless it is midnight.
std::string IsoText(const Value& value, ColumnKind kind);
// The same at the end of `out`.
void AppendIsoText(const Value& value, ColumnKind kind, std::string& out);

// For people: the text itself, 1234,5, Sim or Não, 31/12/2023 or 31/12/2023 10:20:30. The time of day is written as in
// ISO form.
std::wstring BrazilianText(const Value& value, ColumnKind kind);

// A count with points between groups of three digits: 1.234.567.
std::wstring CountText(std::uint64_t count);

}  // namespace kodra::console
