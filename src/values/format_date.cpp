#include "values/format_date.h"

namespace kodra::values {

void DateAsText::WriteTo(Writer& out) const {
  const Calendar midnightOfDayZero;
  const bool dayZero = date_.year == midnightOfDayZero.year && date_.month == midnightOfDayZero.month &&
                       date_.day == midnightOfDayZero.day;
  const bool midnight = date_.hour == 0 && date_.minute == 0 && date_.second == 0;
  if (dayZero)
    out.Append(DateBy<L"hh:nn:ss">(date_));
  else if (midnight)
    out.Append(DateBy<L"dd/mm/yyyy">(date_));
  else
    out.Append(DateBy<L"dd/mm/yyyy hh:nn:ss">(date_));
}

std::wstring DateToText(Date date) { return ToString(DateAsText(ToCalendar(date))); }

}  // namespace kodra::values
