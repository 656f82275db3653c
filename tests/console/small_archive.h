// An archive with so few rows that a test can contain the whole output, on both databases.
#pragma once

#include <string>

#include "tests/db/sample.h"

namespace kodra::tests {

// The connection string of the archive: two departments, two documents on paper, two containers with one module each,
// no operator and no event. The archive is created once per test program.
std::wstring SmallArchiveOn(Engine engine);

}  // namespace kodra::tests
