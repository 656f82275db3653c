// The differences between the databases in the rows of a report, each with its reason. Between the clients there is no
// difference: ADO and ODBC read the same values.
#pragma once

#include "tests/rows/engine.h"

namespace kodra::rows {

inline bool OnNoEngine(Engine) { return false; }

// SQLite's dialect writes the bounds of a period as quotients of day, month and year. These are not dates, and no
// document is between them.
inline bool HasNoPeriods(Engine engine) { return engine == Engine::kSqlite; }

// SQLite's dialect quotes the name of the column in an addition to a date. The addition is then to a text that is not a
// date, and its result is null.
inline bool AddsNoYearsToADate(Engine engine) { return engine == Engine::kSqlite; }

}  // namespace kodra::rows
