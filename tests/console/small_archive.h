// An archive of a few rows that a test can write down, in either database.
#pragma once

#include <string>

#include "tests/db/sample.h"

namespace kodra::tests {

// Where a client reads it: two departments, two documents on paper, two containers with a module each, and no operator.
// Made once for the whole test program.
std::wstring SmallArchiveOn(Engine engine);

}  // namespace kodra::tests
