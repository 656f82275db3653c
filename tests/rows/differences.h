// The differences between the databases in the rows of a report, each with its reason. The clients do not differ: ADO
// and ODBC read the same values.
#pragma once

#include "tests/rows/engine.h"

namespace kodra::rows {

inline bool Nowhere(Engine) { return false; }

// SQLite's dialect writes the bounds of a period as quotients of day, month and year, which are not dates: no document
// lies between them.
inline bool HasNoPeriods(Engine engine) { return engine == Engine::kSqlite; }

// SQLite's addition to a date quotes the column's name: it adds to a text that is not a date, so the sum is a null.
inline bool AddsNoYearsToADate(Engine engine) { return engine == Engine::kSqlite; }

}  // namespace kodra::rows
