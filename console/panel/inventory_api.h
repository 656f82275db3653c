// The comparison of scanned codes with the archive, for the page.
//
//   POST /api/inventory  {"of": "documents" or "modules", "places", "codes", "run", "format"}
//
// "places" and "codes" have a code on each line; without "codes", the answer says what is expected. With "format" it is
// a file, and otherwise lines of JSON as page_writer.h describes them, after {"warning": "…"} if there is one.
#pragma once

#include <string>

#include "console/panel/http.h"
#include "console/panel/runs.h"

namespace kodra::console::panel {

// Raises what Runs::Do raises, and what the reports raise.
Answer CompareInventory(const Request& request, const std::wstring& connection, Runs& runs);

}  // namespace kodra::console::panel
