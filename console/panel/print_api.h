// The pages that the panel prints: labels and papers.
//
//   POST /api/labels  {"kind", "list", "first", "last", "department", "stock" or "ownStock", "firstLabel", "copies",
//                      "code", "shift", "outline", "withPlace", "organisation", "logo", "run"}
//   POST /api/paper   {"paper", "parameters", "organisation", "logo", "run"}
//
// The answer is {"pdf": the file in base64 or null, "warnings": […], "problems": […]}: the bytes that the console
// writes with the same arguments, and what it says. Only "kind", "paper" and "run" must be there; "logo" is described
// in request_json.h.
#pragma once

#include <string>

#include "console/panel/http.h"
#include "console/panel/runs.h"

namespace kodra::console::panel {

// Both raise what Runs::Do raises, and what the reports raise.
Answer PrintLabels(const Request& request, const std::wstring& connection, Runs& runs);
Answer PrintPaper(const Request& request, const std::wstring& connection, Runs& runs);

}  // namespace kodra::console::panel
