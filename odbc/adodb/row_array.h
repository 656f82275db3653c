// Rows as automation passes them to a script.
#pragma once

#include <cstdint>
#include <vector>

#include "odbc/adodb/arguments.h"

namespace kodra::adodb {

// An array of variants with two dimensions, the columns by the rows, both from 0. Owned by the caller.
VARIANT RowArray(const std::vector<std::vector<Value>>& rows, const std::vector<std::int32_t>& columns);

}  // namespace kodra::adodb
