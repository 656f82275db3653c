// The sample archive in both databases, created once per test program, and an archive without rows. Tests must not
// change them.
#pragma once

#include <filesystem>
#include <string>

#include "tests/rows/engine.h"
#include "tests/rows/sample.h"

namespace kodra::tests {

using rows::Engine;
using rows::EngineName;
using rows::SampleArchive;

// The connection string of the sample archive.
std::wstring SampleOn(Engine engine);
// The SQLite file of the sample archive.
std::filesystem::path SampleFile();
// The connection string of the archive whose tables are all empty.
std::wstring EmptyOn(Engine engine);

}  // namespace kodra::tests
