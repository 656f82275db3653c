// The sample archive in memory and in both databases, made once for the whole test program, and an archive without any
// row. Tests read them only.
//
// To the generated rows come a few that the reports' edge cases need; SampleArchive() has them too.
#pragma once

#include <string>

#include "testbed/archive/archive.h"

namespace kodra::tests {

enum class Engine { kSqlite, kMariaDb };

// The archive's rows, those that the databases hold.
const testbed::Archive& SampleArchive();

// Where a client reads the sample archive.
std::wstring SampleOn(Engine engine);
// Where it reads the archive whose tables are all empty.
std::wstring EmptyOn(Engine engine);

// Today, by the databases' clock.
testbed::Day Today();

}  // namespace kodra::tests
