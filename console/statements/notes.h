// What a reader of a report's statements must know beyond their text.
#pragma once

#include <string>
#include <vector>

#include "console/statements/capture.h"

namespace kodra::console {

// One sentence each, Brazilian Portuguese in UTF-8: what replaces values that are only known at the installation, and
// which statement depends on the data of another.
std::vector<std::string> NotesOn(const reports::ReportMethod& method, const Captured& captured);

}  // namespace kodra::console
