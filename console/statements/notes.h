// What a reader of a report's statements must know beyond their text.
#pragma once

#include <string>
#include <vector>

#include "console/statements/capture.h"

namespace kodra::console {

// One sentence per note, in Brazilian Portuguese (UTF-8): what is in the place of values that only the installation
// knows, and which statement depends on the data of another.
std::vector<std::string> NotesOn(const reports::ReportMethod& method, const Captured& captured);

}  // namespace kodra::console
