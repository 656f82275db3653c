// What a client in Wine does for the tests of rows: values into and out of automation's variants, and recordsets read
// into tables.
#pragma once

#include "tests/rows/driver.h"
#include "tests/wine/report_rows.h"

namespace kodra::face {

// A value that a client sets in a parameter object.
Var VarOf(const Value& value);
// What a field holds. A type that no field of a report has is a failure of the test.
Value ValueOf(const Var& field);

// All columns and all rows from the current one on.
rows::Table ReadTable(const Ref<IDispatch>& recordset);

}  // namespace kodra::face
