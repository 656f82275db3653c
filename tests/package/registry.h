// The functions of tests/wine that dump and compare the registry.
#pragma once

#include "tests/wine/registered_rows.h"
#include "tests/wine/registry_dump.h"

namespace kodra::package {

using face::Dump;
using face::DumpClasses;
using face::ExpectSame;
using face::RegistryLines;
using face::Sorted;
using face::Without;

}  // namespace kodra::package
