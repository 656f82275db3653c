// A date as a literal in quotes, the way Oracle, DB2 and MySQL read it back by a pattern.
#pragma once

#include <cstdint>

#include "values/dates.h"
#include "values/writer.h"

namespace kodra::sql {

// Whether a layout is one of SQLToDate's.
bool HasQuotedDate(std::int32_t layout) noexcept;

// The date in the order of the layout, '31/12/2023', '2023/12/31' or '2023/12/31 10:20:30'; nothing for a layout that
// is none.
struct QuotedDate {
  const values::Calendar& date;
  std::int32_t layout;

  void WriteTo(values::Writer& out) const;
};

}  // namespace kodra::sql
