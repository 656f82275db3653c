// The sample archive in both databases, an archive without rows, and other databases: each is created once per test
// program. Tests must not change them.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

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
// The connection string of a database of that name, which the statements make at the first call.
std::wstring DatabaseOf(Engine engine, const std::wstring& name, const std::vector<std::wstring>& statements);

}  // namespace kodra::tests
