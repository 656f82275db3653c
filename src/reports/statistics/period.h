// The period of a statistic: the dates that a client chose, as a heading and as bounds.
#pragma once

#include "sql/tradutor_sql.h"
#include "values/automation.h"
#include "values/format_date.h"

namespace kodra::reports {

// Dates without time, both inclusive.
struct Period {
  Date first;
  Date last;
};

// Reads DataInicial and DataFinal.
Period ReadPeriod(AutomationObject& parameters);

// What a statement says of a period. Its fragments look into it until they are written.
class StatedPeriod {
 public:
  // Raises RuntimeError::kOverflow for a date outside the calendar.
  explicit StatedPeriod(const Period& period)
      : first_(values::ToCalendar(period.first)), last_(values::ToCalendar(period.last)) {}

  // The heading as an SQL text literal: 'Período: dd/mm/yyyy a dd/mm/yyyy'.
  auto Title() const {
    return values::Written([this](values::Writer& out) {
      out.Append(L"'Período: ", values::DateBy<L"dd/mm/yyyy">(first_), L" a ", values::DateBy<L"dd/mm/yyyy">(last_),
                 L"'");
    });
  }

  // "<column> BETWEEN <first> AND <last>", each bound by SQLToDate in `layout` from the date as Brazilian text.
  auto Between(values::Piece column, std::int32_t layout) const {
    const auto bound = [layout](const values::Calendar& date) {
      return sql::SQLToDate(date, values::DateAsText(date), layout);
    };
    return values::Written([column, first = bound(first_), last = bound(last_)](values::Writer& out) {
      out.Append(column, L" BETWEEN ", first, L" AND ", last);
    });
  }

 private:
  values::Calendar first_;
  values::Calendar last_;
};

}  // namespace kodra::reports
