// The period of a statistic: the dates that a client chose, as a heading and as bounds.
#pragma once

#include "platform/automation.h"
#include "sql/tradutor_sql.h"
#include "text/format_date.h"

namespace kodra::reports {

// Dates without time, both inclusive.
struct Period {
  platform::Date first;
  platform::Date last;
};

// Reads DataInicial and DataFinal.
Period ReadPeriod(platform::AutomationObject& parameters);

// What a statement says of a period. Its fragments look into it until they are written.
class StatedPeriod {
 public:
  // Raises RuntimeError::kOverflow for a date outside the calendar.
  explicit StatedPeriod(const Period& period)
      : first_(text::ToCalendar(period.first)), last_(text::ToCalendar(period.last)) {}

  // The heading as an SQL text literal: 'Período: dd/mm/yyyy a dd/mm/yyyy'.
  auto Title() const {
    return text::Written([this](text::Writer& out) {
      out.Append(L"'Período: ", text::DateBy<L"dd/mm/yyyy">(first_), L" a ", text::DateBy<L"dd/mm/yyyy">(last_), L"'");
    });
  }

  // "<column> BETWEEN <first> AND <last>", each bound by SQLToDate in `layout` from the date as Brazilian text.
  auto Between(text::Piece column, std::int32_t layout) const {
    const auto bound = [layout](const text::Calendar& date) {
      return sql::SQLToDate(date, text::DateAsText(date), layout);
    };
    return text::Written([column, first = bound(first_), last = bound(last_)](text::Writer& out) {
      out.Append(column, L" BETWEEN ", first, L" AND ", last);
    });
  }

 private:
  text::Calendar first_;
  text::Calendar last_;
};

}  // namespace kodra::reports
